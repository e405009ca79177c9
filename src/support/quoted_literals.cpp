#include "support/quoted_literals.h"

#include <algorithm>
#include <cstddef>

namespace snippetarium {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

struct Literal {
    std::size_t begin = kNone;  ///< the opening quote; npos when there is no quote any more
    std::size_t end = kNone;    ///< behind the closing quote; npos when nothing closes it
};

bool IsEscaped(std::string_view text, std::size_t quote) {
    std::size_t runBegin = quote;
    while (runBegin > 0 && text[runBegin - 1] == '\\')
        --runBegin;
    return (quote - runBegin) % 2 == 1;
}

/// The literal whose opening quote is the first quote at or after the offset `from`.
Literal NextLiteral(std::string_view text, std::size_t from) {
    const auto opening = std::find_if(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(),
                                      [](char c) { return c == '"' || c == '\''; });
    if (opening == text.end()) return {};
    Literal literal;
    literal.begin = static_cast<std::size_t>(opening - text.begin());
    // The opening quote stops the look back for backslashes: those before it do not count.
    std::size_t closing = text.find(*opening, literal.begin + 1);
    while (closing != kNone && IsEscaped(text, closing))
        closing = text.find(*opening, closing + 1);
    if (closing != kNone) literal.end = closing + 1;
    return literal;
}

}  // namespace

std::string RemoveQuotedLiterals(std::string_view text) {
    std::string outside;
    std::size_t position = 0;
    for (Literal literal = NextLiteral(text, position); literal.end != kNone;
         literal = NextLiteral(text, position)) {
        outside.append(text, position, literal.begin - position);
        position = literal.end;
    }
    outside.append(text, position);
    return outside;
}

bool HasQuoteOutsideLiterals(std::string_view text) {
    Literal literal = NextLiteral(text, 0);
    while (literal.end != kNone)
        literal = NextLiteral(text, literal.end);
    return literal.begin != kNone;
}

}  // namespace snippetarium
