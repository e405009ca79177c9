#include "search/statement_texts.h"

#include <cstddef>

namespace snippetarium {

namespace {

constexpr std::string_view kTexts[] = {
#define SEARCH_TEXT(name, text) text,
#include "search/statement_texts.inc"
#undef SEARCH_TEXT
};

}  // namespace

std::string_view TextOf(SearchText text) {
    return kTexts[static_cast<std::size_t>(text)];
}

}  // namespace snippetarium
