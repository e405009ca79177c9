#include "navigator/commands.h"

#include <map>
#include <set>
#include <string>

#include "navigator/command_state.h"
#include "navigator/node_requests.h"
#include "navigator/status_text.h"
#include "tests/store/filled_catalogue.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

TEST(Commands, FormMenusWithNamesKeysAndShortcutsOfTheirOwn) {
    std::set<std::string_view> names;
    std::set<std::string_view> shortcuts;
    std::set<std::pair<std::string_view, char>> accessKeys;
    std::set<MenuCommand> reachable;
    for (const MenuRow& row : MenuRows()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_TRUE(row.parent.empty() || names.contains(row.parent)) << row.name;
        const bool opensItems = row.role == MenuRole::Submenu || row.role == MenuRole::PopUp;
        EXPECT_EQ(row.command == MenuCommand::None, opensItems) << row.name;
        EXPECT_TRUE(row.shortcut.empty() || shortcuts.insert(row.shortcut).second) << row.name;
        reachable.insert(row.command);
        const std::size_t mark = row.caption.find('&');
        if (mark == std::string_view::npos) continue;
        const char key = static_cast<char>(std::tolower(row.caption.at(mark + 1)));
        EXPECT_TRUE(accessKeys.insert({row.parent, key}).second) << row.name;
    }
    for (const KeyRow& row : KeyRows()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_TRUE(row.shortcut.empty() || shortcuts.insert(row.shortcut).second) << row.name;
        EXPECT_TRUE(reachable.insert(row.command).second) << row.name;
    }
    EXPECT_EQ(reachable.size(), static_cast<std::size_t>(MenuCommand::BackToPage) + 1);
}

TEST(CommandState, FollowsWhatIsSelectedAndShown) {
    const NodeIDs procedure{2, 3, 4};
    // clang-format off
    const struct {
        MenuCommand command;
        ProgramFacts facts;
        bool isEnabled;
    } cases[] = {
        {MenuCommand::EditApplication, {}, true},  // the refusal is put in words
        {MenuCommand::DeleteSelected, {}, false},
        {MenuCommand::DeleteSelected, {.selection = procedure}, true},
        {MenuCommand::DeleteSelected, {.selection = procedure, .isReadOnly = true}, false},
        {MenuCommand::EditProcedure, {.selection = procedure, .isReadOnly = true}, true},
        {MenuCommand::ExportShownPage, {.shownPage = {.appID = 2}}, false},
        {MenuCommand::ExportShownPage, {.shownPage = procedure}, true},
        {MenuCommand::AddBookmark, {.selection = {.appID = 2}}, false},
        {MenuCommand::AddBookmark, {.selection = {.appID = 2}, .shownPage = procedure}, true},
        {MenuCommand::FindInPage, {.hasPageText = true, .isBusy = true}, true},
        {MenuCommand::Import, {.isBusy = true}, false},
        {MenuCommand::Exit, {.isBusy = true}, true},
        {MenuCommand::UndoDelete, {}, false},
        {MenuCommand::UndoDelete, {.canUndoDelete = true}, true},
    };
    // clang-format on
    for (const auto& test : cases) {
        EXPECT_EQ(IsEnabled(test.command, test.facts), test.isEnabled)
            << static_cast<int>(test.command);
    }
}

class NodeRequests : public WriteFixture {
  protected:
    NodeRequests() {
        db_.GetConnection().RunScript(
            FillScript(30) +
            "UPDATE tblClass SET classPathInApp = 'forms\\Grid.frm' WHERE classID = 2;"
            "UPDATE tblCode SET codeName = 'Draw/It(x As Long)' WHERE codeID = 1;");
    }
};

TEST_F(NodeRequests, OpenAnEditorOrSayWhyNot) {
    using Check = EditRequest (*)(Database&, const NodeIDs&);
    const NodeIDs procedure{2, 2, 1};
    const struct {
        Check check;
        NodeIDs node;
        std::string caption;
        std::string box;
        NodeIDs target;
    } cases[] = {
        {EditSelectedApplication, {}, "", "Please select an application.", {}},
        {EditSelectedApplication, {1}, "", "You cannot view or edit this application.", {}},
        {EditSelectedApplication, procedure, "Edit Application", "", {2}},
        {EditSelectedClass, {2}, "", "Please select a class/module.", {}},
        {EditSelectedClass, {1, 1}, "", "You cannot view or edit this class.", {}},
        {EditSelectedClass, procedure, "Edit Class", "", {2, 2}},
        {EditSelectedProcedure, {2, 2}, "", "Please select a subroutine.", {}},
        {EditSelectedProcedure, procedure, "Edit Procedure", "", procedure},
        {EditSelectedProcedure, {1, 1, 5}, "Edit Procedure", "", {1, 1, 5}},
        {EditNode, {2, 2}, "Edit Class", "", {2, 2}},
        {EditNode, {}, "", "", {}},
        {EditShownPage, procedure, "Edit Procedure", "", procedure},
        {EditShownPage, {2, 2}, "Edit Class", "", {2, 2}},
    };
    for (const auto& test : cases) {
        const EditRequest request = test.check(db_, test.node);
        EXPECT_EQ(request ? request->caption : "", test.caption);
        EXPECT_EQ(request ? request->node : NodeIDs(), test.target);
        if (test.box.empty()) continue;
        EXPECT_EQ(TakeBox(),
                  (ShownBox{BoxKind::Information, "Snippetarium Information", test.box}));
    }
}

TEST_F(NodeRequests, NameTheExportAndItsFile) {
    const struct {
        NodeIDs node;
        const char* title;
        const char* file;
    } cases[] = {
        {{2}, "Export application: Paint 0", ""},
        {{2, 2}, "Export class: Grid0", "Grid.frm"},
        {{2, 3}, "Export class: Grid1", "Grid1"},
        {{2, 2, 1}, "Export procedure: Draw/It(x As Long)", "Draw_It.frm"},
        {{2, 2, 2}, "Export procedure: Draw2", "Draw2.frm"},
    };
    for (const auto& test : cases) {
        const auto target = ExportSelected(db_, test.node);
        ASSERT_TRUE(target) << test.title;
        EXPECT_EQ(target->title, test.title);
        EXPECT_EQ(target->fileName, test.file);
    }
    EXPECT_EQ(ExportShownPage(db_, {2, 2, 999}), std::nullopt);
    EXPECT_EQ(TakeBox(), (ShownBox{BoxKind::Error, "Snippetarium Error Message",
                                   "This Class or Code has been deleted."}));
    EXPECT_EQ(ExportShownPage(db_, {2}), std::nullopt);
    EXPECT_EQ(ExportSelected(db_, {}), std::nullopt);
}

TEST_F(NodeRequests, SayWhereNewAndExistingThingsGo) {
    EXPECT_EQ(AddNewAt({}), (NewTarget{NodeKind::Application}));
    EXPECT_EQ(AddNewAt({2}), (NewTarget{NodeKind::Class, 2}));
    EXPECT_EQ(AddNewAt({2, 3, 4}), (NewTarget{NodeKind::Procedure, 2, 3}));
    EXPECT_EQ(AddExistingAt(db_, {2, 3, 4}), (CopyTarget{NodeKind::Procedure, 2, 3}));
    EXPECT_EQ(AddExistingAt(db_, {2}), (CopyTarget{NodeKind::Class, 2}));
    EXPECT_EQ(AddExistingClass(db_, {}), std::nullopt);
    EXPECT_EQ(TakeBox().text, "Please select an application.");
    EXPECT_TRUE(MayRename(db_, {2, 2}));
    EXPECT_FALSE(MayRename(db_, {1, 1}));
    EXPECT_EQ(TakeBox().text, "You cannot edit this name.");
    EXPECT_EQ(CaptionsFor({2, 2}).edit, "Edit Class/Module");
    EXPECT_EQ(CaptionsFor({2}).addNew, "Add New Class");
    EXPECT_EQ(CaptionsFor({}).addNew, "Add New Application");
    EXPECT_EQ(CaptionsFor({}).edit, "");
}

TEST_F(NodeRequests, AreBesideAStatusLine) {
    EXPECT_EQ(PathText(db_, {2, 2, 2}), "Paint 0 > Grid0 > Draw2");
    EXPECT_EQ(PathText(db_, {}), "");
    EXPECT_EQ(CountsText(db_), "1 application, 2 classes, 30 procedures");
}

}  // namespace
}  // namespace snippetarium::test
