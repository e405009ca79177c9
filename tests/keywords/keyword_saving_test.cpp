#include "keywords/keyword_saving.h"

#include <string>
#include <vector>

#include "store/keyword_rows.h"
#include "store/reads_keywords.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/statement_log.h"

namespace snippetarium::test {
namespace {

class KeywordSavingTest : public OpenCatalogueFixture {
  protected:
    /// The search words that a keyword is linked to, "|" behind each, older ones first.
    std::string WordsOf(std::int32_t keywordID) {
        std::string words;
        for (Recordset row = db_.GetConnection().Execute(
                 "SELECT sw.searchWord FROM tblKeyword_link_searchWord kl INNER JOIN tblSearchWord "
                 "sw ON kl.searchWordID = sw.searchWordID WHERE kl.keywordID = " +
                 std::to_string(keywordID) + " ORDER BY sw.searchWordID");
             !row.EndOfFile(); row.MoveNext())
            words += row["searchWord"].Text() + "|";
        return words;
    }
    std::int32_t SearchWordCount() { return ScalarLong(db_, "SELECT count(*) FROM tblSearchWord"); }

    NoiseWords noise_ = LoadNoiseWords(db_);
};

TEST_F(KeywordSavingTest, StoresTheStringAsTypedAndLinksItsWords) {
    StatementLog log(db_);
    const std::int32_t keywordID = SaveKeyword(db_, noise_, "Don't, the 2nd; Form_Load", 2);
    EXPECT_EQ(log.Take(), (std::vector<std::string>{
                              "SELECT max(keywordID) FROM tblKeyword",
                              "INSERT INTO tblKeyword VALUES(1, 'Don''t, the 2nd; Form_Load', 2)",
                              "SELECT max(searchWordID) FROM tblSearchWord",
                              "INSERT INTO tblSearchWord VALUES(1, 'Don''t');",
                              "INSERT INTO tblKeyword_link_searchWord VALUES(1, 1);",
                              "SELECT max(searchWordID) FROM tblSearchWord",
                              "INSERT INTO tblSearchWord VALUES(2, 'Form');",
                              "INSERT INTO tblKeyword_link_searchWord VALUES(1, 2);",
                              "SELECT max(searchWordID) FROM tblSearchWord",
                              "INSERT INTO tblSearchWord VALUES(3, 'Load');",
                              "INSERT INTO tblKeyword_link_searchWord VALUES(1, 3);"}));
    const Recordset row = KeywordByID(db_, keywordID);
    EXPECT_EQ(row["keyword"].Text(), "Don't, the 2nd; Form_Load");
    EXPECT_EQ(row["separatorID"].Long(), 2);
    EXPECT_EQ(WordsOf(keywordID), "Don't|Form|Load|");
}

TEST_F(KeywordSavingTest, SharesTheRowsOfWordsThatAreThere) {
    const std::int32_t first = SaveKeyword(db_, noise_, "don't form", 1);
    const std::int32_t second = SaveKeyword(db_, noise_, "Form DON'T view", 1);
    EXPECT_EQ(SearchWordCount(), 3);
    EXPECT_EQ(WordsOf(first), "don't|form|");
    EXPECT_EQ(WordsOf(second), "don't|form|view|");
}

TEST_F(KeywordSavingTest, StoresAStringWithoutSearchWordsToo) {
    for (const std::string_view keyword : {"the and 12 3rd", "", "--"}) {
        const std::int32_t keywordID = SaveKeyword(db_, noise_, keyword, 1);
        EXPECT_EQ(KeywordByID(db_, keywordID)["keyword"].Text(), keyword);
        EXPECT_EQ(WordsOf(keywordID), "");
    }
    EXPECT_EQ(SearchWordCount(), 0);
}

TEST_F(KeywordSavingTest, StoresWordsOfAnyLanguageAndLength) {
    const std::string sixty = std::string(49, 'x') + "'" + std::string(10, 'y');
    std::string fifty;
    for (int i = 0; i < 50; ++i)
        fifty += "\u00E9";
    const std::string grid = "\u0421\u0435\u0442\u043A\u0430";
    const std::int32_t keywordID =
        SaveKeyword(db_, noise_, grid + " " + sixty + "," + fifty + "tail", 1);
    EXPECT_EQ(WordsOf(keywordID), grid + "|" + sixty.substr(0, 50) + "|" + fifty + "|");
    SaveKeyword(db_, noise_, sixty + "z " + fifty, 1);
    EXPECT_EQ(SearchWordCount(), 3);
    const std::int32_t twice = SaveKeyword(db_, noise_, sixty + "1 " + sixty + "2", 1);
    EXPECT_EQ(WordsOf(twice), sixty.substr(0, 50) + "|")
        << "two words that are one when cut are linked once";
}

TEST_F(KeywordSavingTest, DerivesAKeywordOfSearchWordsAlone) {
    const std::int32_t keywordID =
        SaveDerivedKeyword(db_, noise_, "Draws the 3 grids: isn't it? (\u00C9t\u00E9)");
    const Recordset row = KeywordByID(db_, keywordID);
    EXPECT_EQ(row["keyword"].Text(), "Draws grids isn't \u00C9t\u00E9");
    EXPECT_EQ(row["separatorID"].Long(), 1);
    EXPECT_EQ(WordsOf(keywordID), "Draws|grids|isn't|\u00C9t\u00E9|");
}

TEST_F(KeywordSavingTest, DerivesNothingFromATextWithoutVisibleSearchWords) {
    StatementLog log(db_);
    for (const std::string_view text : {"", "the 12th of", "-- ,", "\u00A0", "\x01"})
        EXPECT_EQ(SaveDerivedKeyword(db_, noise_, text), 0) << text;
    EXPECT_TRUE(log.Take().empty());
}

TEST_F(KeywordSavingTest, TellsAFailureOnceAndReturnsNoID) {
    CloseCatalogue(db_);
    EXPECT_EQ(SaveKeyword(db_, noise_, "grid form", 1), 0);
    TakeBox();
    EXPECT_EQ(SaveDerivedKeyword(db_, noise_, "grid form"), 0);
    TakeBox();
}

TEST_F(KeywordSavingTest, AsksForKeywordsByTheOwnersKind) {
    host_.messages.Expect(StandardAnswer::Yes);
    EXPECT_EQ(AskForKeywords(host_.messages, "class"), StandardAnswer::Yes);
    EXPECT_EQ(TakeBox(), (ShownBox{BoxKind::YesNo, "Snippetarium Question",
                                   "Keywords help to find this class easily.\r\n\r\nWould you like "
                                   "to add keywords to this class?"}));
}

TEST_F(KeywordSavingTest, RefusesAnEmptyWord) {
    for (const std::string_view entry : {"", "   ", "\t", "\r\n "}) {
        EXPECT_FALSE(AcceptNewWord(host_.messages, entry));
        EXPECT_EQ(TakeBox(), (ShownBox{BoxKind::Information, "Snippetarium Information",
                                       "Please enter a new word."}));
    }
    EXPECT_TRUE(AcceptNewWord(host_.messages, " grid"));
}

}  // namespace
}  // namespace snippetarium::test
