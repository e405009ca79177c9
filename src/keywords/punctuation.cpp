#include "keywords/punctuation.h"

#include <array>
#include <cstddef>

namespace snippetarium {

namespace {

// A quote counts only at the edge of a word, as "'' " and " ''": inside it is an apostrophe. The
// three entries with quotes stand behind the punctuation after which such an edge may come. The
// acute accent stands alone only with a blank behind it.
// clang-format off
constexpr std::array<std::string_view, 40> kPunctuation = {
    ",",
    ".",
    ";",
    ":",
    "/",
    "\"",
    "!",
    "?",
    "`",
    "\xC2\xB4 ",     // acute accent and blank
    "~",
    "\t",
    "-",
    "_",
    "@",
    "#",
    "$",
    "%",
    "^",
    "&",
    "*",
    "(",
    ")",
    "+",
    "=",
    "|",
    "{",
    "[",
    "]",
    "}",
    "<",
    ">",
    "\r\n",
    "''''",
    "'' ",
    " ''",
    "\\",
    "\xE2\x80\x9C",  // left double quotation mark
    "\xE2\x80\x9D",  // right double quotation mark
    "\xE2\x80\x93",  // en dash
};
// clang-format on

constexpr std::string_view kBlanks = "    ";

}  // namespace

std::span<const std::string_view> Punctuation() {
    return kPunctuation;
}

std::string ReplacePunctuation(std::string_view doubledText, BlankWidth width) {
    std::string text(doubledText);
    for (const std::string_view entry : kPunctuation) {
        const std::string_view blanks =
            kBlanks.substr(0, width == BlankWidth::One ? 1 : entry.size());
        for (std::size_t at = text.find(entry); at != std::string::npos;
             at = text.find(entry, at + blanks.size()))
            text.replace(at, entry.size(), blanks);
    }
    return text;
}

}  // namespace snippetarium
