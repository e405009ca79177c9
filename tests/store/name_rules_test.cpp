#include "store/name_rules.h"

#include "store/writes_applications.h"
#include "store/writes_classes.h"
#include "store/writes_codes.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

/// Applications Grid (2) and Text (3). In Grid the classes Form1 (2), Form1 (3) of another path,
/// and Cells (4); in Text the class Page (5). In class 2 the procedures Draw (1) and Fill (2).
class NameRules : public WriteFixture {
  protected:
    NameRules() {
        AddApplication(db_, {.name = "Grid"});
        AddApplication(db_, {.name = "Text"});
        AddClass(db_, {.name = "Form1", .appID = 2, .pathInApp = "a\\Form1.frm"});
        AddClass(db_, {.name = "Form1", .appID = 2, .pathInApp = "b\\Form1.frm"});
        AddClass(db_, {.name = "Cells", .appID = 2});
        AddClass(db_, {.name = "Page", .appID = 3});
        AddCode(db_, {.name = "Draw", .classID = 2});
        AddCode(db_, {.name = "Fill", .classID = 2});
        TakeStatements();
    }

    struct NameCase {
        std::function<bool(Database&)> ask;
        /// Empty where the name may be used.
        std::string message = {};
    };

    void ExpectAnswers(const std::vector<NameCase>& cases) {
        for (std::size_t i = 0; i < cases.size(); ++i) {
            const std::string& message = cases[i].message;
            EXPECT_EQ(cases[i].ask(db_), message.empty()) << "case " << i;
            if (message.empty()) continue;
            EXPECT_EQ(TakeBox(),
                      (ShownBox{BoxKind::Information, "Snippetarium Information", message}))
                << "case " << i;
        }
        EXPECT_EQ(TakeStatements(), Statements());
    }
};

const std::string kFree;
const std::string kCannotRename = "Cannot rename: ";
const std::string kApplicationTaken =
    "A application with the name you specified already exists. Specify a different application "
    "name.";
const std::string kClassTaken =
    "A class with the name you specified already exists in this application. Specify a different "
    "class name.";
const std::string kCodeTaken =
    "A procedure with the name you specified already exists in this class. Specify a different "
    "procedure name.";

auto AddingApplication(std::string_view name) {
    return [=](Database& db) { return MayAddApplication(db, name); };
}
auto AddingClass(std::string_view name, std::int32_t appID) {
    return [=](Database& db) { return MayAddClass(db, name, appID); };
}
auto AddingCode(std::string_view name, std::int32_t classID) {
    return [=](Database& db) { return MayAddCode(db, name, classID); };
}
auto RenamingApplication(std::int32_t id, std::string_view name) {
    return [=](Database& db) { return MayRenameApplication(db, id, name); };
}
auto RenamingClass(std::int32_t id, std::string_view name) {
    return [=](Database& db) { return MayRenameClass(db, id, name); };
}
auto RenamingCode(std::int32_t id, std::string_view name) {
    return [=](Database& db) { return MayRenameCode(db, id, name); };
}

TEST_F(NameRules, LetANewRecordHaveANameThatIsFreeInItsParent) {
    ExpectAnswers({
        {AddingApplication("Grids"), kFree},
        {AddingApplication("GRID"), kApplicationTaken},
        {AddingClass("Cells", 3), kFree},
        {AddingClass("cells", 2), kClassTaken},
        {AddingClass("Class/Module Undefined", 0), kClassTaken},
        {AddingClass("Class/Module Undefined", 2), kFree},
        {AddingCode("Draw", 3), kFree},
        {AddingCode("DRAW", 2), kCodeTaken},
        {AddingCode("Draw", 0), kFree},
    });
    AddCode(db_, {.name = "Draw"});
    TakeStatements();
    ExpectAnswers({{AddingCode("Draw", 0), kCodeTaken}});
}

TEST_F(NameRules, LetARecordHaveANewNameThatIsFreeInItsParent) {
    ExpectAnswers({
        {RenamingApplication(2, "Grids"), kFree},
        {RenamingApplication(2, "text"), kCannotRename + kApplicationTaken},
        {RenamingClass(2, "Page"), kFree},
        {RenamingClass(2, "cells"), kCannotRename + kClassTaken},
        {RenamingClass(4, "Form1"), kCannotRename + kClassTaken},
        {RenamingCode(2, "Paint"), kFree},
        {RenamingCode(2, "draw"), kCannotRename + kCodeTaken},
    });
}

TEST_F(NameRules, LetARecordKeepItsNameInAnyLetterCase) {
    ExpectAnswers({
        {RenamingApplication(2, "Grid"), kFree},
        {RenamingApplication(2, "gRID"), kFree},
        {RenamingClass(2, "Form1"), kFree},
        {RenamingClass(3, "FORM1"), kFree},  // although class 2 has that name too
        {RenamingCode(1, "draw"), kFree},
    });
    RenameCode(db_, 1, "\u0416ук");
    TakeStatements();
    ExpectAnswers({{RenamingCode(1, "\u0436УК"), kFree}});
}

TEST_F(NameRules, RefuseWhatIsNoName) {
    const std::string kEmpty = "Please enter a name.";
    ExpectAnswers({
        {AddingApplication(""), kEmpty},
        {AddingClass("  ", 2), kEmpty},
        {AddingCode("\t\r\n", 2), kEmpty},
        {RenamingApplication(2, ""), kEmpty},
        {RenamingClass(2, " "), kEmpty},
        {RenamingCode(1, ""), kEmpty},
        {AddingApplication("\u3042"), kFree},
    });
}

TEST_F(NameRules, RefuseMoreThan255Characters) {
    std::string name;
    for (int i = 0; i < 255; ++i)
        name += "\U0001F600";
    const std::string tooLong = name + "x";
    const auto askAll = [this](std::string_view text) {
        return std::vector<bool>{
            MayAddApplication(db_, text), MayAddClass(db_, text, 2),
            MayAddCode(db_, text, 2),     MayRenameApplication(db_, 2, text),
            MayRenameClass(db_, 2, text), MayRenameCode(db_, 1, text),
        };
    };
    EXPECT_EQ(askAll(name), std::vector<bool>(6, true));
    EXPECT_EQ(askAll(tooLong), std::vector<bool>(6, false));
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(TakeBox(),
                  (ShownBox{BoxKind::Error, "Snippetarium Information",
                            "The name you specified is too long (over 255 characters)."}));
    }
}

TEST_F(NameRules, TakeNoNameForFreeWhenTheReadFails) {
    db_.GetConnection().RunScript("DELETE FROM tblNamedQuery;");
    EXPECT_FALSE(MayAddApplication(db_, "Grids"));
    EXPECT_FALSE(MayRenameClass(db_, 2, "Grids"));
    TakeBox();
    TakeBox();
}

TEST_F(NameRules, RefuseWhatHasBeenDeletedInTheMeantime) {
    const std::string application = "The application does not exist any more. Choose another one.";
    const std::string cls = "The class does not exist any more. Choose another one.";
    ExpectAnswers({
        {AddingClass("New", 99), application},
        {AddingCode("New", 99), cls},
        {AddingCode("New", -1), cls},
        {RenamingApplication(99, "New"), kCannotRename + application},
        {RenamingClass(99, "Form1"), kCannotRename + cls},
        {RenamingCode(99, "Draw"),
         kCannotRename + "The procedure does not exist any more. Choose another one."},
    });
}

TEST_F(NameRules, LetWhatTakesInTheHomelessKeepItsName) {
    const std::string keeps =
        kCannotRename +
        "What belongs nowhere else is found under this name, so it stays. Specify the old name.";
    ExpectAnswers({
        {RenamingApplication(1, "Mine"), keeps},
        {RenamingApplication(1, "Application Undefined"), kFree},
        {RenamingClass(1, "Mine"), keeps},
        {RenamingClass(1, "Class/Module Undefined"), kFree},
    });
}

}  // namespace
}  // namespace snippetarium::test
