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

}  // namespace
}  // namespace snippetarium::test
