#include "editors/owner_details.h"

#include <gtest/gtest.h>

#include "editors/author_list.h"
#include "editors/author_text.h"
#include "tests/editors/editors_fixture.h"

namespace snippetarium::test {
namespace {

class OwnerDetailsTest : public EditorsFixture {
  protected:
    void Give(const Owner& owner, const DetailChanges& changes) {
        EXPECT_TRUE(CheckDetailChanges(db_, changes));
        SaveDetailChanges(db_, LoadNoiseWords(db_), owner, changes);
    }
    void GiveKeywords(const Owner& owner, const std::string& text) {
        Give(owner, {.keywords = KeywordEntry{text, 2}});
    }
    Rows SearchWords() {
        return Select("SELECT searchWord FROM tblSearchWord ORDER BY searchWord");
    }
    Rows Links() {
        return Select("SELECT keywordID, searchWordID FROM tblKeyword_link_searchWord");
    }

    static constexpr Owner kApplication{OwnerKind::Application, 2};
    static constexpr Owner kClass{OwnerKind::Class, 2};
    static constexpr Owner kProcedure{OwnerKind::Procedure, 1};
};

TEST_F(OwnerDetailsTest, KeepKeywordsThatOthersHaveAndNoOthers) {
    GiveKeywords(kApplication, "grid, draw");
    GiveKeywords(kClass, "draw, line");
    EXPECT_EQ(SearchWords(), (Rows{"draw", "grid", "line"}));

    GiveKeywords(kApplication, "paint");
    EXPECT_EQ(SearchWords(), (Rows{"draw", "line", "paint"}));
    EXPECT_EQ(Select("SELECT keyword FROM tblKeyword"), (Rows{"draw, line", "paint"}));

    // A keyword row of two owners, as a copy of a catalogue may have it.
    db_.GetConnection().RunScript(
        "UPDATE tblCode SET keywordID = (SELECT keywordID FROM tblClass WHERE classID = 2)");
    GiveKeywords(kClass, "  ");
    EXPECT_EQ(LoadOwnerDetails(db_, kClass).keywords, std::nullopt);
    EXPECT_EQ(LoadOwnerDetails(db_, kProcedure).keywords->entry.text, "draw, line");
    GiveKeywords(kProcedure, "");
    GiveKeywords(kApplication, "");
    EXPECT_EQ(SearchWords(), Rows{});
    EXPECT_EQ(Links(), Rows{});
    EXPECT_EQ(Select("SELECT keyword FROM tblKeyword"), Rows{});
}

TEST_F(OwnerDetailsTest, OfOneOwnerAreNotThoseOfAnotherWithItsNumber) {
    // An application, a class and a procedure of the same number.
    db_.GetConnection().RunScript("UPDATE tblCode SET codeID = 2");
    const Owner owners[] = {kApplication, kClass, {OwnerKind::Procedure, 2}};
    for (const Owner& owner : owners) {
        const std::string number = std::to_string(static_cast<int>(owner.kind));
        Give(owner, {.authors = std::vector{AuthorName{"", "", "Author" + number}},
                     .dates = std::vector<std::string>{"2001-03-1" + number},
                     .keywords = KeywordEntry{"word" + number, 1}});
    }
    for (const Owner& owner : owners) {
        const std::string number = std::to_string(static_cast<int>(owner.kind));
        const OwnerDetails details = LoadOwnerDetails(db_, owner);
        ASSERT_EQ(details.authors.size(), 1U);
        EXPECT_EQ(details.authors[0].name.last, "Author" + number);
        EXPECT_EQ(details.dates, std::vector<std::string>{"2001-03-1" + number});
        EXPECT_EQ(details.keywords->searchWords, "word" + number);
    }
}

TEST_F(OwnerDetailsTest, ChangeOnlyWhereTheyAreGiven) {
    Give(kClass, {.authors = std::vector{ParseAuthorText("Ann Lee"), ParseAuthorText("Bob Ray")},
                  .dates = std::vector<std::string>{"3/14/2001", "2001-03-14", "Nov 7, 1999"},
                  .keywords = KeywordEntry{"grid; line", 3}});
    Give(kClass, {});
    Give(kClass, {.authors = std::vector{ParseAuthorText("bob ray"), ParseAuthorText("Cy Fox")}});
    OwnerDetails details = LoadOwnerDetails(db_, kClass);
    ASSERT_EQ(details.authors.size(), 2U);
    EXPECT_EQ(AuthorText(details.authors[0].name), "Bob Ray");
    EXPECT_EQ(AuthorText(details.authors[1].name), "Cy Fox");
    EXPECT_EQ(details.dates, (std::vector<std::string>{"1999-11-07", "2001-03-14"}));
    EXPECT_EQ(details.keywords->separatorDescription, "Semicolon");

    Give(kClass, {.authors = std::vector<AuthorName>{}, .dates = std::vector<std::string>{}});
    details = LoadOwnerDetails(db_, kClass);
    EXPECT_TRUE(details.authors.empty());
    EXPECT_TRUE(details.dates.empty());
    EXPECT_EQ(details.keywords->entry.text, "grid; line");
}

TEST_F(OwnerDetailsTest, NameTwoAuthorsWhoBecomeOneOrStillTheTwo) {
    const AuthorName ann{"", "", "Ann"};
    const AuthorName bob{"", "", "Bob"};
    Give(kApplication, {.authors = std::vector{ann}});
    Give(kClass, {.authors = std::vector{ann, bob}});
    Give(kProcedure, {.authors = std::vector{bob}});
    const auto links = [&] {
        return Select(
            "SELECT au.authorLName, al.ownerTableID FROM tbl_Author_Link al INNER JOIN tblAuthor "
            "au ON al.authorID = au.authorID ORDER BY al.ownerTableID, au.authorLName");
    };
    const Rows apart = links();
    AuthorList list(db_, LoadOwnerDetails(db_, kApplication).authors);
    EXPECT_TRUE(list.Change(0, bob));
    db_.GetConnection().RunScript(
        "CREATE TRIGGER refuse BEFORE DELETE ON tblAuthor BEGIN SELECT "
        "RAISE(ABORT, 'refused'); END;");
    EXPECT_THROW(list.Store(), Error);
    EXPECT_EQ(links(), apart);
    db_.GetConnection().RunScript("DROP TRIGGER refuse");
    list.Store();
    EXPECT_EQ(links(), (Rows{"Bob|1", "Bob|2", "Bob|3"}));
    EXPECT_EQ(Select("SELECT authorLName FROM tblAuthor"), Rows{"Bob"});
    EXPECT_EQ(list.Authors()[0].authorID, LoadOwnerDetails(db_, kProcedure).authors[0].authorID);
}

TEST_F(OwnerDetailsTest, AreRefusedBeforeAnythingIsWritten) {
    const struct {
        DetailChanges changes;
        std::string_view message;
    } cases[] = {
        {{.authors = std::vector{AuthorName{}}}, "Please enter the author's name."},
        {{.authors = std::vector{AuthorName{"", "", std::string(51, 'x')}}},
         "A part of the author's name is too long (over 50 characters)."},
        {{.authors = std::vector{AuthorName{"", "", "a\nb"}}},
         "A name cannot hold a line break, a tab or another control character."},
        {{.dates = std::vector<std::string>{"2001-03-14", "2001-02-29"}},
         "'2001-02-29' is no date. Write it like 2001-03-14, 3/14/2001 or March 14, 2001."},
        {{.dates = std::vector<std::string>{""}},
         "'' is no date. Write it like 2001-03-14, 3/14/2001 or March 14, 2001."},
        {{.keywords = KeywordEntry{"grid", 6}}, "There is no such separator."},
    };
    for (const auto& [changes, message] : cases) {
        EXPECT_FALSE(CheckDetailChanges(db_, changes));
        EXPECT_EQ(TakeBox().text, message);
    }
    EXPECT_TRUE(CheckDetailChanges(
        db_, {.authors = std::vector{AuthorName{"", "", std::string(50, 'x')}}}));
}

}  // namespace
}  // namespace snippetarium::test
