#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "navigator/highlight_engine.h"
#include "navigator/highlight_spans.h"
#include "support/case_fold.h"
#include "support/text.h"

namespace snippetarium {

namespace {

// Sorted, in small letters.
constexpr std::array kKeywords = std::to_array<std::string_view>({
    "addressof", "alias",    "and",        "any",        "appactivate",   "as",
    "attribute", "base",     "beep",       "begin",      "beginproperty", "binary",
    "byref",     "byval",    "call",       "case",       "cbool",         "cbyte",
    "ccur",      "cdate",    "cdbl",       "cdec",       "cint",          "class",
    "clng",      "close",    "compare",    "const",      "csng",          "cstr",
    "cvar",      "cverr",    "debug",      "declare",    "defbool",       "defbyte",
    "defdate",   "defdbl",   "defint",     "deflng",     "defobj",        "defsng",
    "defstr",    "defvar",   "dim",        "do",         "doevents",      "each",
    "else",      "elseif",   "end",        "endif",      "endproperty",   "enum",
    "eqv",       "erase",    "error",      "event",      "execute",       "executeglobal",
    "exit",      "explicit", "for",        "friend",     "function",      "get",
    "global",    "gosub",    "goto",       "if",         "imp",           "implements",
    "in",        "input",    "is",         "let",        "lib",           "like",
    "line",      "lock",     "loop",       "lset",       "mod",           "new",
    "next",      "not",      "on",         "open",       "option",        "optional",
    "or",        "output",   "paramarray", "preserve",   "print",         "private",
    "property",  "public",   "put",        "raiseevent", "random",        "randomize",
    "redim",     "resume",   "return",     "rset",       "select",        "set",
    "spc",       "static",   "step",       "stop",       "sub",           "tab",
    "then",      "to",       "type",       "typeof",     "unlock",        "until",
    "version",   "wend",     "while",      "width",      "with",          "withevents",
    "write",     "xor",
});
static_assert(std::ranges::is_sorted(kKeywords));

constexpr std::array kTypes = std::to_array<std::string_view>({
    "boolean",
    "byte",
    "collection",
    "currency",
    "date",
    "decimal",
    "double",
    "integer",
    "long",
    "longlong",
    "longptr",
    "object",
    "single",
    "string",
    "variant",
});
static_assert(std::ranges::is_sorted(kTypes));

constexpr std::array kConstants = std::to_array<std::string_view>({
    "empty",
    "false",
    "nothing",
    "null",
    "true",
});
static_assert(std::ranges::is_sorted(kConstants));

template <typename Words>
bool Has(const Words& words, std::string_view word) {
    return std::ranges::binary_search(words, word);
}

bool IsWordPart(char character) {
    return IsAlphanumeric(character) || character == '_' ||
           static_cast<unsigned char>(character) >= 0x80U;
}

bool IsUpper(char character) {
    return character >= 'A' && character <= 'Z';
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

/// What the words before a word make of it.
enum class Expected : std::uint8_t { Nothing, Name, Type, MoreOfType };

/// Scans one line after the other. All that goes from a line into the next is a comment that ends
/// in " _".
class BasicHighlighting final : public Highlighter::Engine {
  public:
    explicit BasicHighlighting(std::string text) : text_(std::move(text)) {}

    bool Work(std::chrono::microseconds time) override {
        static constexpr int kLinesOfATurn = 100;
        const auto start = std::chrono::steady_clock::now();
        while (!IsDone()) {
            for (int line = 0; line < kLinesOfATurn && !IsDone(); ++line)
                ScanLine();
            if (std::chrono::steady_clock::now() - start > time) break;
        }
        return IsDone();
    }
    bool IsDone() const override { return at_ == text_.size(); }
    std::size_t KnownUpTo() const override { return at_; }
    std::vector<HighlightSpan> Spans(const TextRange& range) const override {
        return SpansWithin(spans_, range);
    }

  private:
    void ScanLine() {
        const std::size_t end = std::min(text_.find('\n', at_), text_.size());
        line_ = std::string_view(text_).substr(0, end);
        isStatementStart_ = true;
        expected_ = Expected::Nothing;
        if (isInComment_) ScanComment(at_);
        while (at_ < end)
            ScanToken();
        at_ = std::min(end + 1, text_.size());
    }

    void ScanToken() {
        const char character = line_[at_];
        if (character == ' ' || character == '\t' || character == '\r') {
            ++at_;
            return;
        }
        if (character == '\'') return ScanComment(at_);
        if (character == '"') return ScanString();
        if (character == '#') return ScanHash();
        if (IsDigit(character) || (character == '&' && IsRadix(Next(1)) && IsWordPart(Next(2))))
            return ScanNumber();
        if (IsWordPart(character)) return ScanWord();
        ScanSign();
    }

    char Next(std::size_t distance) const {
        return at_ + distance < line_.size() ? line_[at_ + distance] : '\0';
    }
    static bool IsRadix(char character) {
        const char lower = AsciiLower(character);
        return lower == 'h' || lower == 'o';
    }

    void Emit(std::size_t begin, HighlightKind kind) { spans_.push_back({{begin, at_}, kind}); }

    void ScanComment(std::size_t begin) {
        std::string_view comment = line_.substr(begin);
        if (comment.ends_with('\r')) comment.remove_suffix(1);
        isInComment_ = comment.ends_with(" _");
        at_ = line_.size();
        if (!comment.empty()) Emit(begin, HighlightKind::Comment);
    }

    /// A quote within is doubled. One that is missing ends with the line.
    void ScanString() {
        const std::size_t begin = at_++;
        while (at_ < line_.size()) {
            if (line_[at_++] != '"') continue;
            if (Next(0) != '"') break;
            ++at_;
        }
        Emit(begin, HighlightKind::String);
        isStatementStart_ = false;
    }

    /// A directive at the start of a line, or a date between two of them.
    void ScanHash() {
        const std::size_t begin = at_;
        const std::size_t close = line_.find('#', at_ + 1);
        if (isStatementStart_ && IsWordPart(Next(1)) && !IsDigit(Next(1))) {
            ++at_;
            while (IsWordPart(Next(0)))
                ++at_;
            Emit(begin, HighlightKind::Preprocessor);
        } else if (close != std::string_view::npos && (IsDigit(Next(1)) || Next(1) == ' ')) {
            at_ = close + 1;
            Emit(begin, HighlightKind::Constant);
        } else {
            ++at_;  // the type of a name, or the number of a file
        }
        isStatementStart_ = false;
    }

    void ScanNumber() {
        const std::size_t begin = at_++;
        while (IsWordPart(Next(0)) || (Next(0) == '.' && IsDigit(Next(1))))
            ++at_;
        if (Next(0) == '&' && line_[begin] == '&') ++at_;
        Emit(begin, HighlightKind::Number);
        isStatementStart_ = false;
    }

    void ScanSign() {
        static constexpr std::string_view kOperators = "=<>+-*/\\^&";
        const std::size_t begin = at_;
        const char sign = line_[at_++];
        if (kOperators.find(sign) != std::string_view::npos) Emit(begin, HighlightKind::Operator);
        isMember_ = sign == '.' || sign == '!';
        if (sign != '.') expected_ = Expected::Nothing;
        isStatementStart_ = sign == ':';
    }

    void ScanWord() {
        const std::size_t begin = at_;
        while (IsWordPart(Next(0)))
            ++at_;
        std::string word(line_.substr(begin, at_ - begin));
        std::ranges::transform(word, word.begin(), AsciiLower);
        const bool isFirst = std::exchange(isStatementStart_, false);
        const bool isMember = std::exchange(isMember_, false);
        const Expected expected = std::exchange(expected_, Expected::Nothing);
        if (isFirst && word == "rem" && !IsWordPart(Next(0))) return ScanComment(begin);
        if (isMember) {
            // The rest of "ADODB.Connection" is a type as its beginning is.
            if (expected == Expected::MoreOfType) expected_ = Expected::MoreOfType;
            return Emit(begin, expected == Expected::MoreOfType ? HighlightKind::Type
                                                                : HighlightKind::Property);
        }
        if (isFirst && Next(0) == ':' && Next(1) != '=' && !Has(kKeywords, word))
            return Emit(begin, HighlightKind::Label);
        EmitWord(begin, word, expected);
    }

    /// A word that stands for itself.
    void EmitWord(std::size_t begin, const std::string& word, Expected expected) {
        if (word == "new" || word == "as") {
            expected_ = Expected::Type;
            return Emit(begin, HighlightKind::Keyword);
        }
        if (expected == Expected::Type || Has(kTypes, word)) {
            expected_ = Expected::MoreOfType;
            return Emit(begin, HighlightKind::Type);
        }
        const bool isAccessor = word == "get" || word == "let" || word == "set";
        if (expected == Expected::Name && !isAccessor) return Emit(begin, HighlightKind::Function);
        if (word == "sub" || word == "function" || word == "event" || word == "property" ||
            (expected == Expected::Name && isAccessor)) {
            expected_ = Expected::Name;
        }
        if (Has(kKeywords, word)) return Emit(begin, HighlightKind::Keyword);
        if (word == "me") return Emit(begin, HighlightKind::Variable);
        const bool isNamedConstant =
            word.size() > 2 && word.starts_with("vb") && IsUpper(text_[begin + 2]);
        if (isNamedConstant || Has(kConstants, word)) Emit(begin, HighlightKind::Constant);
    }

    std::string text_;
    std::string_view line_;  // the text up to the end of the line at hand
    std::size_t at_ = 0;
    std::vector<HighlightSpan> spans_;
    bool isInComment_ = false;
    bool isStatementStart_ = true;
    bool isMember_ = false;
    Expected expected_ = Expected::Nothing;
};

}  // namespace

HighlightEngine HighlightBasic(std::string text) {
    return std::make_unique<BasicHighlighting>(std::move(text));
}

}  // namespace snippetarium
