#include "import/csharp_directives.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

#include "import/c_conditionals.h"
#include "import/c_tokens.h"
#include "import/text_range.h"

namespace snippetarium {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsWordPart(char character) {
    return character == '_' || (character >= '0' && character <= '9') ||
           (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
           static_cast<unsigned char>(character) > 127;
}

// What is in a literal or a comment is no directive and no bracket, so the text is read as tokens;
// that takes knowing the literals of the language and nothing else:
//
//     "a\"b"  @"a""b"  $"a{b}c"  $@"a{b}c"  """a"b"""  'a'
//
// Interpolated ones hold expressions, which hold literals in turn.
class CSharpTokeniser {
  public:
    explicit CSharpTokeniser(std::string_view text) : text_(text) { result_.text = text; }

    void Run() {
        bool isLineStart = true;
        while (at_ < text_.size()) {
            const char character = text_[at_];
            if (character == '\n') {
                isLineStart = true;
                ++at_;
            } else if (kBlanks.find(character) != std::string_view::npos) {
                ++at_;
            } else if (character == '#' && isLineStart) {
                ReadDirective();
            } else {
                isLineStart = false;
                if (!SkipComment()) ReadToken();
            }
        }
    }

    CTokens& Tokens() { return result_; }
    const std::vector<TextRange>& DirectiveLines() const { return directiveLines_; }

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
        result_.tokens.push_back(
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
        for (; Peek(prefix) == '@' || Peek(prefix) == '$'; ++prefix) {
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

    /// As many quotes end it as begin it.
    void SkipRaw() {
        const std::size_t begin = at_;
        while (Peek() == '"')
            ++at_;
        const std::size_t end = text_.find(text_.substr(begin, at_ - begin), at_);
        at_ = end == std::string_view::npos ? text_.size() : end + (at_ - begin);
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
        directiveLines_.push_back({begin, at_});
        std::string_view line = text_.substr(begin + 1, at_ - begin - 1);
        line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
        const auto nameEnd = std::find_if_not(line.begin(), line.end(), IsWordPart);
        const std::string_view name =
            line.substr(0, static_cast<std::size_t>(nameEnd - line.begin()));
        std::string_view condition = line.substr(name.size());
        condition = condition.substr(0, condition.find("//"));
        condition.remove_prefix(std::min(condition.find_first_not_of(kBlanks), condition.size()));
        condition = condition.substr(0, condition.find_last_not_of(kBlanks) + 1);
        result_.directives.push_back(
            {KindOf(name), condition, static_cast<std::uint32_t>(result_.tokens.size())});
    }

    static CDirectiveKind KindOf(std::string_view name) {
        if (name == "if") return CDirectiveKind::If;
        if (name == "elif" || name == "else") return CDirectiveKind::Else;
        return name == "endif" ? CDirectiveKind::EndIf : CDirectiveKind::Other;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    CTokens result_;
    std::vector<TextRange> directiveLines_;
};

void Blank(std::string& text, std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
        if (text[i] != '\n' && text[i] != '\r') text[i] = ' ';
    }
}

}  // namespace

void BlankCSharpDirectives(std::string& text) {
    if (text.find('#') == std::string::npos ||
        text.size() > std::numeric_limits<std::uint32_t>::max()) {
        return;
    }
    CSharpTokeniser tokeniser(text);
    tokeniser.Run();
    CTokens& tokens = tokeniser.Tokens();
    MaskBrokenBranches(tokens);
    for (const TextRange& line : tokeniser.DirectiveLines())
        Blank(text, line.begin, line.end);
    for (const CToken& token : tokens.tokens) {
        if (token.isMasked) Blank(text, token.begin, token.end);
    }
}

}  // namespace snippetarium
