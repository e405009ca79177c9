#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "support/case_fold.h"
#include "tests/store/delivered_catalogue.h"

namespace snippetarium::test {
namespace {

constexpr std::string_view kTopic = "appName appID classID className codeID codeName";
constexpr std::string_view kKeyword =
    "keywordID keyword separatorID separator separatorDescription searchWords";

struct QueryColumns {
    std::string_view query;
    /// The first is the one that an integer or text read returns.
    std::string_view columns;
};

// clang-format off
constexpr QueryColumns kColumns[] = {
    {"qryAppIDUsingAppName", "appID"},
    {"qryApplicationRSByID", "appID appName appPath appComment appVersion keywordID"},
    {"qryAppNameRS", "appID appName"},
    {"qryAppRSContainClass", "appID appName"},
    {"qryAppNameByAppPath", "appName"},
    {"qryAppNameByID", "appName"},
    {"qryAppPathByID", "appPath"},
    {"qryAppCommentRSByID", "appComment"},
    {"qryAppWithClassCount", "appID appName classCount"},
    {"qryUnAppWithCount", "appID appName countChild"},
    {"qryCountCodeByAppID", "codeCount"},
    {"qryClassNameByID", "className"},
    {"qryClassDICommentLanIDByID", "classDI classComment languageID"},
    {"qryClassIDByClassNameClassPathAppID", "classID"},
    {"qryClassIDByClassNameAppID", "classID"},
    {"qryAppIDByClassID", "appID"},
    {"qryClassIDByAppNameClassName", "classID"},
    {"qryClassPathInAppByClassID", "classPath"},
    {"qryClassLanguageAppByClassID", "classID className classPath classDI classComment keywordID languageID language appID appName"},
    {"qryMiniClassRSByClassID", "classID className classPath languageID appID appName"},
    {"qryClassRSByAppID", "classID className appID languageID classPath classDI classComment keywordID"},
    {"qryClassIDNameRSByAppID", "classID className"},
    {"qryClassWithCodeCountByAppID", "classID className codeCount"},
    {"qryClassDIByClassID", "classDI"},
    {"qryClassCommentRSByID", "classComment"},
    {"qryCodeByID", "code codeID codeName codeComment classID keywordID"},
    {"qryCodeNameByID", "codeName"},
    {"qryCodeIDByName", "codeID classID"},
    {"qryCodeIDByCodeNameClassID", "codeID"},
    {"qryCodeCommentCodeByID", "codeComment code"},
    {"qryCodeCommentCodeByClassID", "codeComment code"},
    {"qryCodeNameCommentCodeByClassID", "codeName codeComment code"},
    {"qryCodeClassAppLanRSByCodeID", "codeID codeName code codeComment keywordID classID className appID appName languageID language"},
    {"qryMiniCodeRSByCodeID", "codeID codeName classID className appID appName"},
    {"qryAppIDClassIDRSByCodeID", "appID classID"},
    {"qryCodeIDCodeNameByClassID", "codeID codeName"},
    {"qryClassCodeRSByCodeID", "classID className languageID classDI codeID codeName codeComment code"},
    {"qryOldNewCodeIDRSByClassID", "oldCodeID newCodeID"},
    {"qryCodeCommentRSByID", "codeComment"},
    {"qryCodeClassAppRSByComment", kTopic},
    {"qryCodeClassAppRSByCommentForASP", kTopic},
    {"qryCodeClassAppRSByCommentForScript", kTopic},
    {"qryCodeClassAppRSByCommentForOthers", kTopic},
    {"qryCodeClassAppRSByName", kTopic},
    {"qryCodeClassAppRSByNameLanguage", kTopic},
    {"qryCodeClassAppRSWithSearchWordCodeName", kTopic},
    {"qryKeywordByID", "keyword keywordID separatorID"},
    {"qryKeywordIDByAppID", "keywordID"},
    {"qryKeywordIDByClassID", "keywordID"},
    {"qryKeywordIDByCodeID", "keywordID"},
    {"qryKeywordIDFromTblCodeByClassID", "keywordID codeID"},
    {"qryKeywordRSWithAppID", kKeyword},
    {"qryKeywordRSWithClassID", kKeyword},
    {"qryKeywordRSWithCodeID", kKeyword},
    {"qrySeparatorByID", "separator"},
    {"qrySeparatorKeywordSearchWordsBySearchWords", "separator keyword searchWords keywordID"},
    {"qryAllSearchWords", "searchWordID searchWord"},
    {"qrySearchWordIDBySearchWord", "searchWordID"},
    {"qrySearchWordIDByKeywordIDSearchWordID", "searchWordID"},
    {"qryCountCodeKeywordLinksByAppID", "linkCount"},
    {"qryCountCodeKeywordsByAppID", "keywordCount"},
    {"qryCountClassKeywordLinksByAppID", "linkCount"},
    {"qryCountClassKeywordsByAppID", "keywordCount"},
    {"qryCountCodeKeywordLinksByClassID", "linkCount"},
    {"qryCountCodeKeywordsByClassID", "keywordCount"},
    {"qryAuthorsRSByOwner", "authorID authorFName authorMName authorLName"},
    {"qryAuthorRSByID", "authorID authorFName authorMName authorLName"},
    {"qryAuthorRSByName", "authorID authorFName authorMName authorLName"},
    {"qryAuthorRSByFullName", "authorID authorFName authorMName authorLName"},
    {"qryAuthorIDByName", "authorID"},
    {"qryAuthorsLinkRSByAuthorID", "ownerID ownerTableID authorID"},
    {"qryAuthorIDFromAuthorLink", "authorID"},
    {"qryDateRSByOwner", "dDate dateID"},
    {"qryLanguage", "languageID language Status"},
    {"qryLanguageID", "languageID"},
    {"qryLanguageByID", "language"},
    {"qryLanguageByClassID", "language"},
    {"qryLanguageByCodeID", "language"},
    {"qryLanguageIDByClassID", "languageID"},
    {"qryLanguageIDByCodeID", "languageID"},
    {"qryLanguageRSByAppID", "languageID language"},
    {"qryStatusRSByLanguage", "Status"},
    {"qryClassIDCodeIDRSByLanguage", "classID codeID"},
    {"qryFavorite", "appID appName classID className codeID codeName"},
    {"qryCommonWordRS", "commonWord"},
    {"qryCommonWordRSByWord", "commonWord"},
    {"qryWindowSizeRS", "w_hID tWidth tHeight tLeft tTop leftChildIndex rightChildIndex wrap leftChildWidth rightChildWidth fContentPos fIndexPos fSearchPos fBookmarkPos"},
};
// clang-format on

std::vector<std::string> Words(std::string_view text) {
    std::istringstream stream{std::string(text)};
    return {std::istream_iterator<std::string>(stream), {}};
}

std::vector<std::string> ColumnsOf(const Recordset& recordset) {
    std::vector<std::string> columns;
    for (std::size_t i = 0; i < recordset.ColumnCount(); ++i)
        columns.push_back(recordset.ColumnName(i));
    return columns;
}

std::vector<QueryValue> AnyValues(std::string_view query) {
    std::vector<QueryValue> values;
    for (const QueryParameter& parameter :
         ParseQueryParameters(FindStoredQuery(query)->parameters)) {
        if (parameter.kind == QueryParameterKind::Long) {
            values.emplace_back(1);
        } else {
            values.emplace_back("x");
        }
    }
    return values;
}

TEST(QueryColumns, AreKnownForEveryQuery) {
    ASSERT_EQ(std::size(kColumns), StoredQueries().size());
    for (std::size_t i = 0; i < std::size(kColumns); ++i)
        EXPECT_EQ(kColumns[i].query, StoredQueries()[i].name);
}

TEST(QueryColumns, AreThoseThatTheCallersReadAndTheFirstStandsFirst) {
    DeliveredCatalogue catalogue;
    for (const auto& [query, expected] : kColumns) {
        const Recordset recordset = catalogue.Run(query, AnyValues(query));
        const std::vector<std::string> columns = ColumnsOf(recordset);
        const std::vector<std::string> wanted = Words(expected);
        EXPECT_EQ(columns.at(0), wanted.at(0)) << query;
        for (const std::string& column : wanted) {
            EXPECT_EQ(std::count(columns.begin(), columns.end(), column), 1)
                << query << " and " << column;
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
