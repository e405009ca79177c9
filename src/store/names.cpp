#include "store/names.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "support/case_fold.h"
#include "support/error.h"
#include "support/text.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr std::array kStoredQueries = {
    // applications
    StoredQuery{"qryAppIDUsingAppName", "appName T255"},
    StoredQuery{"qryApplicationRSByID", "appID I"},
    StoredQuery{"qryAppNameRS", ""},
    StoredQuery{"qryAppRSContainClass", ""},
    StoredQuery{"qryAppNameByAppPath", "appPath L"},
    StoredQuery{"qryAppNameByID", "appID I"},
    StoredQuery{"qryAppPathByID", "appID I"},
    StoredQuery{"qryAppCommentRSByID", "appID I"},
    StoredQuery{"qryAppWithClassCount", ""},
    StoredQuery{"qryUnAppWithCount", ""},
    StoredQuery{"qryCountCodeByAppID", "appID I"},
    // classes
    StoredQuery{"qryClassNameByID", "classID I"},
    StoredQuery{"qryClassDICommentLanIDByID", "classID I"},
    StoredQuery{"qryClassIDByClassNameClassPathAppID", "className T255, classPath L, appID I"},
    StoredQuery{"qryClassIDByClassNameAppID", "className T255, appID I"},
    StoredQuery{"qryAppIDByClassID", "classID I"},
    StoredQuery{"qryClassIDByAppNameClassName", "appName T255, className T255"},
    StoredQuery{"qryClassPathInAppByClassID", "classID I"},
    StoredQuery{"qryClassLanguageAppByClassID", "classID I"},
    StoredQuery{"qryMiniClassRSByClassID", "classID I"},
    StoredQuery{"qryClassRSByAppID", "appID I"},
    StoredQuery{"qryClassIDNameRSByAppID", "appID I"},
    StoredQuery{"qryClassWithCodeCountByAppID", "appID I"},
    StoredQuery{"qryClassDIByClassID", "classID I"},
    StoredQuery{"qryClassCommentRSByID", "classID I"},
    // procedures
    StoredQuery{"qryCodeByID", "codeID I"},
    StoredQuery{"qryCodeNameByID", "codeID I"},
    StoredQuery{"qryCodeIDByName", "codeName T255"},
    StoredQuery{"qryCodeIDByCodeNameClassID", "codeName T255, classID I"},
    StoredQuery{"qryCodeCommentCodeByID", "codeID I"},
    StoredQuery{"qryCodeCommentCodeByClassID", "classID I"},
    StoredQuery{"qryCodeNameCommentCodeByClassID", "classID I"},
    StoredQuery{"qryCodeClassAppLanRSByCodeID", "codeID I"},
    StoredQuery{"qryMiniCodeRSByCodeID", "codeID I"},
    StoredQuery{"qryAppIDClassIDRSByCodeID", "codeID I"},
    StoredQuery{"qryCodeIDCodeNameByClassID", "classID I"},
    StoredQuery{"qryClassCodeRSByCodeID", "codeID I"},
    StoredQuery{"qryOldNewCodeIDRSByClassID", "oldClassID I, newClassID I"},
    StoredQuery{"qryCodeCommentRSByID", "codeID I"},
    // search
    StoredQuery{"qryCodeClassAppRSByComment", "comment L"},
    StoredQuery{"qryCodeClassAppRSByCommentForASP", "comment L, languageID I"},
    StoredQuery{"qryCodeClassAppRSByCommentForScript", "comment L, languageID I"},
    StoredQuery{"qryCodeClassAppRSByCommentForOthers", "comment L, languageID I"},
    StoredQuery{"qryCodeClassAppRSByName", "name T255"},
    StoredQuery{"qryCodeClassAppRSByNameLanguage", "name T255, languageID I"},
    StoredQuery{"qryCodeClassAppRSWithSearchWordCodeName", "name T255, searchWord T50"},
    // keywords
    StoredQuery{"qryKeywordByID", "keywordID I"},
    StoredQuery{"qryKeywordIDByAppID", "appID I"},
    StoredQuery{"qryKeywordIDByClassID", "classID I"},
    StoredQuery{"qryKeywordIDByCodeID", "codeID I"},
    StoredQuery{"qryKeywordIDFromTblCodeByClassID", "newClassID I"},
    StoredQuery{"qryKeywordRSWithAppID", "appID I"},
    StoredQuery{"qryKeywordRSWithClassID", "classID I"},
    StoredQuery{"qryKeywordRSWithCodeID", "codeID I"},
    StoredQuery{"qrySeparatorByID", "separatorID I"},
    StoredQuery{"qrySeparatorKeywordSearchWordsBySearchWords", "searchWord T50"},
    StoredQuery{"qryAllSearchWords", ""},
    StoredQuery{"qrySearchWordIDBySearchWord", "searchWord T50"},
    StoredQuery{"qrySearchWordIDByKeywordIDSearchWordID", "keywordID I, searchWordID I"},
    StoredQuery{"qryCountCodeKeywordLinksByAppID", "appID I"},
    StoredQuery{"qryCountCodeKeywordsByAppID", "appID I"},
    StoredQuery{"qryCountClassKeywordLinksByAppID", "appID I"},
    StoredQuery{"qryCountClassKeywordsByAppID", "appID I"},
    StoredQuery{"qryCountCodeKeywordLinksByClassID", "classID I"},
    StoredQuery{"qryCountCodeKeywordsByClassID", "classID I"},
    // authors and dates
    StoredQuery{"qryAuthorsRSByOwner", "ownerID I, ownerTableID I"},
    StoredQuery{"qryAuthorRSByID", "authorID I"},
    StoredQuery{"qryAuthorRSByName", "fName T50, lName T50"},
    StoredQuery{"qryAuthorRSByFullName", "fName T50, mName T50, lName T50"},
    StoredQuery{"qryAuthorIDByName", "fName T50, mName T50, lName T50"},
    StoredQuery{"qryAuthorsLinkRSByAuthorID", "authorID I"},
    StoredQuery{"qryAuthorIDFromAuthorLink", "ownerID I, authorID I, ownerTableID I"},
    StoredQuery{"qryDateRSByOwner", "ownerID I, ownerTableID I"},
    // languages
    StoredQuery{"qryLanguage", ""},
    StoredQuery{"qryLanguageID", "language T50"},
    StoredQuery{"qryLanguageByID", "languageID I"},
    StoredQuery{"qryLanguageByClassID", "classID I"},
    StoredQuery{"qryLanguageByCodeID", "codeID I"},
    StoredQuery{"qryLanguageIDByClassID", "classID I"},
    StoredQuery{"qryLanguageIDByCodeID", "codeID I"},
    StoredQuery{"qryLanguageRSByAppID", "appID I"},
    StoredQuery{"qryStatusRSByLanguage", "language T50"},
    StoredQuery{"qryClassIDCodeIDRSByLanguage", "language T50"},
    // other
    StoredQuery{"qryFavorite", ""},
    StoredQuery{"qryCommonWordRS", ""},
    StoredQuery{"qryCommonWordRSByWord", "commonWord T255"},
    StoredQuery{"qryWindowSizeRS", ""},
};

constexpr std::array kTables = {
    std::string_view("tblApplication"),
    std::string_view("tblClass"),
    std::string_view("tblCode"),
    std::string_view("tblKeyword"),
    std::string_view("tblKeywordTemp"),
    std::string_view("tblSearchWord"),
    std::string_view("tblKeyword_link_searchWord"),
    std::string_view("tblSeparator"),
    std::string_view("tblAuthor"),
    std::string_view("tbl_Author_Link"),
    std::string_view("tblDate"),
    std::string_view("tbl_date_link"),
    std::string_view("tblLanguage"),
    std::string_view("tblCode_Link_Language"),
    std::string_view("tblFavorite"),
    std::string_view("tblCommonWord"),
    std::string_view("tblIDsToDelete"),
    std::string_view("tblWindowSize"),
    std::string_view("tblNamedQuery"),
    std::string_view("tblSetting"),
    std::string_view("tblSourceForm"),
    std::string_view("tblOverlong"),
    std::string_view("tblTrash"),
    std::string_view("tblTrashApplication"),
    std::string_view("tblTrashClass"),
    std::string_view("tblTrashCode"),
    std::string_view("tblTrashKeyword"),
    std::string_view("tblTrashSearchWord"),
    std::string_view("tblTrashKeywordWord"),
    std::string_view("tblTrashAuthor"),
    std::string_view("tblTrashAuthorLink"),
    std::string_view("tblTrashDate"),
    std::string_view("tblTrashDateLink"),
    std::string_view("tblTrashLanguage"),
    std::string_view("tblTrashCodeLanguage"),
    std::string_view("tblTrashFavorite"),
    std::string_view("tblTrashSourceForm"),
    std::string_view("tblTrashOverlong"),
    std::string_view("tblClassesToEmpty"),
    std::string_view("tblTextIndex"),
    std::string_view("tblTextSegment"),
    std::string_view("tblTextBlock"),
    std::string_view("tblTextDirty"),
    std::string_view("tblNameBlock"),
    std::string_view("tblDraft"),
    std::string_view("tblDraftText"),
};

constexpr std::array kKinds = {
    std::pair{std::string_view("I"), QueryParameterKind::Long},
    std::pair{std::string_view("T50"), QueryParameterKind::Text50},
    std::pair{std::string_view("T255"), QueryParameterKind::Text255},
    std::pair{std::string_view("L"), QueryParameterKind::LongText},
};
// clang-format on

[[noreturn]] void Refuse(std::string_view item, std::string_view reason) {
    throw Error(error_number::kInternal, "The parameter '" + std::string(item) +
                                             "' of a stored query " + std::string(reason) + ".");
}

QueryParameter ParseParameter(std::string_view item) {
    const std::size_t blank = item.find(' ');
    if (blank == std::string_view::npos)
        Refuse(item, "has no kind: write a name and I, T50, T255 or L");
    const std::string_view name = item.substr(0, blank);
    if (!std::all_of(name.begin(), name.end(), IsAlphanumeric)) Refuse(item, "has no plain name");
    const std::string_view kindName = TrimToVisible(item.substr(blank));
    for (const auto& [text, kind] : kKinds) {
        if (text == kindName) return {name, kind};
    }
    Refuse(item, "is of an unknown kind: there are I, T50, T255 and L");
}

}  // namespace

std::span<const StoredQuery> StoredQueries() {
    return kStoredQueries;
}

const StoredQuery* FindStoredQuery(std::string_view name) {
    const auto* const found = std::find_if(
        kStoredQueries.begin(), kStoredQueries.end(),
        [name](const StoredQuery& query) { return EqualsIgnoringAsciiCase(query.name, name); });
    return found == kStoredQueries.end() ? nullptr : found;
}

std::vector<QueryParameter> ParseQueryParameters(std::string_view declaration) {
    std::vector<QueryParameter> parameters;
    if (TrimToVisible(declaration).empty()) return parameters;
    for (std::size_t start = 0; start <= declaration.size();) {
        const std::size_t comma = std::min(declaration.find(',', start), declaration.size());
        const QueryParameter parameter =
            ParseParameter(TrimToVisible(declaration.substr(start, comma - start)));
        for (const QueryParameter& other : parameters) {
            if (other.name == parameter.name) Refuse(parameter.name, "occurs twice");
        }
        parameters.push_back(parameter);
        start = comma + 1;
    }
    return parameters;
}

std::span<const std::string_view> CatalogueTables() {
    return kTables;
}

}  // namespace snippetarium
