#include <gtest/gtest.h>

#include <algorithm>

#include "tests/store/delivered_catalogue.h"

namespace snippetarium::test {
namespace {

using Rows = std::vector<std::string>;

class QueryRows : public ::testing::Test {
  protected:
    QueryRows() {
        catalogue_.Fill(
            "INSERT INTO tblApplication(appID, appName, appPath) VALUES (2, 'Grid', "
            "'C:\\src\\grid'),"
            "    (3, 'alpha', NULL), (4, 'Empty', 'C:\\src');"
            "INSERT INTO tblClass(classID, className, appID, languageID, classPathInApp) VALUES"
            "    (10, 'Form1', 2, 1, 'sub\\Form1.frm'), (11, 'Form1', 2, 1, NULL),"
            "    (12, 'Form1', 2, 4, ''), (13, 'Cells', 2, 99, 'Cells.cls'), (14, 'Form1', 3, 1, "
            "NULL);"
            "INSERT INTO tblCode(codeID, codeName, code, codeComment, classID) VALUES"
            "    (20, 'Paint', 'p', 'c1', 10), (21, 'Draw', 'd', NULL, 10), (22, 'draw', 'e', "
            "NULL, 11),"
            "    (23, 'Fill', 'f', NULL, 13);");
    }

    Rows Read(std::string_view query, std::vector<QueryValue> values = {}) {
        return catalogue_.Rows(query, std::move(values));
    }

    DeliveredCatalogue catalogue_;
};

TEST_F(QueryRows, OfTheTreeAreSortedByNameAndCounted) {
    EXPECT_EQ(Read("qryAppWithClassCount"), (Rows{"3|alpha|1", "4|Empty|0", "2|Grid|4"}));
    EXPECT_EQ(Read("qryClassWithCodeCountByAppID", {2}),
              (Rows{"13|Cells|1", "10|Form1|2", "11|Form1|1", "12|Form1|0"}));
    EXPECT_EQ(Read("qryCodeIDCodeNameByClassID", {10}), (Rows{"21|Draw", "20|Paint"}));
    EXPECT_EQ(Read("qryCountCodeByAppID", {2}), Rows{"4"});
    EXPECT_EQ(Read("qryCountCodeByAppID", {4}), Rows{"0"});
}

TEST_F(QueryRows, OfTheUndefinedApplicationCountWhatThereIsToShow) {
    EXPECT_EQ(Read("qryUnAppWithCount"), Rows{"1|Application Undefined|0"});
    catalogue_.Act("INSERT INTO tblCode(codeName, classID) VALUES ('loose', 1)");
    EXPECT_EQ(Read("qryUnAppWithCount"), Rows{"1|Application Undefined|1"});
    catalogue_.Act("UPDATE tblClass SET appID = 1 WHERE classID = 10");
    EXPECT_EQ(Read("qryUnAppWithCount"), Rows{"1|Application Undefined|2"})
        << "the procedures of other classes are a level further down";
}

TEST_F(QueryRows, OfApplicationsThatHoldAClassLeaveTheEmptyOut) {
    EXPECT_EQ(Read("qryAppRSContainClass"), (Rows{"3|alpha", "1|Application Undefined", "2|Grid"}));
    EXPECT_EQ(Read("qryAppNameRS").size(), 4U);
}

TEST_F(QueryRows, OfAProcedureListForItsClassComeInTheOrderOfTheFile) {
    EXPECT_EQ(Read("qryCodeNameCommentCodeByClassID", {10}),
              (Rows{"Paint|c1|p|20", "Draw|-|d|21"}));
    EXPECT_EQ(Read("qryCodeCommentCodeByClassID", {10}), (Rows{"c1|p|20", "-|d|21"}));
}

TEST_F(QueryRows, FindTakenNamesWhateverTheirLetterCaseInTheSameParentOnly) {
    EXPECT_EQ(Read("qryAppIDUsingAppName", {"GRID"}), Rows{"2|Grid"});
    EXPECT_EQ(Read("qryAppIDUsingAppName", {"Gri"}), Rows());
    EXPECT_EQ(Read("qryClassIDByClassNameAppID", {"cells", 2}), Rows{"13"});
    EXPECT_EQ(Read("qryClassIDByClassNameAppID", {"cells", 3}), Rows());
    EXPECT_EQ(Read("qryCodeIDByCodeNameClassID", {"DRAW", 10}), Rows{"21"});
    EXPECT_EQ(Read("qryCodeIDByCodeNameClassID", {"Draw", 13}), Rows());
    EXPECT_EQ(Read("qryCodeIDByName", {"draw"}), (Rows{"21|10", "22|11"}));
    EXPECT_EQ(Read("qryClassIDByAppNameClassName", {"alpha", "form1"}), Rows{"14|3"});
}

TEST_F(QueryRows, FindAClassByItsPathWhereNoneAndAnEmptyOneAreTheSame) {
    const std::string_view query = "qryClassIDByClassNameClassPathAppID";
    EXPECT_EQ(Read(query, {"Form1", "SUB\\form1.frm", 2}), Rows{"10"});
    EXPECT_EQ(Read(query, {"Form1", "", 2}), (Rows{"11", "12"}));
    EXPECT_EQ(Read(query, {"Form1", "Form1.frm", 2}), Rows());
    EXPECT_EQ(Read(query, {"Form1", "", 3}), Rows{"14"});
}

TEST_F(QueryRows, FindAnApplicationByItsWholePath) {
    EXPECT_EQ(Read("qryAppNameByAppPath", {"c:\\SRC\\grid"}), Rows{"Grid|2"});
    EXPECT_EQ(Read("qryAppNameByAppPath", {"C:\\src"}), Rows{"Empty|4"});
    EXPECT_EQ(Read("qryAppNameByAppPath", {"C:\\src\\"}), Rows());
    EXPECT_EQ(Read("qryAppNameByAppPath", {""}), Rows()) << "no path is nobody's path";
}

TEST_F(QueryRows, OfANameSearchHaveAPartOfTheNameOrAllOfIt) {
    catalogue_.Fill(
        "INSERT INTO tblCode(codeID, codeName, classID) VALUES (24, 'Draw(int[] x)', 10), (25, "
        "'Form_Load', 10)");
    const auto find = [this](const std::string& name) {
        Rows codeIDs;
        for (Recordset row = catalogue_.Run("qryCodeClassAppRSByName", {name}); !row.EndOfFile();
             row.MoveNext())
            codeIDs.push_back(row["codeID"].Text());
        std::ranges::sort(codeIDs);
        return codeIDs;
    };
    EXPECT_EQ(find("raw"), (Rows{"21", "22", "24"}));
    EXPECT_EQ(find("Form_"), Rows{"25"});
    EXPECT_EQ(find("draw(int[] X)"), Rows{"24"})
        << "its brackets would be a set of characters in a pattern";
    EXPECT_EQ(find("it's"), Rows());
}

TEST_F(QueryRows, OfANameAndASearchWordAreOnceEach) {
    catalogue_.Fill(
        "INSERT INTO tblKeyword VALUES (5, 'grid view', 1);"
        "INSERT INTO tblSearchWord VALUES (1, 'grid'), (2, 'view');"
        "INSERT INTO tblKeyword_link_searchWord VALUES (5, 1), (5, 1), (5, 2);"
        "UPDATE tblCode SET keywordID = 5 WHERE codeID IN (20, 21);");
    const auto count = [this](const std::string& name, const std::string& word) {
        return Read("qryCodeClassAppRSWithSearchWordCodeName", {name, word}).size();
    };
    EXPECT_EQ(count("DRAW", "Grid"), 1U);
    EXPECT_EQ(count("draw", "gri"), 0U);
    EXPECT_EQ(count("Dra", "grid"), 0U) << "the name is the whole name";
}

TEST_F(QueryRows, OfAClassOutliveItsLanguage) {
    EXPECT_EQ(Read("qryClassLanguageAppByClassID", {13}),
              Rows{"13|Cells|Cells.cls|-|-|-|99|-|2|Grid"});
    EXPECT_EQ(Read("qryLanguageByClassID", {13}), Rows());
    EXPECT_EQ(Read("qryLanguageIDByClassID", {13}), Rows{"99"});
}

TEST_F(QueryRows, OfAProcedureHaveItsOwnLanguageNotItsClasss) {
    catalogue_.Act("INSERT INTO tblCode_Link_Language VALUES (20, 7)");
    EXPECT_EQ(Read("qryCodeClassAppLanRSByCodeID", {20}),
              Rows{"20|Paint|p|c1|-|10|Form1|2|Grid|7|JavaScript"});
    EXPECT_EQ(Read("qryCodeClassAppLanRSByCodeID", {21}),
              Rows{"21|Draw|d|-|-|10|Form1|2|Grid|-|-"});
    EXPECT_EQ(Read("qryLanguageIDByCodeID", {20}), Rows{"7"});
    EXPECT_EQ(Read("qryLanguageByCodeID", {21}), Rows());
}

TEST_F(QueryRows, OfAnApplicationsLanguagesNameEachOnce) {
    EXPECT_EQ(Read("qryLanguageRSByAppID", {2}), (Rows{"4|C++", "1|Visual Basic"}));
}

TEST_F(QueryRows, OfALanguageNameTheClassesAndProceduresThatUseIt) {
    catalogue_.Act("INSERT INTO tblCode_Link_Language VALUES (22, 4)");
    catalogue_.Act("INSERT INTO tblCode_Link_Language VALUES (999, 5)");
    EXPECT_EQ(Read("qryClassIDCodeIDRSByLanguage", {"c++"}), (Rows{"12|-", "11|22"}));
    EXPECT_EQ(Read("qryClassIDCodeIDRSByLanguage", {"C"}), Rows()) << "999 is nobody";
    EXPECT_EQ(Read("qryStatusRSByLanguage", {"JAVA"}), Rows{"1|2"});
}

TEST_F(QueryRows, OfAClassCopyPairProceduresByTheBytesOfTheirNames) {
    catalogue_.Fill(
        "INSERT INTO tblClass(classID, className, appID) VALUES (30, 'Old', 2), (31, 'New', 2);"
        "INSERT INTO tblCode(codeID, codeName, classID) VALUES (40, 'Get', 30), (41, 'get', 30),"
        "    (42, 'Same', 30), (43, 'Same', 30), (44, 'Gone', 30),"
        "    (50, 'Same', 31), (51, 'get', 31), (52, 'Get', 31), (53, 'Same', 31), (54, 'Own', "
        "31);");
    EXPECT_EQ(Read("qryOldNewCodeIDRSByClassID", {30, 31}),
              (Rows{"40|52", "41|51", "42|50", "43|53"}));
}

TEST_F(QueryRows, OfBookmarksFollowTheTreeAndForgetWhatIsGone) {
    catalogue_.Fill(
        "INSERT INTO tblFavorite VALUES (2, 10, 21), (3, 14, NULL), (2, 10, NULL),"
        "    (2, 10, 20), (2, 10, 999), (2, 999, NULL);");
    EXPECT_EQ(Read("qryFavorite"), (Rows{"3|alpha|14|Form1|-|-", "2|Grid|10|Form1|-|-",
                                         "2|Grid|10|Form1|21|Draw", "2|Grid|10|Form1|20|Paint"}));
}

TEST_F(QueryRows, OfAuthorsComeInTheOrderOfTheirLinksAndOfDatesInTheirOwn) {
    catalogue_.Fill(
        "INSERT INTO tblAuthor VALUES (1, 'Ann', '', 'Lee'), (2, 'Bo', 'M', 'Ray'), (3, 'ann', "
        "'X', "
        "'LEE');"
        "INSERT INTO tbl_Author_Link VALUES (20, 2, 3), (20, 1, 3), (20, 3, 2);"
        "INSERT INTO tblDate VALUES (1, '2002-05-05'), (2, '1999-12-31');"
        "INSERT INTO tbl_date_link VALUES (20, 1, 3), (20, 2, 3), (20, 1, 1);");
    EXPECT_EQ(Read("qryAuthorsRSByOwner", {20, 3}), (Rows{"2|Bo|M|Ray", "1|Ann||Lee"}));
    EXPECT_EQ(Read("qryDateRSByOwner", {20, 3}), (Rows{"1999-12-31|2", "2002-05-05|1"}));
    EXPECT_EQ(Read("qryDateRSByOwner", {20, 2}), Rows());
    EXPECT_EQ(Read("qryAuthorIDByName", {"Ann", "", "Lee"}), Rows{"1"});
    EXPECT_EQ(Read("qryAuthorIDByName", {"Ann", "Z", "Lee"}), Rows());
    EXPECT_EQ(Read("qryAuthorRSByName", {"ANN", "lee"}), (Rows{"1|Ann||Lee", "3|ann|X|LEE"}));
    EXPECT_EQ(Read("qryAuthorIDFromAuthorLink", {20, 3, 2}), Rows{"3"});
    EXPECT_EQ(Read("qryAuthorIDFromAuthorLink", {20, 3, 3}), Rows());
}

TEST_F(QueryRows, OfAKeywordHaveItsSeparatorAndSearchWords) {
    catalogue_.Fill(
        "INSERT INTO tblKeyword VALUES (5, 'grid, view', 2), (6, '7', 88);"
        "INSERT INTO tblSearchWord VALUES (1, 'view'), (2, 'grid'), (3, 'alone');"
        "INSERT INTO tblKeyword_link_searchWord VALUES (5, 1), (5, 2);"
        "UPDATE tblCode SET keywordID = 5 WHERE codeID = 20;"
        "UPDATE tblClass SET keywordID = 6 WHERE classID = 10;");
    EXPECT_EQ(Read("qryKeywordRSWithCodeID", {20}), Rows{"5|grid, view|2|,|Comma|view grid"});
    EXPECT_EQ(Read("qryKeywordRSWithClassID", {10}), Rows{"6|7|88|-|-|-"});
    EXPECT_EQ(Read("qryKeywordRSWithAppID", {2}), Rows());
    EXPECT_EQ(Read("qrySeparatorKeywordSearchWordsBySearchWords", {"GRID"}),
              Rows{",|grid, view|view grid|5|2"});
    EXPECT_EQ(Read("qryAllSearchWords"), (Rows{"3|alone", "2|grid", "1|view"}));
    EXPECT_EQ(Read("qryKeywordIDFromTblCodeByClassID", {10}), Rows{"5|20"});
}

TEST_F(QueryRows, OfTheDeletionCountsReachZeroWhenTheKeywordsAreGone) {
    catalogue_.Fill(
        "INSERT INTO tblKeyword VALUES (5, 'a b', 1), (6, 'c', 1);"
        "INSERT INTO tblSearchWord VALUES (1, 'a'), (2, 'b'), (3, 'c');"
        "INSERT INTO tblKeyword_link_searchWord VALUES (5, 1), (5, 2), (6, 3);"
        "UPDATE tblCode SET keywordID = 5 WHERE codeID = 20;"
        "UPDATE tblClass SET keywordID = 6 WHERE classID = 13;");
    EXPECT_EQ(Read("qryCountCodeKeywordLinksByAppID", {2}), Rows{"2"});
    EXPECT_EQ(Read("qryCountCodeKeywordsByAppID", {2}), Rows{"1"});
    EXPECT_EQ(Read("qryCountClassKeywordLinksByAppID", {2}), Rows{"1"});
    EXPECT_EQ(Read("qryCountClassKeywordsByAppID", {2}), Rows{"1"});
    EXPECT_EQ(Read("qryCountCodeKeywordLinksByClassID", {10}), Rows{"2"});
    EXPECT_EQ(Read("qryCountCodeKeywordsByClassID", {10}), Rows{"1"});
    EXPECT_EQ(Read("qryCountCodeKeywordsByClassID", {13}), Rows{"0"});
    // As in a file in which an owner still names a keyword that is gone.
    catalogue_.Fill("DROP TRIGGER trgKeywordLinksDeleted; DELETE FROM tblKeyword;");
    for (const std::string_view query :
         {"qryCountCodeKeywordLinksByAppID", "qryCountCodeKeywordsByAppID",
          "qryCountClassKeywordLinksByAppID", "qryCountClassKeywordsByAppID"}) {
        EXPECT_EQ(Read(query, {2}), Rows{"0"}) << query;
    }
}

TEST_F(QueryRows, OfALongNameAreFoundByItsFirst255Characters) {
    const std::string name(300, 'n');
    catalogue_.Act("INSERT INTO tblCode(codeID, codeName, classID) VALUES (60, '" +
                   name.substr(0, 255) + "', 10)");
    EXPECT_EQ(Read("qryCodeIDByCodeNameClassID", {name, 10}), Rows{"60"});
}

}  // namespace
}  // namespace snippetarium::test
