#pragma once

#include <cstdint>
#include <string_view>

namespace snippetarium {

// The fixed parts of the search statements. A topic is found on one of three levels, and each level
// has a SELECT of its own, whose name here begins with what is searched:
//
//   ...Applications   an application; 0 and 'N/A' stand in the columns of class and procedure
//   ...Classes        a class; 0 and 'N/A' stand in those of the procedure
//   ...Procedures     a procedure; all six columns are filled
//
// "ByOwnLanguage" asks for the language of the procedure, "ByClassLanguage" for that of its class.

enum class SearchText : std::uint8_t {
#define SEARCH_TEXT(name, text) name,
#include "search/statement_texts.inc"
#undef SEARCH_TEXT
};

std::string_view TextOf(SearchText text);

}  // namespace snippetarium
