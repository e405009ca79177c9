#include "engine/sql_tokens.h"

#include <algorithm>
#include <iterator>

#include "engine/engine_error.h"

namespace snippetarium {

namespace {

struct ForeignSyntax {
    std::string_view sign;
    const char* advice;
};

// clang-format off
constexpr ForeignSyntax kForeignSyntax[] = {
    {"\"", "texts stand between single quotation marks and names between square brackets"},
    {"`",  "names stand between square brackets"},
    {"--", "comments are not allowed; put a blank between two minus signs"},
    {"/*", "comments are not allowed"},
    {"?",  "parameters are names between square brackets"},
    {"@",  "parameters are names between square brackets"},
    {"$",  "parameters are names between square brackets"},
    {":",  "parameters are names between square brackets"},
    // To some readers it joins texts, to the engine below it is an operation on bits.
    {"&",  "texts are joined by ||"},
    // The engine below takes it for a blank, a reader sees nothing at all.
    {"\xEF\xBB\xBF", "remove the invisible byte-order mark"},
};

constexpr std::string_view kJoinWords[] = {
    "JOIN", "INNER", "LEFT", "RIGHT", "FULL", "OUTER", "CROSS", "NATURAL",
};
constexpr std::string_view kWordsOfSubSelects[] = {"SELECT", "VALUES"};
constexpr std::string_view kWordsBehindFrom[] = {
    "WHERE", "GROUP", "HAVING", "ORDER", "LIMIT", "UNION", "INTERSECT", "EXCEPT",
};
// clang-format on

bool IsWhiteSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < 0x20U || c == '\x7F';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

char ToUpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsWordByte(char c) {
    const char upper = ToUpperAscii(c);
    return (upper >= 'A' && upper <= 'Z') || IsDigit(c) || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80U;
}

template <std::size_t count>
bool IsOneOf(const SqlToken& token, const std::string_view (&words)[count]) {
    return std::any_of(std::begin(words), std::end(words),
                       [&](std::string_view word) { return token.IsWord(word); });
}

}  // namespace

bool SqlToken::IsWord(std::string_view keyword) const {
    return kind == SqlTokenKind::Word && IsSameSqlName(text, keyword);
}

std::string_view SqlToken::Unquoted() const {
    const bool isQuoted = kind == SqlTokenKind::QuotedName || kind == SqlTokenKind::Date;
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

bool IsJoinWord(const SqlToken& token) {
    return IsOneOf(token, kJoinWords);
}

bool StartsSubSelect(const SqlToken& token) {
    return IsOneOf(token, kWordsOfSubSelects);
}

bool EndsFromClause(const SqlToken& token) {
    return IsOneOf(token, kWordsBehindFrom);
}

bool IsSameSqlName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return ToUpperAscii(x) == ToUpperAscii(y); });
}

SqlToken SqlLexer::Next() {
    SkipWhiteSpace();
    if (offset_ == statement_.size()) return {SqlTokenKind::End, {}, offset_};
    const char first = statement_[offset_];
    if (first == '\'') return Take(SqlTokenKind::Text, EndOfText());
    if (first == '#') return Take(SqlTokenKind::Date, EndOfQuoted('#', "date"));
    if (first == '[') return Take(SqlTokenKind::QuotedName, EndOfQuoted(']', "name"));
    if (IsDigit(first) || (first == '.' && IsDigit(At(offset_ + 1)))) {
        return Take(SqlTokenKind::Number, EndOfNumber());
    }
    RefuseForeignSyntax();
    if (IsWordByte(first)) return Take(SqlTokenKind::Word, EndOfWord(offset_));
    return Take(SqlTokenKind::Symbol, offset_ + 1);
}

void SqlLexer::SkipWhiteSpace() {
    while (offset_ < statement_.size() && IsWhiteSpace(statement_[offset_]))
        ++offset_;
}

void SqlLexer::RefuseForeignSyntax() const {
    const std::string_view rest = statement_.substr(offset_);
    if (IsControl(rest[0])) ThrowSyntaxError(offset_, "remove the control character");
    for (const ForeignSyntax& foreign : kForeignSyntax) {
        if (rest.starts_with(foreign.sign)) ThrowSyntaxError(offset_, foreign.advice);
    }
}

std::size_t SqlLexer::EndOfWord(std::size_t from) const {
    while (from < statement_.size() && IsWordByte(statement_[from]))
        ++from;
    return from;
}

std::size_t SqlLexer::EndOfNumber() const {
    std::size_t end = offset_;
    const auto skipDigits = [&] {
        while (IsDigit(At(end)))
            ++end;
    };
    skipDigits();
    if (At(end) == '.') {
        ++end;
        skipDigits();
    }
    if (ToUpperAscii(At(end)) == 'E') {
        const bool isSigned = At(end + 1) == '+' || At(end + 1) == '-';
        const std::size_t digits = end + (isSigned ? 2 : 1);
        if (IsDigit(At(digits))) {
            end = digits;
            skipDigits();
        }
    }
    return EndOfWord(end);
}

std::size_t SqlLexer::EndOfText() const {
    std::size_t end = offset_ + 1;
    while (true) {
        end = statement_.find('\'', end);
        if (end == std::string_view::npos) {
            ThrowSyntaxError(offset_, "the text that begins here has no closing quotation mark");
        }
        if (At(end + 1) != '\'') return end + 1;
        // A doubled quotation mark stands for one in the text; where there is one there are often
        // more, and to step over them costs less than a search for each.
        do {
            end += 2;
        } while (At(end) == '\'' && At(end + 1) == '\'');
    }
}

std::size_t SqlLexer::EndOfQuoted(char closer, const char* what) const {
    const std::size_t end = statement_.find(closer, offset_ + 1);
    if (end == std::string_view::npos) {
        ThrowSyntaxError(offset_, std::string("the ") + what +
                                      " that begins here has no closing '" + closer + "'");
    }
    return end + 1;
}

SqlToken SqlLexer::Take(SqlTokenKind kind, std::size_t end) {
    const SqlToken token{kind, statement_.substr(offset_, end - offset_), offset_};
    offset_ = end;
    return token;
}

void ThrowSyntaxError(std::size_t offset, const std::string& reason) {
    throw EngineError(EngineErrorCode::Syntax, "Syntax error in the statement at position " +
                                                   std::to_string(offset + 1) + ": " + reason +
                                                   ".");
}

}  // namespace snippetarium
