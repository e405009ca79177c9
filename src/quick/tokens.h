#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "quick/query.h"

namespace snippetarium {

/// A part of a quick search's entry, as the parser reads it.
struct QuickToken {
    enum class Type : std::uint8_t { Text, Open, Close, And, Or, Not, End };
    Type type = Type::End;
    /// Its first byte in the entry, from 1.
    std::size_t place = 0;
    /// For a text, and for an opening bracket with a filter before it.
    std::optional<QuickField> filter;
    std::string text;
    bool isPhrase = false;
    /// False for a phrase whose second quotation mark is missing.
    bool isClosed = true;
};

/// Cuts an entry into tokens.
class QuickTokens {
  public:
    explicit QuickTokens(std::string_view entry) : entry_(entry) { Advance(); }

    const QuickToken& Current() const { return current_; }
    void Advance();

  private:
    void SkipWhiteSpace();
    void ReadPhrase();
    void ReadWord();
    bool IsMinus() const;

    std::string_view entry_;
    std::size_t position_ = 0;
    QuickToken current_;
};

}  // namespace snippetarium
