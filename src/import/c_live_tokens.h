#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "import/c_tokens.h"

namespace snippetarium {

/// The tokens that are not masked at the time it is made, counted from 0, with the brackets paired.
/// An index behind the last token is allowed everywhere and is no token.
class CLiveTokens {
  public:
    /// `tokens` has to outlive this.
    explicit CLiveTokens(const CTokens& tokens);

    std::size_t Size() const { return live_.size(); }
    const CToken& operator[](std::size_t i) const { return tokens_.tokens[live_[i]]; }
    /// Its place among all tokens.
    std::size_t PlaceOf(std::size_t i) const { return live_[i]; }

    std::string_view Text(std::size_t i) const;
    bool IsKind(std::size_t i, CTokenKind kind) const;
    bool IsWord(std::size_t i) const { return IsKind(i, CTokenKind::Word); }
    bool IsWord(std::size_t i, std::string_view word) const { return IsWord(i) && Text(i) == word; }
    /// Is it this character of punctuation?
    bool Is(std::size_t i, char character) const {
        return i < signs_.size() && signs_[i] == character;
    }
    /// Is it punctuation, and one of these characters?
    bool IsAnyOf(std::size_t i, std::string_view characters) const {
        const char sign = i < signs_.size() ? signs_[i] : '\0';
        if (sign == '\0') return false;
        for (const char character : characters) {
            if (character == sign) return true;
        }
        return false;
    }
    /// Do two colons start here?
    bool IsScope(std::size_t i) const { return Is(i, ':') && Is(i + 1, ':'); }

    /// The bracket that closes this opening one; Size() where none does. Brackets of different
    /// kinds nest: one that is still open where the braces around it close is never closed. A "<"
    /// counts as a bracket where a ">" comes before the next brace or semicolon.
    std::size_t Closing(std::size_t i) const { return closing_[i]; }
    /// Is this a bracket of that kind, and closed?
    bool Opens(std::size_t i, char bracket) const { return Is(i, bracket) && Closing(i) < Size(); }
    /// The "<" that this ">" closes, looked for down to `first`; `first` where there is none.
    std::size_t OpeningAngle(std::size_t i, std::size_t first) const;

  private:
    void PairBrackets();
    bool IsComparison(std::size_t i) const;

    const CTokens& tokens_;
    std::vector<std::uint32_t> live_;
    /// The characters of those that are punctuation, '\0' for the others: what is asked for most.
    std::string signs_;
    std::vector<std::uint32_t> closing_;
};

}  // namespace snippetarium
