#include "keywords/punctuation.h"

#include <array>
#include <cstddef>

#include "support/text.h"

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

std::string ReplacePunctuation(std::string_view doubledText, BlankWidth width) {
    std::string text(doubledText);
    for (const std::string_view entry : kPunctuation) {
        if (text.find(entry) == std::string::npos) continue;  // most do not occur: spare the copy
        text =
            ReplaceAll(text, entry, kBlanks.substr(0, width == BlankWidth::One ? 1 : entry.size()));
    }
    return text;
}

std::string BlankOutPunctuation(std::string_view doubledKeyword) {
    std::string blanked = ReplacePunctuation(doubledKeyword, BlankWidth::Same);
    if (blanked.starts_with("''")) blanked.replace(0, 2, "  ");  // as NormaliseWords drops them
    return blanked;
}

}  // namespace snippetarium
