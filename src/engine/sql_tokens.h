#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace snippetarium {

enum class SqlTokenKind : std::uint8_t {
    End,
    Word,        // a keyword or a plain name
    QuotedName,  // [name]
    Text,        // 'it''s'
    Date,        // #2001-03-14#
    Number,      // 12, 1.5e3, and what only looks like one: 0x1F, 12abc
    Symbol,      // any other single byte
};

/// One token of a statement: a part of the statement's text, which must outlive it.
struct SqlToken {
    SqlTokenKind kind = SqlTokenKind::End;
    std::string_view text;   // as it stands, delimiters included
    std::size_t offset = 0;  // of its first byte in the statement, from 0

    std::size_t EndOffset() const { return offset + text.size(); }
    bool Is(char symbol) const { return kind == SqlTokenKind::Symbol && text[0] == symbol; }
    /// Letter case does not count; `keyword` is written in capitals.
    bool IsWord(std::string_view keyword) const;
    bool IsName() const { return kind == SqlTokenKind::Word || kind == SqlTokenKind::QuotedName; }
    /// A name without its square brackets, the content of a date literal without its signs.
    std::string_view Unquoted() const;
};

/// JOIN and the words that stand before it.
bool IsJoinWord(const SqlToken& token);
/// The first word of a sub-select.
bool StartsSubSelect(const SqlToken& token);
/// WHERE and the other words that end a FROM clause.
bool EndsFromClause(const SqlToken& token);
/// Names in statements are compared without regard to the case of ASCII letters.
bool IsSameSqlName(std::string_view a, std::string_view b);

/// Cuts a statement of the catalogue's dialect into tokens. A cheap value: a copy looks ahead.
///
/// It refuses what the dialect does not have but the engine below would read in its own way:
/// comments, double quotation marks and backticks around names, the engine's own parameter signs.
class SqlLexer {
  public:
    explicit SqlLexer(std::string_view statement) : statement_(statement) {}

    /// The next token; at the end always an End token. Throws EngineError (Syntax) for what is
    /// refused and for a literal or name without its closing sign.
    SqlToken Next();

  private:
    void SkipWhiteSpace();
    void RefuseForeignSyntax() const;
    std::size_t EndOfWord(std::size_t from) const;
    std::size_t EndOfNumber() const;
    std::size_t EndOfText() const;
    std::size_t EndOfQuoted(char closer, const char* what) const;
    SqlToken Take(SqlTokenKind kind, std::size_t end);
    char At(std::size_t offset) const {
        return offset < statement_.size() ? statement_[offset] : '\0';
    }

    std::string_view statement_;
    std::size_t offset_ = 0;
};

/// Throws the EngineError (Syntax) that tells the user the place, 1-based in bytes, and the reason.
[[noreturn]] void ThrowSyntaxError(std::size_t offset, const std::string& reason);

}  // namespace snippetarium
