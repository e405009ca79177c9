#include <gtest/gtest.h>

#include <algorithm>

#include "tests/store/delivered_catalogue.h"

namespace snippetarium::test {
namespace {

using Rows = std::vector<std::string>;

// Languages: 1 an ordinary one, 6 and 9 pages, 7 and 8 scripts.
class SearchQueries : public ::testing::Test {
  protected:
    SearchQueries() {
        catalogue_.Fill(
            "INSERT INTO tblApplication(appID, appName, appComment) VALUES (2, 'A', 'has a "
            "needle');"
            "INSERT INTO tblClass(classID, className, appID, languageID, classComment) VALUES"
            "    (10, 'Form', 2, 1, 'A Needle'), (16, 'page', 2, 6, 'needles'),"
            "    (17, 'script', 2, 7, NULL), (18, 'vb', 2, 8, 'nothing');"
            "INSERT INTO tblCode(codeID, codeName, codeComment, classID) VALUES"
            "    (20, 'Draw(int[] x)', 'the NEEDLE', 10), (21, 'Redraw', 'no', 10),"
            "    (22, 'Form_Load', NULL, 10),"
            "    (30, 'draw_linked', 'needle', 16), (31, 'draw_bare', 'needle', 16),"
            "    (40, 'Draw', 'needle', 17), (41, 'drawVB', 'needle', 18);"
            "INSERT INTO tblCode_Link_Language VALUES (20, 1), (30, 7), (40, 7), (41, 7);");
    }

    /// The IDs of the topics found, classes as "c10", procedures as "20", sorted.
    Rows Find(std::string_view query, std::vector<QueryValue> values) {
        Rows found;
        for (Recordset row = catalogue_.Run(query, std::move(values)); !row.EndOfFile();
             row.MoveNext()) {
            const bool isClass = row["codeID"].Long() == 0;
            EXPECT_EQ(isClass, row["codeName"].Text() == "N/A");
            EXPECT_EQ(row["appName"].Text(), "A");
            EXPECT_EQ(row["appID"].Long(), 2);
            found.push_back(isClass ? "c" + row["classID"].Text() : row["codeID"].Text());
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    DeliveredCatalogue catalogue_;
};

TEST_F(SearchQueries, FindCommentsOfProceduresAndClassesButNotOfApplications) {
    EXPECT_EQ(Find("qryCodeClassAppRSByComment", {"%needle%"}),
              (Rows{"20", "30", "31", "40", "41", "c10", "c16"}));
    EXPECT_EQ(Find("qryCodeClassAppRSByComment", {"needle"}), (Rows{"30", "31", "40", "41"}));
}

TEST_F(SearchQueries, FindOnPagesOnlyProceduresWithALanguageOfTheirOwn) {
    EXPECT_EQ(Find("qryCodeClassAppRSByCommentForASP", {"%needle%", 6}), (Rows{"30", "c16"}));
    EXPECT_EQ(Find("qryCodeClassAppRSByCommentForASP", {"%needle%", 9}), Rows());
    EXPECT_EQ(Find("qryCodeClassAppRSByNameLanguage", {"draw", 6}), Rows{"30"});
}

TEST_F(SearchQueries, FindScriptsByTheirOwnOrTheirClasssLanguageOnce) {
    EXPECT_EQ(Find("qryCodeClassAppRSByCommentForScript", {"%needle%", 7}),
              (Rows{"30", "40", "41"}));
    EXPECT_EQ(Find("qryCodeClassAppRSByCommentForScript", {"%nothing%", 8}), Rows{"c18"});
    EXPECT_EQ(Find("qryCodeClassAppRSByNameLanguage", {"draw", 7}), (Rows{"30", "40", "41"}));
    EXPECT_EQ(Find("qryCodeClassAppRSByNameLanguage", {"draw", 8}), Rows{"41"});
}

TEST_F(SearchQueries, FindOtherLanguagesByTheClassAlone) {
    EXPECT_EQ(Find("qryCodeClassAppRSByCommentForOthers", {"%needle%", 1}), (Rows{"20", "c10"}));
    EXPECT_EQ(Find("qryCodeClassAppRSByCommentForOthers", {"%needle%", 2}), Rows());
    EXPECT_EQ(Find("qryCodeClassAppRSByNameLanguage", {"draw", 1}), (Rows{"20", "21"}));
}

TEST_F(SearchQueries, FindAPartOfAProceduresNameOrAllOfIt) {
    EXPECT_EQ(Find("qryCodeClassAppRSByName", {"draw"}),
              (Rows{"20", "21", "30", "31", "40", "41"}));
    EXPECT_EQ(Find("qryCodeClassAppRSByName", {"Form_"}), Rows{"22"});
    EXPECT_EQ(Find("qryCodeClassAppRSByName", {"draw(int[] X)"}), Rows{"20"})
        << "its brackets would be a set of characters in a pattern";
    EXPECT_EQ(Find("qryCodeClassAppRSByName", {"it's"}), Rows());
}

TEST_F(SearchQueries, FindProceduresOfANameThatCarryASearchWordOnce) {
    catalogue_.Fill(
        "INSERT INTO tblKeyword VALUES (5, 'grid view', 1);"
        "INSERT INTO tblSearchWord VALUES (1, 'grid'), (2, 'view');"
        "INSERT INTO tblKeyword_link_searchWord VALUES (5, 1), (5, 1), (5, 2);"
        "UPDATE tblCode SET keywordID = 5 WHERE codeID IN (21, 40);");
    const std::string_view query = "qryCodeClassAppRSWithSearchWordCodeName";
    EXPECT_EQ(Find(query, {"DRAW", "Grid"}), Rows{"40"});
    EXPECT_EQ(Find(query, {"draw", "gri"}), Rows());
    EXPECT_EQ(Find(query, {"Red", "grid"}), Rows()) << "the name is the whole name";
}

}  // namespace
}  // namespace snippetarium::test
