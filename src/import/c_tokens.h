#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "import/text_range.h"

namespace snippetarium {

// C and C++ text as the scanner of definitions sees it: tokens, with comments and preprocessor
// directives set aside. Everything keeps its place in the text, so that what is found can be cut
// out of the file byte for byte.

enum class CDialect { C, Cpp };

enum class CTokenKind : std::uint8_t {
    Word,  ///< an identifier or keyword; a byte above 127 counts as a letter
    Number,
    Literal,      ///< a string or character literal, with its prefix and quotes
    Punctuation,  ///< one byte of anything else
};

struct CToken {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    CTokenKind kind = CTokenKind::Punctuation;
    /// Does not count for the scanner: a macro in front of a declaration, or a branch of an #if
    /// that would upset the brackets.
    bool isMasked = false;
};

enum class CDirectiveKind : std::uint8_t { If, Else, EndIf, Other };

/// A directive with its continuation lines. #elif is an Else.
struct CDirective {
    CDirectiveKind kind = CDirectiveKind::Other;
    /// What follows #if, #ifdef (as "ifdef X") and #elif, up to the end of the line.
    std::string_view condition = {};
    /// How many tokens stand before it.
    std::uint32_t tokensBefore = 0;
};

struct CTokens {
    std::string_view text = {};
    std::vector<CToken> tokens = {};
    std::vector<TextRange> comments = {};
    std::vector<CDirective> directives = {};

    std::string_view TextOf(const CToken& token) const {
        return text.substr(token.begin, token.end - token.begin);
    }
};

/// Takes any bytes. A literal that is not closed ends with its line, a comment that is not closed
/// with the text. The text has to outlive the result, and to be shorter than 4 GiB; a longer one
/// has no tokens.
CTokens TokeniseC(std::string_view text, CDialect dialect);

}  // namespace snippetarium
