#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "search/expression.h"
#include "support/calendar.h"

namespace snippetarium {

// The search statements, put together from the fixed texts (search/statement_texts.h) and what is
// searched for. Each is up to three SELECTs, one for each level of the catalogue, joined by UNION.
//
// With a language, applications are never found, classes by their own language, and procedures so:
//
//   pages (6, 9)     those that have a language, by the language of their class
//   scripts (7, 8)   by their own language or that of their class, since scripts stand in pages
//   all others       by the language of their class
//
// A condition is the text that search/expression.h makes. The functions are pure; only a lack of
// memory can make them fail.

std::string CodeTextStatement(std::string_view condition);
std::string CodeTextStatement(std::string_view condition, std::int16_t languageID);

/// `where` begins with " WHERE ".
std::string KeywordPhraseStatement(std::string_view where);
std::string KeywordPhraseStatement(std::string_view where, std::int16_t languageID);

/// Everything whose keywords hold exactly this word.
std::string IndexWordStatement(std::string_view word);

std::string KeywordOrStatement(std::string_view condition);
std::string KeywordOrStatement(std::string_view condition, std::int16_t languageID);

std::string KeywordAndStatement(const KeywordAndCondition& condition);
std::string KeywordAndStatement(const KeywordAndCondition& condition, std::int16_t languageID);

/// Without a language no brackets stand around the condition, so that of its comparisons after the
/// first "OR" each holds by itself: an owner of another level that has the same number is found
/// too.
std::string AuthorStatement(std::string_view condition);
std::string AuthorStatement(std::string_view condition, std::int16_t languageID);

/// Both ends included. Nothing lies in a range that ends before it begins.
struct DateRange {
    DateTime from;
    DateTime to;
};
std::string DateRangeStatement(const DateRange& range);
std::string DateRangeStatement(const DateRange& range, std::int16_t languageID);

}  // namespace snippetarium
