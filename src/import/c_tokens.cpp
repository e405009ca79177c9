#include "import/c_tokens.h"

#include <algorithm>
#include <limits>
#include <string>

#include "import/source_words.h"

namespace snippetarium {

namespace {

/// Compilers take "$" for a letter.
bool IsNamePart(char character) {
    return IsWordPart(character) || character == '$';
}

bool IsNameStart(char character) {
    return IsNamePart(character) && !IsDigit(character);
}

bool IsRawPrefix(std::string_view word) {
    return word == "R" || word == "LR" || word == "uR" || word == "UR" || word == "u8R";
}

bool IsPlainPrefix(std::string_view word) {
    return word == "L" || word == "u" || word == "U" || word == "u8";
}

CDirectiveKind DirectiveKindOf(std::string_view name) {
    if (name == "if" || name == "ifdef" || name == "ifndef") return CDirectiveKind::If;
    if (name == "else" || name == "elif" || name == "elifdef" || name == "elifndef") {
        return CDirectiveKind::Else;
    }
    return name == "endif" ? CDirectiveKind::EndIf : CDirectiveKind::Other;
}

class Tokeniser {
  public:
    Tokeniser(std::string_view text, CDialect dialect) : text_(text), dialect_(dialect) {
        result_.text = text;
        result_.tokens.reserve(text.size() / 5);
    }

    CTokens Run() {
        while (at_ < text_.size())
            Step();
        return std::move(result_);
    }

  private:
    char Peek(std::size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
    }

    void Step() {
        const char character = text_[at_];
        if (character == '\n') {
            isLineStart_ = true;
            ++at_;
        } else if (IsBlank(character)) {
            ++at_;
        } else if (SkipComment()) {
            // A comment in front of a directive leaves it one.
        } else if (character == '#' && isLineStart_) {
            ReadDirective();
        } else {
            isLineStart_ = false;
            ReadToken(character);
        }
    }

    void ReadToken(char character) {
        const std::size_t begin = at_;
        if (IsNameStart(character)) {
            ReadWord();
        } else if (IsDigit(character)) {
            ReadNumber();
        } else if (character == '"' || character == '\'') {
            SkipQuoted(character);
            Add(begin, CTokenKind::Literal);
        } else {
            ++at_;
            Add(begin, CTokenKind::Punctuation);
        }
    }

    void Add(std::size_t begin, CTokenKind kind) {
        result_.tokens.push_back(
            {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(at_), kind});
    }

    void ReadWord() {
        const std::size_t begin = at_;
        while (at_ < text_.size() && IsNamePart(text_[at_]))
            ++at_;
        const std::string_view word = text_.substr(begin, at_ - begin);
        if (Peek() == '"' && dialect_ == CDialect::Cpp && IsRawPrefix(word)) {
            SkipRawString();
            Add(begin, CTokenKind::Literal);
        } else if ((Peek() == '"' || Peek() == '\'') && IsPlainPrefix(word)) {
            SkipQuoted(Peek());
            Add(begin, CTokenKind::Literal);
        } else {
            Add(begin, CTokenKind::Word);
        }
    }

    /// A quote between digits separates them.
    void ReadNumber() {
        const std::size_t begin = at_;
        while (at_ < text_.size() && (IsNamePart(text_[at_]) || text_[at_] == '.' ||
                                      (text_[at_] == '\'' && IsNamePart(Peek(1))))) {
            ++at_;
        }
        Add(begin, CTokenKind::Number);
    }

    /// From the opening quote to behind the closing one, or to the end of the line.
    void SkipQuoted(char quote) {
        ++at_;
        while (at_ < text_.size() && text_[at_] != '\n') {
            const char character = text_[at_++];
            if (character == quote) return;
            if (character == '\\') SkipEscaped();
        }
    }

    /// What a backslash takes its meaning from; a line break may be two bytes.
    void SkipEscaped() {
        if (Peek() == '\r' && Peek(1) == '\n') ++at_;
        if (at_ < text_.size()) ++at_;
    }

    /// R"delimiter( ... )delimiter"
    void SkipRawString() {
        constexpr std::size_t kLongestDelimiter = 16;
        const std::string_view start = text_.substr(at_ + 1, kLongestDelimiter + 1);
        const std::size_t length = start.find_first_of("( )\\\"\t\v\f\r\n");
        if (length == std::string_view::npos || start[length] != '(') {
            SkipQuoted('"');
            return;
        }
        const std::string close = ")" + std::string(start.substr(0, length)) + "\"";
        const std::size_t end = text_.find(close, at_ + 1 + length);
        at_ = end == std::string_view::npos ? text_.size() : end + close.size();
    }

    bool SkipComment() {
        if (Peek() != '/' || (Peek(1) != '/' && Peek(1) != '*')) return false;
        const std::size_t begin = at_;
        if (Peek(1) == '/') {
            SkipLogicalLine();
        } else {
            const std::size_t end = text_.find("*/", at_ + 2);
            at_ = end == std::string_view::npos ? text_.size() : end + 2;
        }
        result_.comments.push_back({begin, at_});
        return true;
    }

    /// To the line break that no backslash takes away; a CR in front of it stays with it.
    void SkipLogicalLine() {
        while (true) {
            std::size_t end = std::min(text_.find('\n', at_), text_.size());
            const std::size_t next = end;
            if (end > at_ && text_[end - 1] == '\r') --end;
            const bool goesOn = end > at_ && text_[end - 1] == '\\' && next < text_.size();
            at_ = goesOn ? next + 1 : end;
            if (!goesOn) return;
        }
    }

    void ReadDirective() {
        const std::size_t begin = at_;
        SkipDirective();
        std::string_view rest = text_.substr(begin + 1, at_ - begin - 1);
        const auto skipBlanks = [&rest] {
            while (!rest.empty() && IsBlank(rest.front()))
                rest.remove_prefix(1);
        };
        skipBlanks();
        const auto nameEnd = std::find_if_not(rest.begin(), rest.end(), IsNamePart);
        const std::string_view name =
            rest.substr(0, static_cast<std::size_t>(nameEnd - rest.begin()));
        std::string_view condition = rest;
        if (name == "if" || name == "elif") {
            rest.remove_prefix(name.size());
            skipBlanks();
            condition = rest;
        }
        while (!condition.empty() && IsBlank(condition.back()))
            condition.remove_suffix(1);
        result_.directives.push_back(
            {DirectiveKindOf(name), condition, static_cast<std::uint32_t>(result_.tokens.size())});
    }

    /// A comment inside a directive may hold line breaks.
    void SkipDirective() {
        while (at_ < text_.size() && text_[at_] != '\n') {
            if (Peek() == '\\') {
                ++at_;
                SkipEscaped();
            } else if (Peek() == '"') {
                SkipQuoted('"');
            } else if (!SkipComment()) {
                ++at_;
            }
        }
    }

    std::string_view text_;
    CDialect dialect_;
    std::size_t at_ = 0;
    bool isLineStart_ = true;
    CTokens result_;
};

}  // namespace

CTokens TokeniseC(std::string_view text, CDialect dialect) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) return {.text = text};
    return Tokeniser(text, dialect).Run();
}

}  // namespace snippetarium
