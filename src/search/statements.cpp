#include "search/statements.h"

#include <optional>

#include "search/language_family.h"
#include "search/statement_texts.h"
#include "store/sql_text.h"
#include "support/text.h"

namespace snippetarium {

namespace {

using enum SearchText;

constexpr std::string_view kUnion = " UNION ";
constexpr std::string_view kClassLanguage = "cls.languageID = ";
constexpr std::string_view kOwnLanguage = "cl.languageID = ";

/// The SELECTs of a statement with a language. Scripts have two for their procedures.
struct LanguageTexts {
    SearchText pages;
    SearchText scripts;
    SearchText scriptsBesides;
    SearchText others;
    std::optional<SearchText> classes;
};

// clang-format off
constexpr LanguageTexts kCode = {CodeProceduresOnPages, CodeProceduresByClassLanguage, CodeProceduresByOwnLanguage, CodeProceduresByClassLanguage, std::nullopt};
constexpr LanguageTexts kPhrase = {PhraseProceduresWithLanguage, PhraseProceduresWithLanguage, PhraseProceduresByClassLanguage, PhraseProceduresByClassLanguage, PhraseClassesByLanguage};
constexpr LanguageTexts kOr = {OrProceduresOnPages, OrProceduresByOwnLanguage, OrProceduresByClassLanguageBesides, OrProceduresByClassLanguage, OrClassesByLanguage};
constexpr LanguageTexts kAnd = {AndProceduresWithLanguage, AndProceduresWithLanguage, AndProceduresByClassLanguage, AndProceduresByClassLanguage, AndClassesByLanguage};
constexpr LanguageTexts kAuthor = {AuthorProceduresOnPages, AuthorProceduresByOwnLanguage, AuthorProceduresByClassLanguage, AuthorProceduresByClassLanguage, AuthorClassesByLanguage};
constexpr LanguageTexts kDate = {DateProceduresOnPages, DateProceduresByOwnLanguage, DateProceduresByClassLanguage, DateProceduresByClassLanguage, DateClassesByLanguage};
// clang-format on

/// The statement for a language. `select` makes one SELECT of a text and the column that is to have
/// the language, for those texts that do not end with it.
template <typename Select>
std::string StatementByLanguage(const LanguageTexts& texts, std::int16_t languageID,
                                Select&& select) {
    std::string sql;
    switch (FamilyOf(languageID)) {
        case LanguageFamily::Pages:
            sql = select(texts.pages, kClassLanguage);
            break;
        case LanguageFamily::Scripts:
            sql = Sql(select(texts.scripts, kOwnLanguage), kUnion,
                      select(texts.scriptsBesides, kClassLanguage));
            break;
        case LanguageFamily::Others:
            sql = select(texts.others, kClassLanguage);
            break;
    }
    if (texts.classes) sql += Sql(kUnion, select(*texts.classes, kClassLanguage));
    return sql + ";";
}

/// For texts that end with the comparison of the language.
std::string StatementWithCondition(const LanguageTexts& texts, std::int16_t languageID,
                                   std::string_view condition) {
    return StatementByLanguage(texts, languageID, [&](SearchText text, std::string_view) {
        return Sql(TextOf(text), std::int32_t{languageID}, " AND (", condition, ")");
    });
}

/// Two brackets more are open for each join.
std::string OpenBrackets(std::string_view statement, std::size_t joinCount) {
    constexpr std::string_view kFirstTable = "(tblApplication";
    return ReplaceAll(statement, kFirstTable,
                      std::string(2 * joinCount, '(') + std::string(kFirstTable));
}

}  // namespace

std::string CodeTextStatement(std::string_view condition) {
    return Sql(TextOf(CodeProcedures), condition, ";");
}

std::string CodeTextStatement(std::string_view condition, std::int16_t languageID) {
    return StatementWithCondition(kCode, languageID, condition);
}

std::string KeywordPhraseStatement(std::string_view where) {
    return Sql(TextOf(PhraseProcedures), where, kUnion, TextOf(PhraseApplications), where, kUnion,
               TextOf(PhraseClasses), where, ";");
}

std::string KeywordPhraseStatement(std::string_view where, std::int16_t languageID) {
    return StatementByLanguage(kPhrase, languageID, [&](SearchText text, std::string_view column) {
        return Sql(TextOf(text), where, " AND ", column, std::int32_t{languageID});
    });
}

std::string IndexWordStatement(std::string_view word) {
    const std::string quoted = DoubleSingleQuotes(word) + "'";
    return Sql(TextOf(IndexProcedures), quoted, kUnion, TextOf(IndexApplications), quoted, kUnion,
               TextOf(IndexClasses), quoted, ";");
}

std::string KeywordOrStatement(std::string_view condition) {
    return Sql(TextOf(OrProcedures), condition, kUnion, TextOf(OrApplications), condition, kUnion,
               TextOf(OrClasses), condition, ";");
}

std::string KeywordOrStatement(std::string_view condition, std::int16_t languageID) {
    return StatementWithCondition(kOr, languageID, condition);
}

std::string KeywordAndStatement(const KeywordAndCondition& condition) {
    const std::string_view text = condition.text;
    return OpenBrackets(Sql(TextOf(AndProcedures), text, ")", kUnion, TextOf(AndApplications), text,
                            ")", kUnion, TextOf(AndClasses), text, ");"),
                        condition.partCount);
}

std::string KeywordAndStatement(const KeywordAndCondition& condition, std::int16_t languageID) {
    const std::string statement =
        StatementByLanguage(kAnd, languageID, [&](SearchText text, std::string_view column) {
            return Sql(TextOf(text), condition.text, ") AND ", column, std::int32_t{languageID});
        });
    return OpenBrackets(statement, condition.partCount);
}

std::string AuthorStatement(std::string_view condition) {
    return Sql(TextOf(AuthorProcedures), condition, kUnion, TextOf(AuthorApplications), condition,
               kUnion, TextOf(AuthorClasses), condition, ";");
}

std::string AuthorStatement(std::string_view condition, std::int16_t languageID) {
    return StatementWithCondition(kAuthor, languageID, condition);
}

std::string DateRangeStatement(const DateRange& range) {
    const std::string dates = Sql(IsoText(range.from), "# AND #", IsoText(range.to), "#");
    return Sql(TextOf(DateProcedures), dates, " ", kUnion, TextOf(DateApplications), dates, " ",
               kUnion, TextOf(DateClasses), dates, ";");
}

std::string DateRangeStatement(const DateRange& range, std::int16_t languageID) {
    const std::string dates = Sql(IsoText(range.from), "# AND #", IsoText(range.to), "# AND ");
    return StatementByLanguage(kDate, languageID, [&](SearchText text, std::string_view column) {
        return Sql(TextOf(text), dates, column, std::int32_t{languageID});
    });
}

}  // namespace snippetarium
