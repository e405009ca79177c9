#include "store/trash.h"

#include <functional>

#include "store/check.h"
#include "store/deletion.h"
#include "tests/store/trash_fixture.h"

namespace snippetarium::test {
namespace {

/// Every kind, with and without a marker in its class's text, and what is only emptied.
constexpr Owner kOwners[] = {Code(1),  Code(2),        Code(3),        Code(5),       Code(7),
                             Code(8),  Class(2),       Class(3),       Class(4),      Class(1),
                             Class(6), Application(2), Application(3), Application(1)};

std::string Title(const Owner& owner) {
    return std::to_string(static_cast<int>(owner.kind)) + "/" + std::to_string(owner.id);
}

class Trash : public TrashFixture {
  protected:
    /// A deletion that ends after as many statements, as if the program had been killed. False when
    /// it had no more.
    bool DeleteUntil(const Owner& owner, int lastStatement) {
        int statements = 0;
        db_.SetStatementObserver([&](std::string_view) {
            if (++statements > lastStatement) throw Error(error_number::kInternal, "killed");
        });
        Delete(owner);
        db_.SetStatementObserver(nullptr);
        host_.messages.shown.clear();
        db_.GetConnection().RunScript("DELETE FROM tblIDsToDelete");
        return statements > lastStatement;
    }
};

TEST_F(Trash, GivesBackWhateverWasDeleted) {
    const Rows before = Dump();
    for (const Owner& owner : kOwners) {
        SCOPED_TRACE(Title(owner));
        Delete(owner);
        EXPECT_NE(Dump(), before);
        const TrashReturn returned = RestoreNewest();
        EXPECT_EQ(returned.owner.id, owner.id);
        EXPECT_EQ(returned.remarks, Rows());
        ASSERT_EQ(DifferenceTo(before), "");
        ExpectEmptyTrash();
    }
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

TEST_F(Trash, GivesBackOneDeletionAfterTheOther) {
    const Rows before = Dump();
    const Owner deleted[] = {Code(2), Code(1), Class(3), Application(2), Code(7), Application(1)};
    for (const Owner& owner : deleted)
        Delete(owner);
    EXPECT_EQ(Field("SELECT count(*) FROM tblCode"), "1");
    for (std::size_t i = 0; i < std::size(deleted); ++i)
        EXPECT_EQ(RestoreNewest().remarks, Rows());
    EXPECT_EQ(DifferenceTo(before), "");
    ExpectEmptyTrash();
}

/// What a user does while things are in the trash: it takes the IDs of rows that are gone.
constexpr std::string_view kMeanwhile =
    "INSERT INTO tblKeyword SELECT max(keywordID) + 1, 'Grid', 1 FROM tblKeyword;"
    "INSERT INTO tblKeyword SELECT max(keywordID) + 1, 'new', 1 FROM tblKeyword;"
    "INSERT INTO tblSearchWord SELECT max(searchWordID) + 1, 'new' FROM tblSearchWord;"
    "INSERT INTO tblSearchWord SELECT max(searchWordID) + 1, 'other' FROM tblSearchWord;"
    "INSERT INTO tblKeyword_link_searchWord SELECT k.keywordID, w.searchWordID FROM tblKeyword k, "
    "tblSearchWord w WHERE k.keyword = 'new' AND w.searchWord IN ('new', 'other');"
    "INSERT INTO tblApplication(appName, keywordID) SELECT 'New', max(keywordID) FROM tblKeyword;"
    "INSERT INTO tblAuthor SELECT max(authorID) + 1, 'Eve', '', '' FROM tblAuthor;"
    "INSERT INTO tbl_Author_Link SELECT a.appID, u.authorID, 1 FROM tblApplication a, tblAuthor u "
    "WHERE a.appName = 'New' AND u.authorFName = 'Eve';"
    "INSERT INTO tblDate SELECT max(dateID) + 1, '2010-10-10' FROM tblDate;"
    "INSERT INTO tbl_date_link SELECT a.appID, d.dateID, 1 FROM tblApplication a, tblDate d WHERE "
    "a.appName = 'New' AND d.dDate = '2010-10-10';";

TEST_F(Trash, NumbersAnewWhatTookAnIDMeanwhile) {
    db_.Close();
    const std::string sample = ReadBytes(CataloguePath());
    for (const Owner& owner : kOwners) {
        SCOPED_TRACE(Title(owner));
        WriteBytes(CataloguePath(), sample);
        OpenCatalogue(db_);
        db_.GetConnection().RunScript(kMeanwhile);
        const Rows expected = Dump();
        db_.Close();

        WriteBytes(CataloguePath(), sample);
        OpenCatalogue(db_);
        Delete(owner);
        db_.GetConnection().RunScript(kMeanwhile);
        RestoreNewest();
        EXPECT_EQ(DifferenceTo(expected), "");
        EXPECT_EQ(Field("SELECT count(*) FROM tblApplication a INNER JOIN tblClass c ON "
                        "a.keywordID = c.keywordID"),
                  "0")
            << "two owners of one keyword";
        db_.Close();
    }
}

TEST_F(Trash, TakesOverLanguagesThatBecameAnothersOrWereMadeAgain) {
    Delete(Class(4));
    db_.GetConnection().RunScript(
        "DELETE FROM tblLanguage WHERE languageID = 12;"
        "INSERT INTO tblLanguage VALUES (12, 'Lisp', 1)");
    RestoreNewest();
    const std::string language =
        "SELECT l.languageID, l.language FROM tblClass c INNER JOIN tblLanguage l ON c.languageID "
        "= l.languageID WHERE c.classID = 4";
    EXPECT_EQ(Field(language), "13|Forth");
    EXPECT_EQ(Field("SELECT languageID FROM tblCode_Link_Language WHERE codeID = 5"), "13");

    Delete(Class(4));
    db_.GetConnection().RunScript("UPDATE tblLanguage SET languageID = 20 WHERE languageID = 13");
    RestoreNewest();
    EXPECT_EQ(Field(language), "20|Forth");
}

TEST_F(Trash, GivesIDsAnewThatASpoiltCounterGaveToStrangers) {
    Delete(Application(2));
    db_.GetConnection().RunScript(
        "INSERT INTO tblApplication(appID, appName) VALUES (2, 'Stranger');"
        "INSERT INTO tblClass(classID, className, appID) VALUES (3, 'Stranger', 2);"
        "INSERT INTO tblCode(codeID, codeName, code, classID) VALUES (1, 'Draw()', 'int Draw()', "
        "3)");
    const TrashReturn returned = RestoreNewest();
    EXPECT_EQ(returned.owner.id, 4);
    EXPECT_EQ(Select("SELECT c.className, d.codeID, d.codeName, d.code FROM tblCode d INNER JOIN "
                     "tblClass c ON d.classID = c.classID WHERE c.appID IN (2, 4) ORDER BY "
                     "d.codeID"),
              (Rows{"Stranger|1|Draw()|int Draw()", "grid.cpp|2|it's|void its() {}",
                    "Form1|3|Draw|Sub Draw()", "Form1|4|draw|Sub draw()", "Form1|5|words|: words ;",
                    "grid.cpp|9|Draw()|void Draw() {}"}));
    EXPECT_EQ(Select("SELECT appID, classID, codeID FROM tblFavorite WHERE appID = 4 ORDER BY "
                     "classID, codeID"),
              (Rows{"4|2|-", "4|2|9", "4|7|-"}));
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

TEST_F(Trash, BringsBackWholeWhatADeletionThatWasCutShortHasLeft) {
    const Rows before = Dump();
    db_.Close();
    const std::string sample = ReadBytes(CataloguePath());
    int cuts = 0;
    for (const Owner& owner : {Code(1), Class(2), Class(1), Application(2), Application(1)}) {
        bool isCut = true;
        for (int last = 0; isCut; ++last) {
            SCOPED_TRACE(Title(owner) + " after " + std::to_string(last));
            WriteBytes(CataloguePath(), sample);
            OpenCatalogue(db_);
            isCut = DeleteUntil(owner, last);
            RestoreNewest();
            ASSERT_EQ(DifferenceTo(before), "");
            db_.Close();
            ++cuts;
        }
        EXPECT_TRUE(CheckCatalogue(db_).IsSound());
    }
    EXPECT_GT(cuts, 70);
}

TEST_F(Trash, ShowsThatItIsAtWorkWhenALargeEntryComesBack) {
    Delete(Application(2));
    host_.progress.opened.clear();
    host_.events.At(host_.events.yields + 1, [&] { host_.clock.Advance(std::chrono::seconds(1)); });
    RestoreNewest();
    EXPECT_EQ(host_.progress.opened, Rows{"Restoring"});
    EXPECT_EQ(host_.progress.TextsOf(ProgressText::ContentLine), Rows{"Restoring Paint"});
    EXPECT_EQ(host_.progress.Total(), 100.0);
    EXPECT_FALSE(host_.progress.IsOpen());
}

TEST_F(Trash, DeletesNothingThatItCannotKeep) {
    const Rows before = Dump();
    for (const std::string_view table : CatalogueTables()) {
        if (!table.starts_with("tblTrash") || table == "tblTrashLanguage") continue;
        SCOPED_TRACE(table);
        const std::string trigger = "CREATE TRIGGER refuse BEFORE INSERT ON " + std::string(table) +
                                    " BEGIN SELECT RAISE(ABORT, 'refused'); END;";
        db_.GetConnection().RunScript(trigger);
        Delete(Application(2));
        EXPECT_NE(TakeBox().text.find("QRT Error Code: 10953"), std::string::npos);
        EXPECT_EQ(DifferenceTo(before), "");
        ExpectEmptyTrash();
        db_.GetConnection().RunScript("DROP TRIGGER refuse");
    }
}

TEST_F(Trash, ThatCannotBeBroughtBackStaysWhole) {
    const Rows before = Dump();
    Delete(Application(2));
    const Rows deleted = Dump();
    const std::string_view refused[] = {
        "INSERT ON tblApplication",  "INSERT ON tblClass",
        "INSERT ON tblCode",         "INSERT ON tblKeyword",
        "INSERT ON tblSearchWord",   "INSERT ON tblKeyword_link_searchWord",
        "INSERT ON tblAuthor",       "INSERT ON tbl_Author_Link",
        "INSERT ON tblDate",         "INSERT ON tbl_date_link",
        "INSERT ON tblFavorite",     "INSERT ON tblCode_Link_Language",
        "INSERT ON tblSourceForm",   "INSERT ON tblOverlong",
        "DELETE ON tblTrashOverlong"};
    for (const std::string_view change : refused) {
        SCOPED_TRACE(change);
        db_.GetConnection().RunScript("CREATE TRIGGER refuse BEFORE " + std::string(change) +
                                      " BEGIN SELECT RAISE(ABORT, 'refused'); END;");
        EXPECT_EQ(RestoreNewest().owner.id, 0);
        EXPECT_NE(TakeBox().text.find("QRT Error Code: 10955"), std::string::npos);
        EXPECT_EQ(DifferenceTo(deleted), "");
        db_.GetConnection().RunScript("DROP TRIGGER refuse");
    }
    RestoreNewest();
    EXPECT_EQ(DifferenceTo(before), "");
}

}  // namespace
}  // namespace snippetarium::test
