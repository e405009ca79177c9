#include "store/bookmarks.h"

#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

using Bookmarks = WriteFixture;

WriteCase Bookmarking(std::string_view key, bool isAdded, Statements statements) {
    const auto run = [key, isAdded](Database& db) {
        EXPECT_EQ(AddBookmark(db, key), isAdded) << key;
    };
    return {key, run, std::move(statements)};
}

TEST_F(Bookmarks, AreAddedOnce) {
    // clang-format off
    ExpectStatements({
        Bookmarking("a12f34", true,
            {"SELECT classID FROM tblFavorite WHERE classID = 34",
             "INSERT INTO tblFavorite(appID, classID) VALUES(12, 34)"}),
        Bookmarking("a12f34", false,
            {"SELECT classID FROM tblFavorite WHERE classID = 34"}),
        Bookmarking("a12f34c56", true,
            {"SELECT codeID FROM tblFavorite WHERE codeID = 56",
             "INSERT INTO tblFavorite VALUES(12, 34, 56)"}),
        Bookmarking("a12f34c56", false,
            {"SELECT codeID FROM tblFavorite WHERE codeID = 56"}),
    });
    // clang-format on
    EXPECT_EQ(Select("SELECT * FROM tblFavorite"), (Rows{"12|34|-", "12|34|56"}));
}

TEST_F(Bookmarks, OfAClassWithABookmarkedProcedureAreNotAdded) {
    ASSERT_TRUE(AddBookmark(db_, "a12f34c56"));
    EXPECT_FALSE(AddBookmark(db_, "a12f34"));
    EXPECT_EQ(Select("SELECT * FROM tblFavorite"), Rows{"12|34|56"});
}

TEST_F(Bookmarks, AreNotMadeOfKeysThatNameNoClassOrProcedure) {
    for (const std::string_view key : {"", "a12", "ka12", "ka12f34", "a1f0", "a0f34", "f34", "c56",
                                       "a12f34c", "a12f34cx", "a12f99999999999", "a-1f34"}) {
        EXPECT_FALSE(AddBookmark(db_, key)) << key;
    }
    EXPECT_EQ(TakeStatements(), Statements());
}

}  // namespace
}  // namespace snippetarium::test
