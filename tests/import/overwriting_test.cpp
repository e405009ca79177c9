#include <gtest/gtest.h>

#include "tests/import/unit_store_fixture.h"

namespace snippetarium::test {
namespace {

using OverwritingTest = UnitStoreTest;

TEST_F(OverwritingTest, LeavesAClassThatIsThereAloneUnlessItIsToBeOverwritten) {
    Store({.className = "modDraw", .text = "old"});
    for (const OverwriteChoice choice : {OverwriteChoice::None, OverwriteChoice::No}) {
        EXPECT_EQ(StoreAgain({.className = "MODDRAW", .text = "new"}, choice),
                  StoreResult::LeftAlone);
        EXPECT_EQ(TakeErrors(),
                  "  Draw.bas was not imported, because its class MODDRAW is in the catalogue "
                  "already.\r\n");
        EXPECT_FALSE(state_.codeFound);
    }
    EXPECT_EQ(ClassText(2), "old");
    // Another path or another name is another class.
    EXPECT_EQ(StoreAgain({.className = "modDraw"}, OverwriteChoice::No, "sub\\Draw.bas"),
              StoreResult::Stored);
    EXPECT_EQ(StoreAgain({.className = "modGrid"}, OverwriteChoice::No), StoreResult::Stored);
    EXPECT_EQ(Classes(),
              (Rows{"2|modDraw|Draw.bas", "3|modDraw|sub\\Draw.bas", "4|modGrid|Draw.bas"}));
}

TEST_F(OverwritingTest, OverwritesAClassByANewOneWithNothingOfTheOld) {
    Store({.className = "modDraw",
           .comment = "' Author: Ann Lee",
           .text = "old",
           .procedures = {{.name = "A()", .comment = "' Keywords: grid", .code = "old a"},
                          {.name = "B()", .code = "old b"}}});
    Store({.className = "modGrid"}, "Grid.bas");
    EXPECT_EQ(StoreAgain({.className = "modDraw",
                          .text = "new",
                          .procedures = {{.name = "A()", .code = "new a"}}},
                         OverwriteChoice::Yes),
              StoreResult::Stored);
    EXPECT_EQ(TakeErrors(), "");
    EXPECT_EQ(Classes(), (Rows{"3|modGrid|Grid.bas", "4|modDraw|Draw.bas"}));
    EXPECT_EQ(ClassText(4), "'***Procedure A()***new");
    EXPECT_EQ(Select("SELECT code, classID FROM tblCode"), (Rows{"new a|4"}));
    for (const std::string table : {"tblAuthor", "tblKeyword", "tbl_Author_Link"})
        EXPECT_EQ(Select("SELECT * FROM " + table), Rows{}) << table;
}

TEST_F(OverwritingTest, KeepsTheOldClassUntilTheNewOneIsComplete) {
    const CutFile old{.className = "modDraw", .procedures = {{.name = "A()", .code = "old"}}};
    const CutFile young{.className = "modDraw",
                        .text = "ab",
                        .procedures = {{.name = "A()", .code = "new", .position = 0},
                                       {.name = "B()", .code = "new", .position = 1}}};
    Store(old);
    host_.events.yields = 0;
    host_.events.At(1, [this] { state_.importCancelled = true; });
    EXPECT_EQ(StoreAgain(young, OverwriteChoice::Yes), StoreResult::Cancelled);
    EXPECT_EQ(TakeErrors(),
              "  Draw.bas was not imported to its end: 1 of its 2 procedures are in the "
              "catalogue.\r\n");
    EXPECT_EQ(Classes(), (Rows{"2|modDraw|Draw.bas", "3|modDraw|Draw.bas"}));
    EXPECT_EQ(ClassText(3), "'***Procedure A()***");

    // The next time the old one goes, and with it what was left unfinished.
    EXPECT_EQ(StoreAgain(young, OverwriteChoice::Yes), StoreResult::Stored);
    EXPECT_EQ(Classes(), (Rows{"4|modDraw|Draw.bas"}));
    EXPECT_EQ(CodeNames(), (Rows{"A()", "B()"}));
}

TEST_F(OverwritingTest, OverwritesOnlyTheFileOfTheSameLetterCaseWhereThereAreTwo) {
    state_.overwriteChoice = OverwriteChoice::Yes;
    for (const char* const entry : {"a.bas", "A.bas"})
        EXPECT_EQ(Store({.className = entry}, entry), StoreResult::Stored);
    EXPECT_EQ(Classes(), (Rows{"2|a.bas|a.bas", "3|A.bas|A.bas"}));
    EXPECT_EQ(StoreAgain({.className = "A.bas"}, OverwriteChoice::Yes, "A.bas"),
              StoreResult::Stored);
    EXPECT_EQ(Classes(), (Rows{"2|a.bas|a.bas", "4|A.bas|A.bas"}));
}

TEST_F(OverwritingTest, SaysSoWhereTheOverwrittenClassCannotBeDeleted) {
    Store({.className = "modDraw"});
    db_.GetConnection().RunScript(
        "CREATE TRIGGER keep BEFORE DELETE ON tblClass BEGIN SELECT RAISE(ABORT, 'kept'); END;");
    EXPECT_EQ(StoreAgain({.className = "modDraw"}, OverwriteChoice::Yes), StoreResult::Stored);
    ExpectFailedStatement();
    EXPECT_EQ(TakeErrors(),
              "  Draw.bas was imported, but the class that it replaces could not be deleted.\r\n");
}

}  // namespace
}  // namespace snippetarium::test
