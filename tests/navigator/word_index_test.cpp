#include "navigator/word_index.h"

#include <string>

#include "navigator/bookmark_list.h"
#include "tests/search/search_fixture.h"

namespace snippetarium::test {
namespace {

class WordIndexTest : public SearchFixture {
  protected:
    WordIndexTest() {
        db_.GetConnection().RunScript(
            "DELETE FROM tblSearchWord WHERE searchWordID > 9;"
            "INSERT INTO tblSearchWord VALUES (100, 'Äpfel'), (101, 'alone'), (102, 'Wort');");
        index_.Load();
    }

    WordIndex index_{db_};
};

TEST_F(WordIndexTest, JumpsToTheFirstWordThatBeginsAsWasTyped) {
    const struct {
        const char* typed;
        const char* word;
    } cases[] = {{"a", "alone"},   {"ALO", "alone"},   {"alp", "word1"},
                 {"wor", "word1"}, {"WORD5", "word5"}, {"wort", "Wort"},
                 {"äp", "Äpfel"},  {"zzz", "Äpfel"},   {"語", "Äpfel"}};
    for (const auto& test : cases) {
        const auto row = index_.RowFor(test.typed);
        ASSERT_TRUE(row) << test.typed;
        EXPECT_EQ(index_.WordAt(*row), test.word) << test.typed;
    }
    EXPECT_EQ(index_.RowFor(""), std::nullopt);
    EXPECT_EQ(index_.RowOf("alon"), std::nullopt);
    EXPECT_EQ(WordIndex(db_).RowFor("a"), std::nullopt);
}

TEST_F(WordIndexTest, ShowsOneTopicAtOnceAndListsSeveral) {
    db_.GetConnection().RunScript(
        "DELETE FROM tblKeyword_link_searchWord WHERE searchWordID IN (8, 9);"
        "INSERT INTO tblKeyword VALUES (900, 'x', 1);"
        "UPDATE tblClass SET keywordID = 900 WHERE classID = 4;"
        "INSERT INTO tblKeyword_link_searchWord VALUES (900, 8);");
    EXPECT_EQ(index_.OpenWord("word8"), WordTopics::One);
    EXPECT_EQ(index_.Topics().SelectedKey(), "c4");
    EXPECT_EQ(index_.OpenWord("word7"), WordTopics::Several);
    EXPECT_EQ(KeysOf(index_.Topics()).count("f6"), 1U);
    EXPECT_EQ(index_.OpenWord("word9"), WordTopics::None);
    EXPECT_EQ(TakeBox().text, "No topics found.");
}

TEST_F(WordIndexTest, DeletesAWordAfterAQuestion) {
    const std::size_t before = index_.Count();
    host_.messages.Expect(StandardAnswer::No);
    EXPECT_FALSE(index_.DeleteWord("word5"));
    host_.messages.Expect(StandardAnswer::Yes);
    EXPECT_TRUE(index_.DeleteWord("WORD5"));
    EXPECT_EQ(index_.Count(), before - 1);
    EXPECT_FALSE(index_.DeleteWord("word5"));
    EXPECT_TRUE(TakeBox().text.starts_with("Delete 'word5' from the index?"));
    TakeBox();
    index_.Load();
    EXPECT_EQ(index_.RowOf("word5"), std::nullopt);
    EXPECT_FALSE(RecordExists(
        db_, "SELECT keywordID FROM tblKeyword_link_searchWord WHERE searchWordID = 5"));
}

TEST_F(WordIndexTest, StandsBesideTheBookmarks) {
    BookmarkList bookmarks(db_);
    bookmarks.Load();
    ASSERT_EQ(bookmarks.Entries().size(), 2U);
    EXPECT_EQ(bookmarks.Entries().at(0), (ListedBookmark{{2, 2}, "Grid0 - Paint 0"}));
    EXPECT_EQ(bookmarks.Entries().at(1), (ListedBookmark{{2, 2, 3}, "Draw3 - Grid0 - Paint 0"}));

    EXPECT_TRUE(bookmarks.Add({2, 3, 25}));
    EXPECT_EQ(bookmarks.RowOf({2, 3, 25}), 2U);
    const NodeIDs refused[] = {{2}, {2, 3}, {2, 3, 25}};
    for (const NodeIDs& node : refused) {
        EXPECT_FALSE(bookmarks.Add(node));
        EXPECT_FALSE(TakeBox().text.empty());
    }
    EXPECT_TRUE(bookmarks.Remove({2, 2, 3}));
    EXPECT_FALSE(bookmarks.Remove({2, 2, 3}));
    EXPECT_EQ(bookmarks.RowOf({2, 2, 3}), std::nullopt);

    // Its class moved to another application meanwhile; then it is deleted.
    const ListedBookmark shown = bookmarks.Entries().at(1);
    db_.GetConnection().RunScript(
        "INSERT INTO tblApplication(appID, appName) VALUES (8, 'Other');"
        "UPDATE tblClass SET appID = 8 WHERE classID = 3;");
    EXPECT_EQ(bookmarks.Display(shown), (NodeIDs{8, 3, 25}));
    ExecuteSQL(db_, "DELETE FROM tblCode WHERE codeID = 25");
    EXPECT_EQ(bookmarks.Display(shown), NodeIDs());
    EXPECT_EQ(TakeBox().text, "This Class or Code has been deleted.");
    EXPECT_EQ(bookmarks.Entries().size(), 1U);
}

}  // namespace
}  // namespace snippetarium::test
