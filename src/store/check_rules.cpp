#include "store/check_rules.h"

#include <array>

namespace snippetarium {

namespace {

// "NOT IN (SELECT key ...)" and not a join: it looks each ID up in the other table's own tree, or
// in a list that is made once, so that a missing index lets no check run for hours. IDs that may be
// null are asked for it first, since a null is "NOT IN" an empty table. A language of 0 is none.

constexpr std::string_view kNoApplication = "appID NOT IN (SELECT appID FROM tblApplication)";
constexpr std::string_view kNoClass = "classID NOT IN (SELECT classID FROM tblClass)";
constexpr std::string_view kNoCode = "codeID NOT IN (SELECT codeID FROM tblCode)";
constexpr std::string_view kNoKeyword =
    "keywordID IS NOT NULL AND keywordID NOT IN (SELECT keywordID FROM tblKeyword)";
constexpr std::string_view kNoSeparator =
    "separatorID IS NOT NULL AND separatorID NOT IN (SELECT separatorID FROM tblSeparator)";
constexpr std::string_view kNoLanguage =
    "languageID <> 0 AND languageID NOT IN (SELECT languageID FROM tblLanguage)";
constexpr std::string_view kNoTrash = "trashID NOT IN (SELECT trashID FROM tblTrash)";
constexpr std::string_view kNoDraft = "draftID NOT IN (SELECT draftID FROM tblDraft)";
constexpr std::string_view kNoAuthor = "authorID NOT IN (SELECT authorID FROM tblAuthor)";
constexpr std::string_view kNoDate = "dateID NOT IN (SELECT dateID FROM tblDate)";
constexpr std::string_view kNoOwner =
    "CASE ownerTableID WHEN 1 THEN ownerID NOT IN (SELECT appID FROM tblApplication) "
    "WHEN 2 THEN ownerID NOT IN (SELECT classID FROM tblClass) "
    "WHEN 3 THEN ownerID NOT IN (SELECT codeID FROM tblCode) ELSE 1 END";
constexpr std::string_view kNoKeywordOrWord =
    "(keywordID NOT IN (SELECT keywordID FROM tblKeyword) "
    "OR searchWordID NOT IN (SELECT searchWordID FROM tblSearchWord))";
constexpr std::string_view kNoPlaceInTree =
    "(appID NOT IN (SELECT appID FROM tblApplication) "
    "OR classID NOT IN (SELECT classID FROM tblClass) "
    "OR (codeID IS NOT NULL AND codeID NOT IN (SELECT codeID FROM tblCode)))";
constexpr std::string_view kNoLink =
    "searchWordID NOT IN (SELECT searchWordID FROM tblKeyword_link_searchWord)";
// What comes back from date() or time() as another one does not exist; what is no date at all comes
// back as null, and so does the comparison.
constexpr std::string_view kNoIsoDate =
    "coalesce(dDate NOT IN (date(substr(dDate, 1, 10), '+0 days'), "
    "date(substr(dDate, 1, 10), '+0 days') || ' ' || "
    "coalesce(time(substr(dDate, 12), '+0 seconds'), '')), 1)";

// store/cut_short_imports.h says what the settings mean. The one of a class that is under way
// counts too: a check only reads, and may be the first to look after the end of the import.
constexpr std::string_view kCutShort =
    "classID IN (SELECT CAST(substr(name, 17) AS INTEGER) FROM tblSetting WHERE substr(name, 1, "
    "16) = 'import.cutShort ' UNION ALL SELECT min(classID) FROM tblClass WHERE classID > (SELECT "
    "CAST(value AS INTEGER) FROM tblSetting WHERE name = 'import.underWay'))";

// A block of packed names holds exactly those of its rows, in the same letters.
constexpr std::string_view kStaleApplicationNames =
    "ownerTableID = 1 AND (entries IS NOT (SELECT group_concat(substr('000' || (appID % 1024), -4) "
    "|| "
    "substr('000' || length(CAST(appName AS BLOB)), -4), '') FROM tblApplication WHERE appID "
    "BETWEEN block * 1024 AND block * 1024 + 1023) "
    "OR names COLLATE BINARY IS NOT (SELECT group_concat(appName, '\n') FROM tblApplication WHERE "
    "appID BETWEEN block * 1024 AND block * 1024 + 1023))";
constexpr std::string_view kStaleClassNames =
    "ownerTableID = 2 AND (entries IS NOT (SELECT group_concat(substr('000' || (classID % 1024), "
    "-4) "
    "|| "
    "substr('000' || length(CAST(className AS BLOB)), -4), '') FROM tblClass WHERE classID BETWEEN "
    "block * 1024 AND block * 1024 + 1023) "
    "OR names COLLATE BINARY IS NOT (SELECT group_concat(className, '\n') FROM tblClass WHERE "
    "classID BETWEEN block * 1024 AND block * 1024 + 1023))";
constexpr std::string_view kStaleCodeNames =
    "ownerTableID = 3 AND (entries IS NOT (SELECT group_concat(substr('000' || (codeID % 1024), "
    "-4) "
    "|| "
    "substr('000' || length(CAST(codeName AS BLOB)), -4), '') FROM tblCode WHERE codeID BETWEEN "
    "block * 1024 AND block * 1024 + 1023) "
    "OR names COLLATE BINARY IS NOT (SELECT group_concat(codeName, '\n') FROM tblCode WHERE codeID "
    "BETWEEN block * 1024 AND block * 1024 + 1023))";

constexpr std::string_view kClassID = "'classID ' || classID";
constexpr std::string_view kCodeID = "'codeID ' || codeID";
constexpr std::string_view kOwner = "'ownerID ' || ownerID || ', ownerTableID ' || ownerTableID";
constexpr std::string_view kWordLink =
    "'keywordID ' || keywordID || ', searchWordID ' || searchWordID";
constexpr std::string_view kBookmark =
    "'appID ' || appID || ', classID ' || classID || coalesce(', codeID ' || codeID, '')";

constexpr std::string_view kNameBlock = "'ownerTableID ' || ownerTableID || ', block ' || block";
constexpr std::string_view kNamesAdvice =
    "Quick search misses names. Mending removes the blocks; they are made anew when the catalogue "
    "is opened.";

constexpr std::string_view kNamedClass = "'classID ' || classID || ', ' || className";
constexpr std::string_view kCutShortAdvice =
    "Some of their procedures may be missing. Import their files again and choose to overwrite the "
    "classes, unless an import is running just now.";

constexpr std::string_view kTrashID = "'trashID ' || trashID";

constexpr std::string_view kLostTrash = "deleted rows whose entry in the trash does not exist";
constexpr std::string_view kTrashAdvice = "They cannot be brought back. Mending removes them.";
constexpr std::string_view kHiddenAdvice =
    "They cannot be seen in the contents tree. Mending moves them to where what belongs to nothing "
    "is kept.";
constexpr std::string_view kKeywordAdvice =
    "Mending lets them have no keywords; give them new ones.";
constexpr std::string_view kLinkAdvice = "They mean nothing. Mending removes them.";

using enum FindingKind;
using enum FindingWeight;

// clang-format off
constexpr std::array kRules = {
    CheckRule{ClassWithoutApplication, Fault, "tblClass", kNoApplication, kClassID, "classes whose application does not exist", "UPDATE tblClass SET appID = 1", kHiddenAdvice},
    CheckRule{ProcedureWithoutClass, Fault, "tblCode", kNoClass, kCodeID, "procedures whose class does not exist", "UPDATE tblCode SET classID = 1", kHiddenAdvice},
    CheckRule{OwnerWithoutItsKeyword, Fault, "tblApplication", kNoKeyword, "'appID ' || appID", "applications whose keyword text does not exist", "UPDATE tblApplication SET keywordID = NULL", kKeywordAdvice},
    CheckRule{OwnerWithoutItsKeyword, Fault, "tblClass", kNoKeyword, kClassID, "classes whose keyword text does not exist", "UPDATE tblClass SET keywordID = NULL", kKeywordAdvice},
    CheckRule{OwnerWithoutItsKeyword, Fault, "tblCode", kNoKeyword, kCodeID, "procedures whose keyword text does not exist", "UPDATE tblCode SET keywordID = NULL", kKeywordAdvice},
    CheckRule{KeywordWithoutSeparator, Fault, "tblKeyword", kNoSeparator, "'keywordID ' || keywordID", "keyword texts whose separator does not exist", "UPDATE tblKeyword SET separatorID = 1", "Mending makes the blank their separator."},
    CheckRule{KeywordLinkToNothing, Fault, "tblKeyword_link_searchWord", kNoKeywordOrWord, kWordLink, "links of keyword texts to search words of which one does not exist", "DELETE FROM tblKeyword_link_searchWord", kLinkAdvice},
    CheckRule{UnlinkedSearchWord, Information, "tblSearchWord", kNoLink, "'searchWordID ' || searchWordID", "search words that no keyword text has", "DELETE FROM tblSearchWord", "They find nothing and do no harm. Mending removes them."},
    CheckRule{AuthorLinkWithoutOwner, Fault, "tbl_Author_Link", kNoOwner, kOwner, "links to authors whose owner does not exist", "DELETE FROM tbl_Author_Link", kLinkAdvice},
    CheckRule{AuthorLinkWithoutAuthor, Fault, "tbl_Author_Link", kNoAuthor, "'authorID ' || authorID", "links to authors who do not exist", "DELETE FROM tbl_Author_Link", kLinkAdvice},
    CheckRule{DateLinkWithoutOwner, Fault, "tbl_date_link", kNoOwner, kOwner, "links to dates whose owner does not exist", "DELETE FROM tbl_date_link", kLinkAdvice},
    CheckRule{DateLinkWithoutDate, Fault, "tbl_date_link", kNoDate, "'dateID ' || dateID", "links to dates that do not exist", "DELETE FROM tbl_date_link", kLinkAdvice},
    CheckRule{ClassOfUnknownLanguage, Fault, "tblClass", kNoLanguage, kClassID, "classes whose language does not exist", "", "Choose a language for them in the class editor."},
    CheckRule{LanguageLinkWithoutProcedure, Fault, "tblCode_Link_Language", kNoCode, kCodeID, "languages of procedures that do not exist", "DELETE FROM tblCode_Link_Language", kLinkAdvice},
    CheckRule{LanguageLinkWithoutLanguage, Fault, "tblCode_Link_Language", kNoLanguage, kCodeID, "procedures whose language does not exist", "DELETE FROM tblCode_Link_Language", "Mending lets them have no language; choose one in the procedure editor."},
    CheckRule{BookmarkOfNothing, Fault, "tblFavorite", kNoPlaceInTree, kBookmark, "bookmarks of what does not exist", "DELETE FROM tblFavorite", kLinkAdvice},
    CheckRule{SourceFormWithoutClass, Fault, "tblSourceForm", kNoClass, kClassID, "notes on the source files of classes that do not exist", "DELETE FROM tblSourceForm", kLinkAdvice},
    CheckRule{OverlongTextWithoutOwner, Fault, "tblOverlong", kNoOwner, kOwner, "cut off ends of texts whose owner does not exist", "DELETE FROM tblOverlong", kLinkAdvice},
    CheckRule{LeftoverToDelete, Fault, "tblIDsToDelete", "1", "'ID ' || ID", "rows that a deletion which was cut short left in its list", "DELETE FROM tblIDsToDelete", kLinkAdvice},
    CheckRule{LeftoverToDelete, Fault, "tblClassesToEmpty", "1", kClassID, "classes that a deletion which was cut short left in its list", "DELETE FROM tblClassesToEmpty", kLinkAdvice},
    CheckRule{ClassCutShort, Information, "tblClass", kCutShort, kNamedClass, "classes whose import was cut short", "", kCutShortAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashApplication", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashApplication", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashClass", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashClass", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashCode", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashCode", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashKeyword", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashKeyword", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashSearchWord", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashSearchWord", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashKeywordWord", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashKeywordWord", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashAuthor", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashAuthor", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashAuthorLink", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashAuthorLink", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashDate", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashDate", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashDateLink", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashDateLink", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashLanguage", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashLanguage", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashCodeLanguage", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashCodeLanguage", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashFavorite", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashFavorite", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashSourceForm", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashSourceForm", kTrashAdvice},
    CheckRule{TrashWithoutEntry, Fault, "tblTrashOverlong", kNoTrash, kTrashID, kLostTrash, "DELETE FROM tblTrashOverlong", kTrashAdvice},
    CheckRule{StaleNames, Fault, "tblNameBlock", kStaleApplicationNames, kNameBlock, "blocks of packed names that differ from the names of the applications", "DELETE FROM tblNameBlock", kNamesAdvice},
    CheckRule{StaleNames, Fault, "tblNameBlock", kStaleClassNames, kNameBlock, "blocks of packed names that differ from the names of the classes", "DELETE FROM tblNameBlock", kNamesAdvice},
    CheckRule{StaleNames, Fault, "tblNameBlock", kStaleCodeNames, kNameBlock, "blocks of packed names that differ from the names of the procedures", "DELETE FROM tblNameBlock", kNamesAdvice},
    CheckRule{DraftTextWithoutDraft, Fault, "tblDraftText", kNoDraft, "'draftID ' || draftID", "texts of drafts that do not exist", "DELETE FROM tblDraftText", "They are not offered. Mending removes them."},
    CheckRule{DateThatIsNone, Fault, "tblDate", kNoIsoDate, "'dateID ' || dateID", "dates that are no dates", "", "Searches by date miss them. Correct or delete them in the date list of their owners."},
};
// clang-format on

std::string Where(std::string_view before, std::string_view condition) {
    return std::string(before) + " WHERE " + std::string(condition);
}

}  // namespace

std::string CheckRule::Breaches() const {
    return Where("FROM " + std::string(table), condition);
}

std::string CheckRule::MendingScript() const {
    return mending.empty() ? std::string() : Where(mending, condition);
}

std::span<const CheckRule> CheckRules() {
    return kRules;
}

}  // namespace snippetarium
