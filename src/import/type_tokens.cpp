#include "import/type_tokens.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

#include "import/source_words.h"

namespace snippetarium {

namespace {

// What is in a literal or a comment is no directive and no bracket. Setting them aside takes
// knowing the literals of the languages and nothing else:
//
//     "a\"b"  @"a""b"  $"a{b}c"  $@"a{b}c"  """a"b"""  'a'
//
// Interpolated ones hold expressions, which hold literals in turn.

constexpr std::string_view kBlanks = " \t\r\n";

class TypeTokeniser {
  public:
    TypeTokeniser(std::string_view text, Grammar grammar) : text_(text), grammar_(grammar) {
        result_.tokens.text = text;
        result_.tokens.tokens.reserve(text.size() / 6);
    }

    TypeTokens Run() {
        bool isLineStart = true;
        while (at_ < text_.size()) {
            const char character = text_[at_];
            if (character == '\n') {
                isLineStart = true;
                ++at_;
            } else if (IsBlank(character)) {
                ++at_;
            } else if (character == '#' && isLineStart && grammar_ == Grammar::CSharp) {
                ReadDirective();
            } else {
                isLineStart = false;
                if (!SkipComment()) ReadToken();
            }
        }
        return std::move(result_);
    }

  private:
    /// Expressions in literals in expressions ... deeper ones are read as plain text.
    static constexpr int kDeepestLiteral = 20;

    char Peek(std::size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
    }

    void ReadToken() {
        const std::size_t begin = at_;
        CTokenKind kind = CTokenKind::Punctuation;
        if (SkipLiteral(0)) {
            kind = CTokenKind::Literal;
        } else if (IsWordPart(text_[at_])) {
            kind = CTokenKind::Word;
            while (at_ < text_.size() && IsWordPart(text_[at_]))
                ++at_;
        } else {
            ++at_;
        }
        result_.tokens.tokens.push_back(
            {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(at_), kind});
    }

    bool SkipComment() {
        if (Peek() != '/' || (Peek(1) != '/' && Peek(1) != '*')) return false;
        if (Peek(1) == '/') {
            at_ = EndOfLine();
        } else {
            const std::size_t end = text_.find("*/", at_ + 2);
            at_ = end == std::string_view::npos ? text_.size() : end + 2;
        }
        return true;
    }

    std::size_t EndOfLine() const { return std::min(text_.find('\n', at_), text_.size()); }

    /// A literal with what stands in front of its quote.
    bool SkipLiteral(int depth) {
        if (Peek() == '\'') {
            SkipPlain('\'');
            return true;
        }
        std::size_t prefix = 0;
        bool isVerbatim = false;
        bool isInterpolated = false;
        for (; grammar_ == Grammar::CSharp && (Peek(prefix) == '@' || Peek(prefix) == '$');
             ++prefix) {
            if (Peek(prefix) == '@') isVerbatim = true;
            if (Peek(prefix) == '$') isInterpolated = true;
        }
        if (Peek(prefix) != '"') return false;
        at_ += prefix;
        if (!isVerbatim && Peek(1) == '"' && Peek(2) == '"') {
            SkipRaw();
        } else if (isInterpolated && depth < kDeepestLiteral) {
            SkipInterpolated(isVerbatim, depth);
        } else if (isVerbatim) {
            SkipVerbatim();
        } else {
            SkipPlain('"');
        }
        return true;
    }

    /// Ends with its line where it is not closed.
    void SkipPlain(char quote) {
        ++at_;
        while (at_ < text_.size() && text_[at_] != '\n') {
            const char character = text_[at_++];
            if (character == quote) return;
            if (character == '\\' && at_ < text_.size() && text_[at_] != '\n') ++at_;
        }
    }

    void SkipVerbatim() {
        ++at_;
        while (at_ < text_.size()) {
            if (text_[at_++] != '"') continue;
            if (Peek() != '"') return;
            ++at_;
        }
    }

    /// As many quotes end it as begin it; in Java three, of which none is escaped.
    void SkipRaw() {
        if (grammar_ == Grammar::Java) return SkipTextBlock();
        const std::size_t begin = at_;
        while (Peek() == '"')
            ++at_;
        const std::size_t end = text_.find(text_.substr(begin, at_ - begin), at_);
        at_ = end == std::string_view::npos ? text_.size() : end + (at_ - begin);
    }

    void SkipTextBlock() {
        constexpr std::size_t kQuotes = 3;
        for (at_ += kQuotes; at_ < text_.size(); ++at_) {
            if (text_[at_] == '\\') {
                ++at_;
            } else if (Peek() == '"' && Peek(1) == '"' && Peek(2) == '"') {
                at_ += kQuotes;
                return;
            }
        }
        at_ = text_.size();
    }

    void SkipInterpolated(bool isVerbatim, int depth) {
        ++at_;
        while (at_ < text_.size() && (isVerbatim || text_[at_] != '\n')) {
            const char character = text_[at_++];
            const bool isDouble = Peek() == character;
            if (character == '"') {
                if (!isVerbatim || !isDouble) return;
                ++at_;
            } else if (character == '\\' && !isVerbatim) {
                if (Peek() != '\n') ++at_;
            } else if (character == '{') {
                isDouble ? static_cast<void>(++at_) : SkipHole(isVerbatim, depth);
            }
        }
    }

    /// The expression between braces, whose opening one was read.
    void SkipHole(bool isVerbatim, int depth) {
        for (int open = 1; open > 0 && at_ < text_.size();) {
            if (!isVerbatim && text_[at_] == '\n') return;
            if (SkipLiteral(depth + 1)) continue;
            if (text_[at_] == '{') ++open;
            if (text_[at_] == '}') --open;
            ++at_;
        }
    }

    void ReadDirective() {
        const std::size_t begin = at_;
        at_ = EndOfLine();
        result_.directiveLines.push_back({begin, at_});
        std::string_view line = text_.substr(begin + 1, at_ - begin - 1);
        line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
        const auto nameEnd = std::find_if_not(line.begin(), line.end(), IsWordPart);
        const std::string_view name =
            line.substr(0, static_cast<std::size_t>(nameEnd - line.begin()));
        std::string_view condition = line.substr(name.size());
        condition = condition.substr(0, condition.find("//"));
        condition.remove_prefix(std::min(condition.find_first_not_of(kBlanks), condition.size()));
        condition = condition.substr(0, condition.find_last_not_of(kBlanks) + 1);
        result_.tokens.directives.push_back(
            {KindOf(name), condition, static_cast<std::uint32_t>(result_.tokens.tokens.size())});
    }

    static CDirectiveKind KindOf(std::string_view name) {
        if (name == "if") return CDirectiveKind::If;
        if (name == "elif" || name == "else") return CDirectiveKind::Else;
        return name == "endif" ? CDirectiveKind::EndIf : CDirectiveKind::Other;
    }

    std::string_view text_;
    Grammar grammar_;
    std::size_t at_ = 0;
    TypeTokens result_;
};

}  // namespace

TypeTokens TokeniseTypes(std::string_view text, Grammar grammar) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) return {{.text = text}, {}};
    return TypeTokeniser(text, grammar).Run();
}

}  // namespace snippetarium
