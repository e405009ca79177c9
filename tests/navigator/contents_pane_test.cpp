#include "navigator/contents_pane.h"

#include <string>
#include <vector>

#include "navigator/node_deletion.h"
#include "support/case_fold.h"
#include "tests/navigator/contents_mirror.h"
#include "tests/store/filled_catalogue.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

/// A catalogue of procedures "Draw1" to "Draw100": 19 in class 2 and twenty in each of the classes
/// 3 to 6, the last one in class 7; all in application 2 "Paint 0". Application 3 is empty.
class ContentsPaneTest : public WriteFixture {
  protected:
    ContentsPaneTest() {
        db_.GetConnection().RunScript(
            FillScript(100) + "INSERT INTO tblApplication(appID, appName) VALUES (3, 'Empty');");
        pane_.Load({});
    }

    ContentsItem& Item(const NodeIDs& node) {
        ContentsItem* const item = pane_.Tree().Find(node);
        if (!item) throw std::out_of_range("not in the tree");
        return *item;
    }
    void ExpandAll() {
        pane_.Expand(Item({2}));
        for (std::int32_t classID = 2; classID <= 7; ++classID)
            pane_.Expand(Item({2, classID}));
    }
    static std::string Classes(const std::string& ofTwo = "") {
        return "a3 a2(a2f2" + ofTwo +
               " a2f3(ka2f3) a2f4(ka2f4) a2f5(ka2f5) a2f6(ka2f6) a2f7(ka2f7))";
    }

    ContentsPane pane_{db_};
    ContentsMirror mirror_{pane_.Tree()};
};

TEST_F(ContentsPaneTest, LoadsEachLevelOnceWhenItIsExpanded) {
    EXPECT_EQ(mirror_.Keys(), "a3 a2(ka2)");
    EXPECT_EQ(pane_.Selection(), NodeIDs());
    pane_.Expand(Item({2}));
    EXPECT_EQ(mirror_.Keys(), Classes("(ka2f2)"));
    EXPECT_EQ(pane_.Selection(), (NodeIDs{2, 0, 0}));
    const std::string once = mirror_.Keys();
    pane_.Expand(Item({2}));
    pane_.Expand(Item({3}));
    EXPECT_EQ(mirror_.Keys(), once);
    pane_.Expand(Item({2, 7}));
    EXPECT_EQ(Item({2, 7}).Child(0).Text(), "Draw100");
    EXPECT_EQ(pane_.Selection(), (NodeIDs{2, 7, 0}));
    pane_.Click(&Item({2, 7, 100}));
    pane_.Click(nullptr);
    EXPECT_EQ(pane_.Selection(), (NodeIDs{2, 7, 100}));
    mirror_.ExpectSame();
    ExecuteSQL(db_, "UPDATE tblClass SET classPathInApp = 'sub\\x.bas' WHERE classID = 3");
    EXPECT_EQ(pane_.Description(Item({2, 3})), Item({2, 3}).Text() + "\nsub/x.bas");
    EXPECT_EQ(pane_.Description(Item({2, 4})), Item({2, 4}).Text());
}

TEST_F(ContentsPaneTest, ShowsTheUndefinedApplicationFirstWhereItHoldsAnything) {
    ExecuteSQL(db_, "INSERT INTO tblCode(codeName, classID) VALUES ('Stray', 1)");
    int indexLoads = 0;
    pane_.Load({.isPaneShown = true, .loadIndex = [&] { ++indexLoads; }});
    EXPECT_EQ(indexLoads, 1);
    EXPECT_EQ(host_.events.pointers, (std::vector{Pointer::Hourglass, Pointer::Default}));
    EXPECT_EQ(mirror_.Keys(), "a1(ka1) a3 a2(ka2)");
    pane_.Expand(Item({1}));
    EXPECT_EQ(
        mirror_.Texts(),
        "Application Undefined\nClass/Module Undefined\nLoading...\nEmpty\nPaint 0\nLoading...\n");
    for (const NodeIDs& node : {NodeIDs{1}, NodeIDs{1, 1}}) {
        EXPECT_FALSE(pane_.MayEditName(Item(node)));
        EXPECT_EQ(pane_.DoubleClick(Item(node)), std::nullopt);
        EXPECT_EQ(TakeBox().text, node.classID == 0 ? "You cannot view or edit this application."
                                                    : "You cannot view or edit this class.");
    }
    EXPECT_EQ(pane_.DoubleClick(Item({2})).value().caption, "Edit Application");
}

TEST_F(ContentsPaneTest, RenamesInPlaceAndMovesTheNode) {
    ExpandAll();
    const struct {
        NodeIDs node;
        std::string name;
        std::string box;
    } refused[] = {
        {{2}, "", ""},
        {{2}, std::string(256, 'x'), "The name you specified is too long (over 255 characters)."},
        {{2, 3}, "a\tb", "A name cannot hold a line break, a tab or another control character."},
    };
    const std::string before = mirror_.Texts();
    for (const auto& test : refused) {
        EXPECT_FALSE(pane_.Rename(test.node, test.name));
        if (test.box.empty()) continue;
        EXPECT_EQ(TakeBox().text, test.box);
    }
    EXPECT_FALSE(pane_.Rename({3}, "Paint 0"));
    EXPECT_FALSE(TakeBox().text.empty());
    EXPECT_EQ(mirror_.Texts(), before);

    EXPECT_TRUE(pane_.Rename({3}, std::string(255, 'z')));
    EXPECT_TRUE(mirror_.Keys().ends_with(" a3"));
    EXPECT_TRUE(pane_.Rename({2, 2}, "Zebra"));
    EXPECT_EQ(Item({2, 2}).Row(), 5U);
    EXPECT_GT(Item({2, 2}).ChildCount(), 1U);  // still loaded
    EXPECT_TRUE(pane_.Rename({2, 7, 100}, "Paint"));
    EXPECT_EQ(Item({2, 7, 100}).Text(), "Paint");
    mirror_.ExpectSame();
}

TEST_F(ContentsPaneTest, RefreshesWhatIsLoadedAndKeepsTheSelection) {
    ExpandAll();
    pane_.Click(&Item({2, 4, 50}));
    const ContentsItem* const kept = &Item({2, 4, 50});
    db_.GetConnection().RunScript(
        "DELETE FROM tblCode WHERE codeID IN (40, 41, 59);"
        "INSERT INTO tblCode(codeID, codeName, classID) VALUES (500, 'Aardvark', 4);"
        "UPDATE tblCode SET codeName = 'Zoom' WHERE codeID = 45;"
        "INSERT INTO tblClass(classID, className, appID) VALUES (50, 'New', 3);"
        "DELETE FROM tblCode WHERE classID = 7;");
    pane_.Refresh();
    mirror_.ExpectSame();
    EXPECT_EQ(&Item({2, 4, 50}), kept);
    EXPECT_EQ(pane_.Selection(), (NodeIDs{2, 4, 50}));
    EXPECT_EQ(Item({2, 4, 500}).Row(), 0U);
    EXPECT_EQ(Item({2, 4, 45}).Row(), Item({2, 4}).ChildCount() - 1);
    EXPECT_TRUE(Item({3}).IsUnloaded());
    EXPECT_EQ(Item({2, 7}).ChildCount(), 0U);
    const std::string refreshed = mirror_.Keys();
    pane_.Load({});
    pane_.Expand(Item({2}));
    for (std::int32_t classID = 2; classID <= 6; ++classID)
        pane_.Expand(Item({2, classID}));
    EXPECT_EQ(mirror_.Keys(), refreshed);

    pane_.Click(&Item({2, 4, 50}));
    ExecuteSQL(db_, "DELETE FROM tblCode WHERE codeID = 50");
    pane_.Refresh();
    EXPECT_EQ(pane_.Selection(), (NodeIDs{2, 4, 0}));
}

TEST_F(ContentsPaneTest, SelectsWhatTakesThePlaceOfANodeThatGoes) {
    ExpandAll();
    const struct {
        NodeIDs node;
        NodeIDs beside;
    } places[] = {
        {{2, 3, 0}, {2, 4, 0}},    // the next one
        {{2, 7, 0}, {2, 6, 0}},    // behind the last one is none
        {{2, 7, 100}, {2, 7, 0}},  // the only one
        {{3, 0, 0}, {2, 0, 0}},   {{2, 0, 0}, {3, 0, 0}},
        {{2, 7, 999}, {2, 7, 0}},  // not in the tree
    };
    for (const auto& place : places) {
        pane_.SelectBeside(place.node);
        EXPECT_EQ(pane_.Selection(), place.beside);
    }
}

TEST_F(ContentsPaneTest, SelectsATopicWithItsAncestorsLoaded) {
    const struct {
        const char* topic;
        NodeIDs node;
    } cases[] = {
        {"f100", {2, 7, 100}}, {"c3", {2, 3, 0}}, {"a3", {3, 0, 0}}, {"f999", {}}, {"", {}}};
    for (const auto& test : cases) {
        const ContentsItem* const item = pane_.SelectTopic(test.topic);
        ASSERT_EQ(item != nullptr, test.node != NodeIDs()) << test.topic;
        if (!item) continue;
        EXPECT_EQ(item->IDs(), test.node);
        EXPECT_EQ(pane_.Selection(), test.node);
    }
    // It came after the tree was loaded; and the filter hides it.
    ExecuteSQL(db_, "INSERT INTO tblCode(codeID, codeName, classID) VALUES (501, 'Late', 7)");
    pane_.SetFilter("Draw1");
    ASSERT_NE(pane_.SelectTopic("f501"), nullptr);
    EXPECT_EQ(pane_.Filter(), "");
    mirror_.ExpectSame();
}

/// What the filter shows, by a walk over the whole tree: "Paint 0 Grid1 Draw20".
std::string SlowFilter(Rows rows, const std::string& text) {
    const auto fits = [&](const std::string& name) {
        return FoldCase(name).find(FoldCase(text)) != std::string::npos;
    };
    std::string shown;
    std::string lastClass;
    for (const std::string& row : rows) {
        const std::string className = row.substr(0, row.find('|'));
        const std::string codeName = row.substr(row.find('|') + 1);
        if (!fits(className) && !fits(codeName)) continue;
        if (className != lastClass) shown += className + "\n";
        lastClass = className;
        if (fits(className)) {
            if (!shown.ends_with("Loading...\n")) shown += "Loading...\n";
        } else {
            shown += codeName + "\n";
        }
    }
    return shown.empty() ? shown : "Paint 0\n" + shown;
}

TEST_F(ContentsPaneTest, FiltersByNamesOfEveryLevelAndShowsAllAgainAsItWas) {
    db_.GetConnection().RunScript(
        "UPDATE tblCode SET codeName = 'Grid%_[x]' WHERE codeID = 3;"
        "UPDATE tblCode SET codeName = 'it''s grid2' WHERE codeID = 4;");
    pane_.Refresh();
    pane_.Expand(Item({2}));
    pane_.Expand(Item({2, 7}));
    pane_.Click(&Item({2, 7, 100}));
    const std::string all = mirror_.Keys();
    const Rows rows = Select(
        "SELECT cls.className, cd.codeName FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = "
        "cls.classID WHERE cls.appID = 2 ORDER BY cls.className, cd.codeName");
    for (const std::string text :
         {"Draw1", "DRAW10", "grid", "Grid2", "%_[", "]", "it's", "nothing", "draw100"}) {
        pane_.SetFilter(text);
        EXPECT_EQ(mirror_.Texts(), SlowFilter(rows, text)) << text;
        EXPECT_FALSE(pane_.IsFilterCut());
    }
    EXPECT_TRUE(Item({2, 7}).IsExpanded());
    pane_.SetFilter("empty");
    EXPECT_EQ(mirror_.Keys(), "a3");
    EXPECT_EQ(pane_.Selection(), NodeIDs());
    pane_.SetFilter("");
    EXPECT_EQ(mirror_.Keys(), all);
    EXPECT_EQ(pane_.Selection(), (NodeIDs{2, 7, 100}));
    EXPECT_TRUE(Item({2, 7}).IsExpanded());
}

TEST_F(ContentsPaneTest, AsksBeforeADeletionAboutWhatGoesAndNotAboutClass1) {
    NodeDeletion deletion(db_);
    const auto question = [&](const NodeIDs& node) {
        host_.messages.Expect(StandardAnswer::No);
        EXPECT_FALSE(deletion.Delete(node));
        return TakeBox().text;
    };
    const std::string undefined = "Delete all that is in the application 'Application Undefined', ";
    EXPECT_EQ(question({1}), undefined + "0 classes and 0 procedures? It stays itself, empty.");
    ExecuteSQL(db_, "UPDATE tblClass SET appID = 3 WHERE classID = 1");
    EXPECT_EQ(question({1}), undefined + "0 classes and 0 procedures? It stays itself, empty.");
    EXPECT_EQ(question({3}), "Delete the application 'Empty' with its 0 classes and 0 procedures?");
}

TEST_F(ContentsPaneTest, DeletesAfterAQuestionAndTakesItBack) {
    NodeDeletion deletion(db_);
    host_.messages.Expect(StandardAnswer::No);
    EXPECT_FALSE(deletion.Delete({2, 3}));
    EXPECT_EQ(TakeBox().text, "Delete the class 'Grid1' with its 20 procedures?");
    EXPECT_FALSE(deletion.CanUndo());

    const NodeIDs deleted[] = {{2, 4, 50}, {2, 3, 0}, {2, 0, 0}};
    const char* const questions[] = {
        "Delete the procedure 'Draw50'?",
        "Delete the class 'Grid1' with its 20 procedures?",
        "Delete the application 'Paint 0' with its 5 classes and 79 procedures?",
    };
    for (std::size_t i = 0; i < 3; ++i) {
        host_.messages.Expect(StandardAnswer::Yes);
        EXPECT_TRUE(deletion.Delete(deleted[i]));
        EXPECT_EQ(TakeBox().text, questions[i]);
    }
    EXPECT_FALSE(deletion.Delete(deleted[0]));  // is gone; nobody is asked
    pane_.Refresh();
    EXPECT_EQ(mirror_.Keys(), "a3");
    EXPECT_EQ(deletion.UndoName(), "Paint 0");
    for (std::size_t i = 3; i-- > 0;)
        EXPECT_EQ(deletion.Undo(), deleted[i]);
    EXPECT_FALSE(deletion.CanUndo());
    pane_.Refresh();
    ExpandAll();
    EXPECT_EQ(Item({2, 3}).ChildCount(), 20U);
}

TEST_F(ContentsPaneTest, KeepsOtherLoadsAwayWhileEventsRun) {
    db_.GetConnection().RunScript(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 20000) "
        "INSERT INTO tblCode(codeID, codeName, classID) SELECT 1000 + i, 'Many' || i, 7 FROM n;");
    pane_.Expand(Item({2}));
    mirror_.afterInsert = [this] { host_.clock.Advance(std::chrono::milliseconds{300}); };
    host_.events.At(2, [this] {
        pane_.Refresh();
        pane_.SetFilter("x");
        pane_.Expand(Item({2, 3}));
        pane_.Load({});
    });
    pane_.Expand(Item({2, 7}));
    EXPECT_EQ(Item({2, 7}).ChildCount(), 20'001U);
    EXPECT_TRUE(Item({2, 3}).IsUnloaded());
    EXPECT_TRUE(host_.progress.opened.at(0).ends_with(" , please wait..."));
    EXPECT_FALSE(host_.progress.IsOpen());
    mirror_.ExpectSame();
}

}  // namespace
}  // namespace snippetarium::test
