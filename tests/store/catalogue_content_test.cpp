#include "store/catalogue_content.h"

#include <gtest/gtest.h>

#include <set>

#include "engine/sqlite_handle.h"
#include "tests/store/delivered_catalogue.h"

namespace snippetarium::test {
namespace {

using Rows = std::vector<std::string>;

/// Reads what the connection's guard keeps from statements: the engine's own tables.
std::string Internal(const DeliveredCatalogue& catalogue, std::string_view sql) {
    return ScalarText(OpenDatabase(catalogue.Path(), OpenFlag::Read).get(), sql);
}

TEST(Delivered, TablesHaveTheirColumnsInTheOrderInWhichInsertsFillThem) {
    const struct {
        std::string_view table;
        std::string_view columns;
    } cases[] = {
        // clang-format off
        {"tblApplication", "appID appName appPath appComment appVersion keywordID"},
        {"tblClass", "classID className appID languageID classPathInApp classDI classComment keywordID"},
        {"tblCode", "codeID codeName code codeComment classID keywordID"},
        {"tblKeyword", "keywordID keyword separatorID"},
        {"tblKeywordTemp", "keywordID keyword separatorID"},
        {"tblSearchWord", "searchWordID searchWord"},
        {"tblKeyword_link_searchWord", "keywordID searchWordID"},
        {"tblSeparator", "separatorID separator separatorDescription"},
        {"tblAuthor", "authorID authorFName authorMName authorLName"},
        {"tbl_Author_Link", "ownerID authorID ownerTableID"},
        {"tblDate", "dateID dDate"},
        {"tbl_date_link", "ownerID dateID ownerTableID"},
        {"tblLanguage", "languageID language Status"},
        {"tblCode_Link_Language", "codeID languageID"},
        {"tblFavorite", "appID classID codeID"},
        {"tblCommonWord", "commonWord"},
        {"tblIDsToDelete", "ID"},
        {"tblWindowSize", "w_hID tWidth tHeight tLeft tTop leftChildIndex rightChildIndex wrap "
                          "leftChildWidth rightChildWidth fContentPos fIndexPos fSearchPos "
                          "fBookmarkPos lastCompactDay"},
        // clang-format on
    };
    const DeliveredCatalogue catalogue;
    for (const auto& test : cases) {
        // Computed columns are not among those of table_info.
        EXPECT_EQ(Internal(catalogue, "SELECT group_concat(name, ' ') FROM pragma_table_info('" +
                                          std::string(test.table) + "')"),
                  test.columns)
            << test.table;
    }
}

TEST(Delivered, TextsCompareWithoutRegardToCaseInEveryColumn) {
    const DeliveredCatalogue catalogue;
    const DatabaseHandle database = OpenDatabase(catalogue.Path(), OpenFlag::Read);
    for (const std::string_view table : CatalogueTables()) {
        const std::string name(table);
        const std::string sql =
            ScalarText(database.get(), "SELECT sql FROM sqlite_schema WHERE name = '" + name + "'");
        const std::string texts =
            ScalarText(database.get(), "SELECT count(*) FROM pragma_table_info('" + name +
                                           "') WHERE type = 'TEXT'");
        int compared = name == "tblNamedQuery" ? 1 : 0;  // the engine looks its names up itself
        for (std::size_t at = 0; (at = sql.find("COLLATE CATNC", at)) != std::string::npos; ++at)
            ++compared;
        EXPECT_EQ(std::to_string(compared), texts) << table;
    }
}

TEST(Delivered, RowsAreThere) {
    DeliveredCatalogue catalogue;
    EXPECT_EQ(catalogue.Select("SELECT * FROM tblApplication"),
              Rows{"1|Application Undefined|-|-|-|-"});
    EXPECT_EQ(catalogue.Select("SELECT classID, className, appID, languageID FROM tblClass"),
              Rows{"1|Class/Module Undefined|1|1"});
    EXPECT_EQ(catalogue.Select("SELECT languageID, language, Status FROM tblLanguage"),
              (Rows{"1|Visual Basic|1", "2|Java|1", "3|C#|1", "4|C++|1", "5|C|1", "6|ASP|1",
                    "7|JavaScript|1", "8|VBScript|1", "9|HTML|1", "10|C/C++ Header|1",
                    "11|C++ Header|1"}));
    EXPECT_EQ(catalogue.Select("SELECT separatorID, separator FROM tblSeparator"),
              (Rows{"1| ", "2|,", "3|;", "4|/", "5||"}));
    EXPECT_EQ(catalogue.Rows("qryWindowSizeRS"),
              Rows{"1|15360|11520|600|450|1|0|0|4500|4500|left|left|right|left|-"});
    for (const std::string_view table : {"tblCode", "tblKeyword", "tblKeywordTemp", "tblSearchWord",
                                         "tblAuthor", "tblDate", "tblFavorite", "tblIDsToDelete"}) {
        EXPECT_EQ(catalogue.Select("SELECT count(*) FROM " + std::string(table)), Rows{"0"});
    }
}

TEST(Delivered, NoiseWordsAreDifferentAndInLowerCase) {
    DeliveredCatalogue catalogue;
    const Rows words = catalogue.Rows("qryCommonWordRS");
    EXPECT_GE(words.size(), 100U);
    EXPECT_EQ(std::set<std::string>(words.begin(), words.end()).size(), words.size());
    for (const std::string& word : words) {
        EXPECT_EQ(word.find_first_not_of("abcdefghijklmnopqrstuvwxyz"), std::string::npos) << word;
    }
}

TEST(Delivered, FileTellsItsVersionAndThePlannersFigures) {
    const DeliveredCatalogue catalogue;
    EXPECT_EQ(Internal(catalogue, "PRAGMA user_version"), std::to_string(kCatalogueVersion));
    EXPECT_EQ(Internal(catalogue,
                       "SELECT group_concat(name) FROM sqlite_schema s WHERE type = 'index' AND "
                       "name NOT LIKE 'sqlite_%' AND NOT EXISTS (SELECT 1 FROM sqlite_stat1 "
                       "WHERE idx = s.name AND tbl = s.tbl_name)"),
              "")
        << "indexes without figures";
    EXPECT_EQ(Internal(catalogue,
                       "SELECT group_concat(ifnull(idx, tbl)) FROM sqlite_stat1 t WHERE NOT EXISTS "
                       "(SELECT 1 FROM sqlite_schema WHERE name = ifnull(t.idx, t.tbl))"),
              "")
        << "figures of what is not there";
}

TEST(Delivered, IDsOfTheTreeAreNeverGivenAgain) {
    DeliveredCatalogue catalogue;
    const struct {
        std::string_view table;
        std::string_view id;
        std::string_view insert;
    } cases[] = {
        // clang-format off
        {"tblApplication", "appID", "INSERT INTO tblApplication(appName) VALUES('x');"},
        {"tblClass", "classID", "INSERT INTO tblClass (ClassName, appID, languageID) VALUES ('x', 1, 1)"},
        {"tblCode", "codeID", "INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('x', 'y', 1)"},
        // clang-format on
    };
    for (const auto& test : cases) {
        const std::string maximum =
            "SELECT max(" + std::string(test.id) + ") FROM " + std::string(test.table);
        catalogue.Act(test.insert);
        const Rows first = catalogue.Select(maximum);
        catalogue.Act("DELETE FROM " + std::string(test.table) + " WHERE " + std::string(test.id) +
                      " = " + first[0]);
        catalogue.Act(test.insert);
        EXPECT_EQ(catalogue.Select(maximum), Rows{std::to_string(std::stoi(first[0]) + 1)});
    }
}

TEST(Delivered, WindowRowOfAShutDownGetsTheFirstIDAndThePositions) {
    DeliveredCatalogue catalogue;
    catalogue.Act("DELETE FROM tblWindowSize");
    catalogue.Act(
        "INSERT INTO tblWindowSize (tWidth, tHeight, tLeft, tTop, leftChildIndex, rightChildIndex, "
        "wrap, leftChildWidth, rightChildWidth) VALUES (10, 20, 3, 4, 1, 2, 0, 7, 8 )");
    EXPECT_EQ(catalogue.Rows("qryWindowSizeRS"),
              Rows{"1|10|20|3|4|1|2|0|7|8|left|left|right|left|-"});
}

TEST(Delivered, StoredQueriesCanBeWrittenAnew) {
    DeliveredCatalogue catalogue;
    const Rows delivered = catalogue.Select("SELECT * FROM tblNamedQuery");
    catalogue.Fill(
        "DELETE FROM tblNamedQuery WHERE name = 'qryAppNameByID';"
        "UPDATE tblNamedQuery SET body = 'SELECT 1';"
        "INSERT INTO tblNamedQuery VALUES ('qryOfAnOldVersion', '', 'SELECT 1');");
    catalogue.Fill(StoredQueriesScript());
    EXPECT_EQ(catalogue.Select("SELECT * FROM tblNamedQuery"), delivered);
}

// The statements that remove the authors and dates of a deleted owner, as the program runs them.
TEST(Delivered, ScratchTableLetsADeletionTakeOnlyItsCandidates) {
    DeliveredCatalogue catalogue;
    catalogue.Fill(
        "INSERT INTO tblAuthor VALUES (1, 'Ann', '', 'Lee'), (2, 'Bo', '', 'Ray'), (3, 'Cy', '', "
        "'Fox');"
        "INSERT INTO tbl_Author_Link VALUES (7, 1, 3), (7, 2, 3), (8, 2, 3);"
        "INSERT INTO tblDate VALUES (1, '2001-01-01'), (2, '2002-02-02'), (3, '2003-03-03');"
        "INSERT INTO tbl_date_link VALUES (7, 1, 3), (7, 2, 3), (8, 2, 3);");
    for (const std::string_view statement : {
             // clang-format off
             "INSERT INTO tblIDsToDelete SELECT authorID AS ID FROM tbl_Author_Link WHERE ownerID IN (7) AND ownerTableID=3",
             "DELETE FROM tbl_Author_Link WHERE ownerID IN (7) AND ownerTableID=3",
             "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT authorID FROM tbl_Author_Link)",
             "DELETE FROM tblAuthor WHERE authorID IN (SELECT authorID FROM tblIDsToDelete)",
             "DELETE FROM tblIDsToDelete",
             "INSERT INTO tblIDsToDelete SELECT dateID AS ID FROM tbl_date_link WHERE ownerID IN (7) AND ownerTableID=3",
             "DELETE FROM tbl_date_link WHERE ownerID IN (7) AND ownerTableID=3",
             "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT dateID FROM tbl_date_link)",
             "DELETE FROM tblDate WHERE dateID IN (SELECT dateID FROM tblIDsToDelete)",
             "DELETE FROM tblIDsToDelete",
             // clang-format on
         }) {
        catalogue.Act(statement);
    }
    EXPECT_EQ(catalogue.Select("SELECT authorID FROM tblAuthor"), (Rows{"2", "3"}));
    EXPECT_EQ(catalogue.Select("SELECT dateID FROM tblDate"), (Rows{"2", "3"}));
    EXPECT_EQ(catalogue.Select("SELECT count(*) FROM tblIDsToDelete"), Rows{"0"});
}

TEST(Delivered, TriggersKeepTheIDsOfKeywordsAndSearchWordsHarmless) {
    DeliveredCatalogue catalogue;
    catalogue.Fill(
        "INSERT INTO tblKeyword VALUES (5, 'grid view', 1), (6, 'list', 1);"
        "INSERT INTO tblSearchWord VALUES (1, 'grid'), (2, 'view'), (3, 'list');"
        "INSERT INTO tblKeyword_link_searchWord VALUES (5, 1), (5, 2), (6, 3), (6, 1);"
        "UPDATE tblApplication SET keywordID = 5; UPDATE tblClass SET keywordID = 5;"
        "INSERT INTO tblCode VALUES (1, 'a', 'x', NULL, 1, 5), (2, 'b', 'y', NULL, 1, 6);");
    catalogue.Act("DELETE FROM tblSearchWord WHERE searchWordID = 1");
    EXPECT_EQ(catalogue.Select("SELECT * FROM tblKeyword_link_searchWord"), (Rows{"5|2", "6|3"}));
    catalogue.Act("DELETE FROM tblKeyword WHERE keywordID = 5");
    EXPECT_EQ(catalogue.Select("SELECT * FROM tblKeyword_link_searchWord"), Rows{"6|3"});
    EXPECT_EQ(catalogue.Select("SELECT keywordID FROM tblApplication"), Rows{"-"});
    EXPECT_EQ(catalogue.Select("SELECT keywordID FROM tblClass"), Rows{"-"});
    EXPECT_EQ(catalogue.Select("SELECT codeID, keywordID FROM tblCode"), (Rows{"1|-", "2|6"}));
}

TEST(Delivered, TriggersKeepBookmarksOnTheirPathThroughTheTree) {
    DeliveredCatalogue catalogue;
    catalogue.Fill(
        "INSERT INTO tblApplication(appID, appName) VALUES (2, 'A'), (3, 'B');"
        "INSERT INTO tblClass(classID, className, appID) VALUES (10, 'C', 2), (11, 'D', 3);"
        "INSERT INTO tblCode(codeID, codeName, classID) VALUES (20, 'p', 10), (21, 'q', 10);"
        "INSERT INTO tblFavorite VALUES (2, 10, NULL), (2, 10, 20), (2, 10, 21);");
    catalogue.Act("UPDATE tblCode SET codeName = 'q2', classID = 11 WHERE codeID = 21");
    EXPECT_EQ(catalogue.Select("SELECT * FROM tblFavorite"),
              (Rows{"2|10|-", "2|10|20", "3|11|21"}));
    catalogue.Act("UPDATE tblClass SET appID = 1 WHERE classID = 10");
    EXPECT_EQ(catalogue.Select("SELECT * FROM tblFavorite"),
              (Rows{"1|10|-", "1|10|20", "3|11|21"}));
    catalogue.Act("DELETE FROM tblClass WHERE classID = 10");
    EXPECT_EQ(catalogue.Select("SELECT * FROM tblFavorite"), Rows{"3|11|21"});
}

TEST(Delivered, TriggersRemoveSideRowsWithTheirOwnerOnly) {
    DeliveredCatalogue catalogue;
    catalogue.Fill(
        "INSERT INTO tblApplication(appID, appName) VALUES (7, 'A');"
        "INSERT INTO tblClass(classID, className, appID) VALUES (7, 'C', 7), (8, 'D', 7);"
        "INSERT INTO tblCode(codeID, codeName, classID) VALUES (7, 'p', 8);"
        "INSERT INTO tblSourceForm VALUES (7, 'utf-8'), (8, 'utf-16');"
        "INSERT INTO tblOverlong VALUES (7, 1, 'appComment', 'a'), (7, 2, 'classDI', 'c'),"
        "    (7, 3, 'code', 'p'), (8, 2, 'classDI', 'd');");
    catalogue.Act("DELETE FROM tblClass WHERE classID IN (7)");
    EXPECT_EQ(catalogue.Select("SELECT text FROM tblOverlong ORDER BY text"),
              (Rows{"a", "d", "p"}));
    EXPECT_EQ(catalogue.Select("SELECT classID FROM tblSourceForm"), Rows{"8"});
    catalogue.Act("DELETE FROM tblCode WHERE codeID IN (7)");
    EXPECT_EQ(catalogue.Select("SELECT text FROM tblOverlong ORDER BY text"), (Rows{"a", "d"}));
    catalogue.Act("DELETE FROM tblApplication WHERE appID IN (7)");
    EXPECT_EQ(catalogue.Select("SELECT text FROM tblOverlong"), Rows{"d"});
}

}  // namespace
}  // namespace snippetarium::test
