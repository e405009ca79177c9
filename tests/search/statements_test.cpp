#include "search/statements.h"

#include <gtest/gtest.h>

#include "search/statement_texts.h"
#include "tests/search/statement_table.h"

namespace snippetarium::test {
namespace {

using Languages = std::initializer_list<std::int16_t>;

constexpr DateRange kMarch = {{2001, 3, 1}, {2001, 3, 31, 23, 59, 59}};

TEST(StatementTexts, AreThoseOfTheTable) {
    const std::vector<std::pair<SearchText, std::string_view>> texts = {
#define SEARCH_TEXT(name, text) {SearchText::name, #name},
#include "search/statement_texts.inc"
#undef SEARCH_TEXT
    };
    const auto table = StatementTable();
    ASSERT_EQ(table.size(), 41U);
    ASSERT_EQ(texts.size(), table.size());
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(texts[i].second, table[i].first);
        EXPECT_EQ(TextOf(texts[i].first), table[i].second) << table[i].first;
    }
}

TEST(Statements, WithoutALanguageLookAtTheLevelsOneAfterTheOther) {
    const KeywordAndCondition and2 = {"(tblX) WHERE (c", 0};
    const struct {
        std::string statement;
        std::string_view expected;
    } cases[] = {
        {CodeTextStatement("c"), "{CodeProcedures}c;"},
        {KeywordPhraseStatement(" WHERE w"),
         "{PhraseProcedures} WHERE w UNION {PhraseApplications} WHERE w UNION {PhraseClasses} "
         "WHERE w;"},
        {IndexWordStatement("don't"),
         "{IndexProcedures}don''t' UNION {IndexApplications}don''t' UNION "
         "{IndexClasses}don''t';"},
        {KeywordOrStatement("c "),
         "{OrProcedures}c  UNION {OrApplications}c  UNION {OrClasses}c ;"},
        {KeywordAndStatement(and2),
         "{AndProcedures}(tblX) WHERE (c) UNION {AndApplications}(tblX) WHERE (c) UNION "
         "{AndClasses}(tblX) WHERE (c);"},
        {AuthorStatement("c"),
         "{AuthorProcedures}c UNION {AuthorApplications}c UNION {AuthorClasses}c;"},
        {DateRangeStatement(kMarch),
         "{DateProcedures}2001-03-01# AND #2001-03-31 23:59:59#  UNION {DateApplications}"
         "2001-03-01# AND #2001-03-31 23:59:59#  UNION {DateClasses}2001-03-01# AND #2001-03-31 "
         "23:59:59#;"},
    };
    for (const auto& [statement, expected] : cases)
        EXPECT_EQ(statement, Spelled(std::string(expected)));
}

/// The statements for a language of each family; "#" stands for its number.
struct ByLanguage {
    std::string (*build)(std::int16_t languageID);
    std::string_view pages;
    std::string_view scripts;
    std::string_view others;
};

const ByLanguage kByLanguage[] = {
    {[](std::int16_t language) { return CodeTextStatement("c", language); },
     "{CodeProceduresOnPages}# AND (c);",
     "{CodeProceduresByClassLanguage}# AND (c) UNION {CodeProceduresByOwnLanguage}# AND (c);",
     "{CodeProceduresByClassLanguage}# AND (c);"},
    {[](std::int16_t language) { return KeywordPhraseStatement(" WHERE w", language); },
     "{PhraseProceduresWithLanguage} WHERE w AND cls.languageID = # UNION "
     "{PhraseClassesByLanguage} WHERE w AND cls.languageID = #;",
     "{PhraseProceduresWithLanguage} WHERE w AND cl.languageID = # UNION "
     "{PhraseProceduresByClassLanguage} WHERE w AND cls.languageID = # UNION "
     "{PhraseClassesByLanguage} WHERE w AND cls.languageID = #;",
     "{PhraseProceduresByClassLanguage} WHERE w AND cls.languageID = # UNION "
     "{PhraseClassesByLanguage} WHERE w AND cls.languageID = #;"},
    {[](std::int16_t language) { return KeywordOrStatement("c", language); },
     "{OrProceduresOnPages}# AND (c) UNION {OrClassesByLanguage}# AND (c);",
     "{OrProceduresByOwnLanguage}# AND (c) UNION {OrProceduresByClassLanguageBesides}# AND (c) "
     "UNION {OrClassesByLanguage}# AND (c);",
     "{OrProceduresByClassLanguage}# AND (c) UNION {OrClassesByLanguage}# AND (c);"},
    {[](std::int16_t language) {
         return KeywordAndStatement({" WHERE (c", 0}, language);
     },
     "{AndProceduresWithLanguage} WHERE (c) AND cls.languageID = # UNION {AndClassesByLanguage} "
     "WHERE (c) AND cls.languageID = #;",
     "{AndProceduresWithLanguage} WHERE (c) AND cl.languageID = # UNION "
     "{AndProceduresByClassLanguage} WHERE (c) AND cls.languageID = # UNION "
     "{AndClassesByLanguage} WHERE (c) AND cls.languageID = #;",
     "{AndProceduresByClassLanguage} WHERE (c) AND cls.languageID = # UNION "
     "{AndClassesByLanguage} WHERE (c) AND cls.languageID = #;"},
    {[](std::int16_t language) { return AuthorStatement("c", language); },
     "{AuthorProceduresOnPages}# AND (c) UNION {AuthorClassesByLanguage}# AND (c);",
     "{AuthorProceduresByOwnLanguage}# AND (c) UNION {AuthorProceduresByClassLanguage}# AND (c) "
     "UNION {AuthorClassesByLanguage}# AND (c);",
     "{AuthorProceduresByClassLanguage}# AND (c) UNION {AuthorClassesByLanguage}# AND (c);"},
    {[](std::int16_t language) {
         return DateRangeStatement({{2001, 3, 1}, {2001, 3, 31}}, language);
     },
     "{DateProceduresOnPages}2001-03-01# AND #2001-03-31# AND cls.languageID = @ UNION "
     "{DateClassesByLanguage}2001-03-01# AND #2001-03-31# AND cls.languageID = @;",
     "{DateProceduresByOwnLanguage}2001-03-01# AND #2001-03-31# AND cl.languageID = @ UNION "
     "{DateProceduresByClassLanguage}2001-03-01# AND #2001-03-31# AND cls.languageID = @ UNION "
     "{DateClassesByLanguage}2001-03-01# AND #2001-03-31# AND cls.languageID = @;",
     "{DateProceduresByClassLanguage}2001-03-01# AND #2001-03-31# AND cls.languageID = @ UNION "
     "{DateClassesByLanguage}2001-03-01# AND #2001-03-31# AND cls.languageID = @;"},
};

/// "@", or "#" where no date stands in the statement, becomes the language's number.
std::string ForLanguage(std::string_view pattern, std::int16_t languageID) {
    const char place = pattern.find('@') == std::string_view::npos ? '#' : '@';
    std::string statement;
    for (const char character : pattern)
        statement += character == place ? std::to_string(languageID) : std::string(1, character);
    return Spelled(statement);
}

TEST(Statements, WithALanguageFollowItsFamily) {
    for (const ByLanguage& test : kByLanguage) {
        for (const std::int16_t language : Languages{6, 9})
            EXPECT_EQ(test.build(language), ForLanguage(test.pages, language));
        for (const std::int16_t language : Languages{7, 8})
            EXPECT_EQ(test.build(language), ForLanguage(test.scripts, language));
        for (const std::int16_t language : Languages{1, 2, 5, 10, 32767})
            EXPECT_EQ(test.build(language), ForLanguage(test.others, language));
    }
}

TEST(Statements, OpenTwoBracketsForEachJoinOfKeywords) {
    const KeywordAndCondition condition = {" joins WHERE (c", 2};
    const auto count = [](const std::string& text, std::string_view what) {
        int found = 0;
        for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; ++at)
            ++found;
        return found;
    };
    for (const std::string& statement :
         {KeywordAndStatement(condition), KeywordAndStatement(condition, 7)}) {
        EXPECT_EQ(count(statement, "(((((tblApplication"), 3) << statement;
        EXPECT_EQ(count(statement, "(tblApplication"), 3) << statement;
    }
    EXPECT_EQ(KeywordAndStatement({" WHERE (c", 0}).find("(((((tblApplication"), std::string::npos);
}

}  // namespace
}  // namespace snippetarium::test
