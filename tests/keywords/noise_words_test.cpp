#include "keywords/noise_words.h"

#include <string>
#include <vector>

#include "keywords/keyword_saving.h"
#include "store/keyword_rows.h"
#include "store/reads_keywords.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/statement_log.h"

namespace snippetarium::test {
namespace {

TEST(NoiseWords, AreWhatTheTextHoldsBetweenBlanks) {
    const std::vector<std::string> words = {"The", "on top", "\u00C9T\u00C9", "don't", "a"};
    const NoiseWords noise(words);
    EXPECT_EQ(noise.Text(), " the on top \u00E9t\u00E9 don't a ");
    for (const std::string_view word :
         {"the", "THE", "on", "Top", "on top", "the on", "\u00E9t\u00E9", "Don't", "A"})
        EXPECT_TRUE(noise.IsNoiseWord(word)) << word;
    for (const std::string_view word : {"", "th", "hello", "top on", "on  top", "don", "'", " "})
        EXPECT_FALSE(noise.IsNoiseWord(word)) << word;
    EXPECT_FALSE(NoiseWords().IsNoiseWord(""));
    EXPECT_FALSE(NoiseWords().IsNoiseWord("the"));
}

TEST(NoiseWords, OfOddRowsStillFollowTheText) {
    const std::vector<std::string> words = {" a", "", "b  c"};
    const NoiseWords noise(words);
    for (const std::string_view word : {"", " ", "a", "b", "b ", "b  c", "c", "  a", "d", "a b"}) {
        const std::string sought = " " + std::string(word) + " ";
        EXPECT_EQ(noise.IsNoiseWord(word), noise.Text().find(sought) != std::string::npos) << word;
    }
}

class NoiseWordsTest : public OpenCatalogueFixture {
  protected:
    std::string Keyword(std::int32_t keywordID) {
        return KeywordByID(db_, keywordID)["keyword"].Text();
    }

    NoiseWords noise_ = LoadNoiseWords(db_);
};

TEST_F(NoiseWordsTest, AreLoadedFromTheCatalogue) {
    EXPECT_TRUE(noise_.IsNoiseWord("Because"));
    EXPECT_FALSE(noise_.IsNoiseWord("grid"));
    ExecuteSQL(db_, "INSERT INTO tblCommonWord VALUES ('GRID')");
    EXPECT_TRUE(LoadNoiseWords(db_).IsNoiseWord("grid")) << "stored in capitals";
}

TEST_F(NoiseWordsTest, AreNoneWhenTheyCannotBeLoaded) {
    CloseCatalogue(db_);
    EXPECT_FALSE(LoadNoiseWords(db_).IsNoiseWord("because"));
    TakeBox();
}

TEST_F(NoiseWordsTest, LeaveSearchWordsLinksAndKeywordStringsWhenTheyAreAdded) {
    const std::int32_t first = SaveKeyword(db_, noise_, "Grid, don't, the form", 2);
    const std::int32_t second = SaveKeyword(db_, noise_, "form grid-grid Gridline", 1);
    const std::int32_t third = SaveKeyword(db_, noise_, "  form; view", 3);

    StatementLog log(db_);
    EXPECT_EQ(AddNoiseWord(db_, noise_, "grid; Don't (GRID)"), 2U);
    EXPECT_EQ(
        log.Take(),
        (std::vector<std::string>{
            "SELECT * FROM tblCommonWord WHERE commonWord='grid'",
            "INSERT INTO tblCommonWord (commonWord) VALUES ('grid')",
            "SELECT * FROM tblCommonWord WHERE commonWord='Don''t'",
            "INSERT INTO tblCommonWord (commonWord) VALUES ('Don''t')",
            "DELETE kls.* FROM tblKeyword_link_searchWord kls INNER JOIN tblSearchWord sw ON "
            "kls.searchWordID = sw.searchWordID WHERE sw.searchWord IN ('grid','Don''t')",
            "DELETE FROM tblSearchWord WHERE searchWord IN ('grid','Don''t')",
            "SELECT k.keywordID, k.keyword, k.separatorID, s.separator FROM tblKeyword k LEFT JOIN "
            "tblSeparator s ON k.separatorID = s.separatorID",
            "UPDATE tblKeyword SET keyword = 'the form', separatorID = 2 WHERE keywordID = 1;",
            "UPDATE tblKeyword SET keyword = 'form -Gridline', separatorID = 1 WHERE "
            "keywordID = 2;"}))
        << "a string without the words is not written";

    EXPECT_EQ(Keyword(first), "the form");
    EXPECT_EQ(Keyword(second), "form -Gridline");
    EXPECT_EQ(Keyword(third), "  form; view");
    EXPECT_EQ(FindSearchWord(db_, "grid"), 0);
    EXPECT_EQ(FindSearchWord(db_, "don't"), 0);
    EXPECT_NE(FindSearchWord(db_, "gridline"), 0);
    EXPECT_EQ(ScalarLong(db_, "SELECT count(*) FROM tblKeyword_link_searchWord"), 5);
    EXPECT_TRUE(noise_.IsNoiseWord("GRID"));
    EXPECT_TRUE(noise_.IsNoiseWord("don't"));
}

TEST_F(NoiseWordsTest, OfPunctuationAloneChangeNothing) {
    StatementLog log(db_);
    for (const std::string_view entry : {"", "  ", "--", "',' "})
        EXPECT_EQ(AddNoiseWord(db_, noise_, entry), 0U) << entry;
    EXPECT_TRUE(log.Take().empty());
}

TEST_F(NoiseWordsTest, ThatCouldNotBeTakenOutOfAStringAreWhenTheyAreAddedAgain) {
    const std::int32_t keywordID = SaveKeyword(db_, noise_, "grid form", 1);
    db_.GetConnection().RunScript(
        "CREATE TRIGGER refuse BEFORE UPDATE ON tblKeyword BEGIN SELECT RAISE(ABORT, 'no'); END;");
    EXPECT_EQ(AddNoiseWord(db_, noise_, "grid"), 0U);
    TakeBox();
    EXPECT_TRUE(noise_.IsNoiseWord("grid")) << "it has its row";
    EXPECT_EQ(Keyword(keywordID), "grid form");
    db_.GetConnection().RunScript("DROP TRIGGER refuse;");
    EXPECT_EQ(AddNoiseWord(db_, noise_, "grid"), 1U);
    EXPECT_EQ(Keyword(keywordID), "form");
}

TEST_F(NoiseWordsTest, ThatAreThereAlreadyGetNoSecondRow) {
    EXPECT_EQ(AddNoiseWord(db_, noise_, "The"), 1U);
    EXPECT_EQ(ScalarLong(db_, "SELECT count(*) FROM tblCommonWord WHERE commonWord = 'the'"), 1);
}

TEST_F(NoiseWordsTest, AreSearchWordsAgainForWhatIsSavedAfterTheyWereDeleted) {
    AddNoiseWord(db_, noise_, "o'clock");
    const std::int32_t before = SaveKeyword(db_, noise_, "o'clock tower", 1);
    StatementLog log(db_);
    DeleteNoiseWord(db_, noise_, "o'clock");
    EXPECT_EQ(
        log.Take(),
        (std::vector<std::string>{"DELETE FROM tblCommonWord WHERE CommonWord = 'o''clock';"}));
    EXPECT_FALSE(noise_.IsNoiseWord("o'clock"));
    EXPECT_EQ(FindSearchWord(db_, "o'clock"), 0) << "older strings keep lacking it";
    const std::int32_t after = SaveKeyword(db_, noise_, "o'clock", 1);
    const std::int32_t word = FindSearchWord(db_, "o'clock");
    EXPECT_EQ(SearchWordIDByKeywordIDSearchWordID(db_, before, word), 0);
    EXPECT_EQ(SearchWordIDByKeywordIDSearchWordID(db_, after, word), word);
}

}  // namespace
}  // namespace snippetarium::test
