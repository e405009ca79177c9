#include "store/author_links.h"

#include "store/reads_authors_dates.h"
#include "support/arrays.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

constexpr Owner kApplication{OwnerKind::Application, 7};
constexpr Owner kClass{OwnerKind::Class, 7};
constexpr Owner kProcedure{OwnerKind::Procedure, 7};

class AuthorLinks : public WriteFixture {
  protected:
    /// Ann (1), Bob (2) and Cid (3), in one row of names each.
    void AddThreeAuthors() {
        for (const std::string_view name : {"Ann", "Bob", "Cid"})
            FindOrAddAuthor(db_, {std::string(name), "", "Lee"});
        TakeStatements();
    }
    void Link(const Owner& owner, const std::vector<std::int32_t>& authorIDs) {
        LinkAuthors(db_, owner, authorIDs);
    }
    Rows Links() {
        return Select("SELECT ownerTableID, ownerID, authorID FROM tbl_Author_Link ORDER BY rowid");
    }
    Rows Authors() { return Select("SELECT authorID, authorFName FROM tblAuthor"); }
};

TEST_F(AuthorLinks, SendTheseStatements) {
    const auto linking = [](Owner owner, std::vector<std::int32_t> authorIDs) {
        return [=](Database& db) { LinkAuthors(db, owner, authorIDs); };
    };
    const std::vector<std::int32_t> empty = FreshIntegerArray();
    // clang-format off
    ExpectStatements({
        {"a new author", [](Database& db) { EXPECT_EQ(FindOrAddAuthor(db, {"Bob's", "", "O'Lee"}), 1); },
         {"SELECT max(authorID) FROM tblAuthor",
          "INSERT INTO tblAuthor VALUES (1, 'Bob''s', '', 'O''Lee')"}},
        {"a known author", [](Database& db) { EXPECT_EQ(FindOrAddAuthor(db, {"bob's", "", "O'LEE"}), 1); }, {}},
        {"another middle name", [](Database& db) { EXPECT_EQ(FindOrAddAuthor(db, {"Bob's", "X", "O'Lee"}), 2); },
         {"SELECT max(authorID) FROM tblAuthor",
          "INSERT INTO tblAuthor VALUES (2, 'Bob''s', 'X', 'O''Lee')"}},
        {"links", linking(kClass, {2, 1, 2}),
         {"INSERT INTO tbl_Author_Link Values(7, 2, 2)",
          "INSERT INTO tbl_Author_Link Values(7, 1, 2)"}},
        {"links that are there", linking(kClass, {1, 2}), {}},
        {"the same of another kind", linking(kProcedure, {1}),
         {"INSERT INTO tbl_Author_Link Values(7, 1, 3)"}},
        {"no links", linking(kClass, empty), {}},
        {"a link without a look", [](Database& db) { AddAuthorLink(db, kApplication, 2); },
         {"INSERT INTO tbl_Author_Link(ownerID, authorID, ownerTableID) VALUES(7, 2, 1);"}},
        {"another author", [](Database& db) { RelinkAuthor(db, kProcedure, 1, 2); },
         {"UPDATE tbl_Author_Link SET authorID = 2 Where ownerID = 7 AND authorID = 1 AND ownerTableID = 3;"}},
        {"another name", [](Database& db) { UpdateAuthorName(db, 1, {"Al's", "M", "O'Lee"}); },
         {"UPDATE tblAuthor SET authorFName = 'Al''s', authorMName = 'M', authorLName = 'O''Lee' "
          "WHERE authorID = 1;"}},
        {"unlinking", [](Database& db) { UnlinkAuthor(db, OwnerKind::Class, "6,7", 1); },
         {"DELETE FROM tbl_Author_Link WHERE ownerID IN (6,7) AND ownerTableID=2 AND authorID = 1"}},
        {"removal", [](Database& db) { RemoveAuthorLinks(db, OwnerKind::Procedure, "SELECT codeID FROM tblCode WHERE classID =4"); },
         {"INSERT INTO tblIDsToDelete SELECT authorID AS ID FROM tbl_Author_Link "
          "WHERE ownerID IN (SELECT codeID FROM tblCode WHERE classID =4) AND ownerTableID=3",
          "DELETE FROM tbl_Author_Link "
          "WHERE ownerID IN (SELECT codeID FROM tblCode WHERE classID =4) AND ownerTableID=3",
          "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT authorID FROM tbl_Author_Link)",
          "DELETE FROM tblAuthor WHERE authorID IN (SELECT authorID FROM tblIDsToDelete)",
          "DELETE FROM tblIDsToDelete"}},
    });
    // clang-format on
    EXPECT_EQ(Links(), (Rows{"2|7|2", "3|7|2", "1|7|2"}));
    EXPECT_EQ(Select("SELECT * FROM tblAuthor"), (Rows{"1|Al's|M|O'Lee", "2|Bob's|X|O'Lee"}))
        << "an author without links stays until a deletion";
}

TEST_F(AuthorLinks, StayOneForEachAuthorWhenOneTakesTheOthersPlace) {
    AddThreeAuthors();
    Link(kClass, {1, 2});
    Link({OwnerKind::Class, 8}, {1});
    RelinkAuthor(db_, kClass, 1, 2);
    EXPECT_EQ(Links(), (Rows{"2|7|2", "2|8|1"}));
    RelinkAuthor(db_, kClass, 2, 2);
    EXPECT_EQ(Links(), (Rows{"2|7|2", "2|8|1"}));
    RelinkAuthor(db_, kClass, 3, 1);
    EXPECT_EQ(Links(), (Rows{"2|7|2", "2|8|1"})) << "there is no link to Cid to change";
}

TEST_F(AuthorLinks, AFailedInsertGivesNoAuthor) {
    AddThreeAuthors();
    RefuseInsertsInto("tblAuthor");
    EXPECT_EQ(FindOrAddAuthor(db_, {"Dan", "", ""}), 0);
    ExpectFailedStatement();
}

}  // namespace
}  // namespace snippetarium::test
