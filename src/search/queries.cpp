#include "search/queries.h"

#include <string>

#include "search/language_family.h"
#include "store/database.h"
#include "store/reads_search.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

Recordset Run(Database& db, const std::string& statement) {
    db.SetCurrentStatement(statement);
    db.SetLastSearchStatement(statement);
    return db.GetConnection().ExecuteSearch(statement);
}

/// Runs the statement that `build` makes, in the guard of a search.
template <typename Build>
Recordset Search(Database& db, Procedure procedure, Build&& build) {
    return Guarded(db.Reporter(), procedure, [&] { return Run(db, build()); });
}

/// Makes a note of the stored query that runs next.
void NoteQuery(Database& db, Procedure query, std::string_view text) {
    db.SetLastSearchStatement(Sql("EXECUTE ", ProcedureName(query), " ", SqlText(text), ";"));
}

void NoteQuery(Database& db, Procedure query, std::string_view text, std::int16_t languageID) {
    db.SetLastSearchStatement(Sql("EXECUTE ", ProcedureName(query), " ", SqlText(text), ", ",
                                  std::int32_t{languageID}, ";"));
}

std::string Anywhere(std::string_view comment) {
    return Sql("%", comment, "%");
}

}  // namespace

Recordset CodeTextSearch(Database& db, std::string_view condition) {
    return Search(db, Procedure::CodeTextSearch, [&] { return CodeTextStatement(condition); });
}

Recordset CodeTextSearchLanguage(Database& db, std::string_view condition,
                                 std::int16_t languageID) {
    return Search(db, Procedure::CodeTextSearchLanguage,
                  [&] { return CodeTextStatement(condition, languageID); });
}

Recordset KeywordPhraseSearch(Database& db, std::string_view where) {
    return Search(db, Procedure::KeywordPhraseSearch,
                  [&] { return KeywordPhraseStatement(where); });
}

Recordset KeywordPhraseSearchLanguage(Database& db, std::string_view where,
                                      std::int16_t languageID) {
    return Search(db, Procedure::KeywordPhraseSearchLanguage,
                  [&] { return KeywordPhraseStatement(where, languageID); });
}

Recordset IndexWordSearch(Database& db, std::string_view word) {
    return Search(db, Procedure::IndexWordSearch, [&] { return IndexWordStatement(word); });
}

Recordset KeywordOrSearch(Database& db, std::string_view condition) {
    return Search(db, Procedure::KeywordOrSearch, [&] { return KeywordOrStatement(condition); });
}

Recordset KeywordOrSearchLanguage(Database& db, std::string_view condition,
                                  std::int16_t languageID) {
    return Search(db, Procedure::KeywordOrSearchLanguage,
                  [&] { return KeywordOrStatement(condition, languageID); });
}

Recordset KeywordAndSearch(Database& db, const KeywordAndCondition& condition) {
    return Search(db, Procedure::KeywordAndSearch, [&] { return KeywordAndStatement(condition); });
}

Recordset KeywordAndSearchLanguage(Database& db, const KeywordAndCondition& condition,
                                   std::int16_t languageID) {
    return Search(db, Procedure::KeywordAndSearchLanguage,
                  [&] { return KeywordAndStatement(condition, languageID); });
}

Recordset AuthorSearch(Database& db, std::string_view condition) {
    return Search(db, Procedure::AuthorSearch, [&] { return AuthorStatement(condition); });
}

Recordset AuthorSearchLanguage(Database& db, std::string_view condition, std::int16_t languageID) {
    return Search(db, Procedure::AuthorSearchLanguage,
                  [&] { return AuthorStatement(condition, languageID); });
}

Recordset DateRangeSearch(Database& db, const DateRange& range) {
    return Search(db, Procedure::DateRangeSearch, [&] { return DateRangeStatement(range); });
}

Recordset DateRangeSearchLanguage(Database& db, const DateRange& range, std::int16_t languageID) {
    return Search(db, Procedure::DateRangeSearchLanguage,
                  [&] { return DateRangeStatement(range, languageID); });
}

Recordset NameSearch(Database& db, std::string_view name) {
    NoteQuery(db, Procedure::qryCodeClassAppRSByName, name);
    return CodeClassAppRSByName(db, name);
}

Recordset NameSearchLanguage(Database& db, std::string_view name, std::int16_t languageID) {
    NoteQuery(db, Procedure::qryCodeClassAppRSByNameLanguage, name, languageID);
    return CodeClassAppRSByNameLanguage(db, name, languageID);
}

Recordset CommentSearch(Database& db, std::string_view comment) {
    const std::string pattern = Anywhere(comment);
    NoteQuery(db, Procedure::qryCodeClassAppRSByComment, pattern);
    return CodeClassAppRSByComment(db, pattern);
}

Recordset CommentSearchLanguage(Database& db, std::string_view comment, std::int16_t languageID) {
    const std::string pattern = Anywhere(comment);
    switch (FamilyOf(languageID)) {
        case LanguageFamily::Pages:
            NoteQuery(db, Procedure::qryCodeClassAppRSByCommentForASP, pattern, languageID);
            return CodeClassAppRSByCommentForASP(db, pattern, languageID);
        case LanguageFamily::Scripts:
            NoteQuery(db, Procedure::qryCodeClassAppRSByCommentForScript, pattern, languageID);
            return CodeClassAppRSByCommentForScript(db, pattern, languageID);
        case LanguageFamily::Others:
            break;
    }
    NoteQuery(db, Procedure::qryCodeClassAppRSByCommentForOthers, pattern, languageID);
    return CodeClassAppRSByCommentForOthers(db, pattern, languageID);
}

}  // namespace snippetarium
