#include "store/keyword_rows.h"

#include <span>
#include <string>
#include <vector>

#include "store/reads_keywords.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/statement_log.h"

namespace snippetarium::test {
namespace {

using Statements = std::vector<std::string>;

class KeywordRowsTest : public OpenCatalogueFixture {
  protected:
    std::int32_t Count(std::string_view tableAndCondition) {
        return ScalarLong(db_, "SELECT count(*) FROM " + std::string(tableAndCondition));
    }
    std::string Word(std::int32_t searchWordID) {
        const Recordset row = db_.GetConnection().Execute(
            "SELECT searchWord FROM tblSearchWord WHERE searchWordID = " +
            std::to_string(searchWordID));
        return row["searchWord"].Text();
    }

    StatementLog log_{db_};
};

TEST_F(KeywordRowsTest, OfKeywordStringsAreWrittenWithTheseStatements) {
    EXPECT_EQ(AddKeyword(db_, "it's; mine", 3), 1);
    EXPECT_EQ(log_.Take(), (Statements{"SELECT max(keywordID) FROM tblKeyword",
                                       "INSERT INTO tblKeyword VALUES(1, 'it''s; mine', 3)"}));
    UpdateKeyword(db_, 1, "it's", 2);
    EXPECT_EQ(log_.Take(), (Statements{"UPDATE tblKeyword SET keyword = 'it''s', separatorID = 2 "
                                       "WHERE keywordID = 1;"}));
    const Recordset row = KeywordByID(db_, 1);
    EXPECT_EQ(row["keyword"].Text(), "it's");
    EXPECT_EQ(row["separatorID"].Long(), 2);
    EXPECT_EQ(AddKeyword(db_, "", 1), 2);
}

TEST_F(KeywordRowsTest, OfOwnersAreWrittenWithTheseStatements) {
    ExecuteSQL(db_, "INSERT INTO tblCode(codeName, code, classID) VALUES ('f', 'x', 1)");
    log_.Take();
    const struct {
        OwnerKind kind;
        std::string set;
        std::string clear;
    } cases[] = {
        {OwnerKind::Application, "UPDATE tblApplication SET keywordID = 7 WHERE appID=1",
         "UPDATE tblApplication SET keywordID = null WHERE appID = 1"},
        {OwnerKind::Class, "UPDATE tblClass SET keywordID = 7 WHERE classID=1",
         "UPDATE tblClass SET keywordID = null WHERE classID = 1"},
        {OwnerKind::Procedure, "UPDATE tblCode SET keywordID = 7 WHERE codeID=1",
         "UPDATE tblCode SET keywordID = null WHERE codeID = 1"},
    };
    for (const auto& test : cases) {
        const auto stored = [&] {
            return test.kind == OwnerKind::Application ? KeywordIDByAppID(db_, 1)
                   : test.kind == OwnerKind::Class     ? KeywordIDByClassID(db_, 1)
                                                       : KeywordIDByCodeID(db_, 1);
        };
        SetOwnerKeyword(db_, {test.kind, 1}, 7);
        EXPECT_EQ(log_.Take(), Statements{test.set});
        EXPECT_EQ(stored(), 7);
        ClearOwnerKeyword(db_, {test.kind, 1});
        EXPECT_EQ(log_.Take(), Statements{test.clear});
        EXPECT_EQ(stored(), 0);
    }
}

TEST_F(KeywordRowsTest, LinkWordsWithTheRowsThatExistAndWithNewOnes) {
    EXPECT_EQ(AddSearchWord(db_, "grid"), 1);
    log_.Take();
    const std::string_view words[] = {"Grid", "", "don't", "DON'T"};
    LinkKeywordSearchWords(db_, 5, words);
    EXPECT_EQ(log_.Take(), (Statements{"INSERT INTO tblKeyword_link_searchWord VALUES(5, 1);",
                                       "SELECT max(searchWordID) FROM tblSearchWord",
                                       "INSERT INTO tblSearchWord VALUES(2, 'don''t');",
                                       "INSERT INTO tblKeyword_link_searchWord VALUES(5, 2);"}))
        << "the empty word is passed over, and the last one is linked already";
    EXPECT_EQ(Word(2), "don't");
    EXPECT_EQ(FindSearchWord(db_, "Don't"), 2);
    EXPECT_EQ(FindSearchWord(db_, "don''t"), 0);
}

TEST_F(KeywordRowsTest, OfSearchWordsAreChangedWithTheseStatements) {
    AddSearchWord(db_, "gird");
    AddSearchWord(db_, "frame");
    LinkSearchWord(db_, 5, 1);
    LinkSearchWord(db_, 6, 1);
    log_.Take();

    RenameSearchWord(db_, 1, "it's");
    EXPECT_EQ(log_.Take(), (Statements{"UPDATE tblSearchWord SET searchWord = 'it''s' WHERE "
                                       "searchWordID = 1;"}));
    EXPECT_EQ(Word(1), "it's");
    RelinkSearchWord(db_, 5, {.oldSearchWordID = 1, .newSearchWordID = 2});
    EXPECT_EQ(log_.Take(), (Statements{"UPDATE tblKeyword_link_searchWord SET searchWordID = 2 "
                                       "WHERE searchWordID = 1 AND keywordID = 5;"}));
    EXPECT_NE(SearchWordIDByKeywordIDSearchWordID(db_, 5, 2), 0);
    EXPECT_NE(SearchWordIDByKeywordIDSearchWordID(db_, 6, 1), 0) << "another keyword's link stays";
    DeleteSearchWord(db_, 1);
    EXPECT_EQ(log_.Take(), Statements{"DELETE FROM tblSearchWord WHERE searchWordID = 1"});
    EXPECT_EQ(FindSearchWord(db_, "it's"), 0);
    EXPECT_EQ(SearchWordIDByKeywordIDSearchWordID(db_, 6, 1), 0) << "its links go with it";
}

TEST_F(KeywordRowsTest, LinkAKeywordOnceToAWordThatTakesAnothersPlace) {
    const std::string_view linked[] = {"gird", "grid"};
    LinkKeywordSearchWords(db_, 5, linked);
    LinkSearchWord(db_, 6, 1);
    RelinkSearchWord(db_, 5, {.oldSearchWordID = 2, .newSearchWordID = 2});
    EXPECT_EQ(Count("tblKeyword_link_searchWord WHERE keywordID = 5"), 2);
    RelinkSearchWord(db_, 5, {.oldSearchWordID = 1, .newSearchWordID = 2});
    EXPECT_EQ(Count("tblKeyword_link_searchWord WHERE keywordID = 5 AND searchWordID = 2"), 1);
    EXPECT_EQ(Count("tblKeyword_link_searchWord"), 2) << "keyword 6 keeps its link";
}

TEST_F(KeywordRowsTest, BecomeOneSearchWordWhenOneIsRenamedToAnother) {
    const std::string_view both[] = {"gird", "grid"};
    LinkKeywordSearchWords(db_, 5, both);
    LinkSearchWord(db_, 6, 1);
    RenameSearchWord(db_, 1, "GIRD");
    EXPECT_EQ(Word(1), "GIRD") << "letter case alone is no other word";
    RenameSearchWord(db_, 1, "Grid");
    EXPECT_EQ(Word(2), "grid");
    EXPECT_EQ(Count("tblSearchWord"), 1);
    EXPECT_EQ(Count("tblKeyword_link_searchWord WHERE searchWordID = 2"), 2);
    EXPECT_EQ(Count("tblKeyword_link_searchWord"), 2);
}

TEST_F(KeywordRowsTest, OfSearchWordsAreDeletedByTheirTextTogetherWithTheirLinks) {
    const std::string_view linked[] = {"Grid", "don't", "form"};
    LinkKeywordSearchWords(db_, 5, linked);
    log_.Take();
    const std::string words[] = {"grid", "don't", "other"};
    DeleteSearchWords(db_, words);
    EXPECT_EQ(log_.Take(),
              (Statements{"DELETE kls.* FROM tblKeyword_link_searchWord kls INNER JOIN "
                          "tblSearchWord sw ON kls.searchWordID = sw.searchWordID WHERE "
                          "sw.searchWord IN ('grid','don''t','other')",
                          "DELETE FROM tblSearchWord WHERE searchWord IN "
                          "('grid','don''t','other')"}));
    EXPECT_EQ(Count("tblSearchWord"), 1);
    EXPECT_EQ(Count("tblKeyword_link_searchWord"), 1);
    EXPECT_NE(SearchWordIDByKeywordIDSearchWordID(db_, 5, FindSearchWord(db_, "form")), 0);
}

TEST_F(KeywordRowsTest, OfNoiseWordsAreWrittenWithTheseStatements) {
    const std::string words[] = {"THE", "o'clock"};
    AddNoiseWordRows(db_, words);
    EXPECT_EQ(log_.Take(),
              (Statements{"SELECT * FROM tblCommonWord WHERE commonWord='THE'",
                          "SELECT * FROM tblCommonWord WHERE commonWord='o''clock'",
                          "INSERT INTO tblCommonWord (commonWord) VALUES ('o''clock')"}));
    DeleteNoiseWordRow(db_, "O'Clock");
    EXPECT_EQ(log_.Take(), Statements{"DELETE FROM tblCommonWord WHERE CommonWord = 'O''Clock';"});
    EXPECT_EQ(Count("tblCommonWord WHERE commonWord = 'o''clock'"), 0);
}

TEST_F(KeywordRowsTest, AreCutToTheSizesOfTheirColumns) {
    const std::string forty9(49, 'x');
    const struct {
        std::string word;
        std::string stored;
    } cases[] = {
        {forty9 + "yz", forty9 + "y"},
        {forty9 + "'t", forty9 + "'"},
        {"a" + forty9 + "''", "a" + forty9},
        {forty9 + "\xC3\xA9\xC3\xA9", forty9 + "\xC3\xA9"},
        {std::string(48, 'z') + "''t", std::string(48, 'z') + "''"},
    };
    for (const auto& test : cases) {
        const std::int32_t searchWordID = AddSearchWord(db_, test.word);
        EXPECT_EQ(Word(searchWordID), test.stored);
        EXPECT_EQ(FindSearchWord(db_, test.word), searchWordID);
        DeleteSearchWords(db_, std::span(&test.word, 1));
        EXPECT_EQ(FindSearchWord(db_, test.word), 0);
    }
    const std::string noiseWords[] = {std::string(254, 'x') + "'t"};
    AddNoiseWordRows(db_, noiseWords);
    EXPECT_EQ(Count("tblCommonWord WHERE commonWord = '" + std::string(254, 'x') + "'''"), 1);
}

TEST_F(KeywordRowsTest, AreNeverEmptySearchWords) {
    AddSearchWord(db_, "grid");
    log_.Take();
    EXPECT_EQ(AddSearchWord(db_, ""), 0);
    EXPECT_NE(TakeBox().text.find("QRT Error Code: 10937"), std::string::npos);
    RenameSearchWord(db_, 1, "");
    EXPECT_NE(TakeBox().text.find("QRT Error Code: 10939"), std::string::npos);
    EXPECT_EQ(log_.Take(), Statements{}) << "nothing is written";
}

TEST_F(KeywordRowsTest, ListEveryKeywordStringWithItsSeparator) {
    AddKeyword(db_, "a;b", 3);
    AddKeyword(db_, "c", 99);
    Recordset row = KeywordsWithSeparators(db_);
    ASSERT_EQ(row.RowCount(), 2U);
    EXPECT_EQ(row["keyword"].Text() + row["separator"].Text(), "a;b;");
    row.MoveNext();
    EXPECT_EQ(row["separatorID"].Long(), 99);
    EXPECT_TRUE(row["separator"].IsNull());
}

}  // namespace
}  // namespace snippetarium::test
