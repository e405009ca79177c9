#include "import/c_definitions.h"

#include <algorithm>
#include <string>
#include <utility>

#include "import/c_live_tokens.h"
#include "import/c_names.h"
#include "import/source_words.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
/// In characters. Names are cut when they are stored; a longer path would only take memory.
constexpr std::size_t kLongestPath = 255;
/// In tokens: between "operator" and its parameters. It keeps the search short where there are
/// none.
constexpr std::size_t kLongestOperator = 200;

// clang-format off
/// Words whose brackets hold no parameters.
constexpr std::string_view kNotNames[] = {
    "decltype", "alignas", "explicit", "noexcept", "sizeof", "requires", "typeof", "__typeof__",
    "if", "while", "for", "switch", "catch", "return",
};
/// Words that may stand between a parameter list and the body.
constexpr std::string_view kBehindParameters[] = {
    "const", "volatile", "noexcept", "throw", "override", "final", "try", "requires", "mutable",
};
constexpr std::string_view kAccessWords[] = {
    "public", "private", "protected", "signals", "slots", "Q_SIGNALS", "Q_SLOTS",
};
// clang-format on

// The scanner reads declaration after declaration. Of each it remembers what it has met since its
// first token (the head); at the brace that follows it decides what the head is: that of a
// namespace or a class, whose declarations it reads next, that of a function, which is a find, or
// something else, whose braces it passes over.
class DefinitionScanner {
  public:
    explicit DefinitionScanner(const CTokens& tokens) : tokens_(tokens), live_(tokens) {}

    std::vector<SourceUnit> Run() {
        std::size_t i = 0;
        while (i < live_.Size())
            i = live_.IsWord(i) ? AtWord(i) : AtOther(i);
        return std::move(units_);
    }

  private:
    struct Head {
        std::size_t first = 0;
        std::size_t classKey = kNone;
        bool isNamespace = false;
        bool isEnum = false;
        bool isExtern = false;
        bool isAssigned = false;
        bool hasArrow = false;
        bool hasInitialisers = false;
        CDeclarator declarator = {};

        bool HasParameters() const { return declarator.parameters != kNone; }
    };

    void StartHead(std::size_t i) {
        head_ = {};
        head_.first = i;
        head_.declarator.parameters = kNone;
    }

    std::size_t NextHead(std::size_t i) {
        StartHead(i);
        return i;
    }

    // Each At... is given the token to look at, and returns the one to go on with.

    std::size_t AtWord(std::size_t i) {
        const std::string_view word = live_.Text(i);
        if (IsBehindMacro(i, word)) StartHead(i);
        if (word == "template" && live_.Opens(i + 1, '<')) return live_.Closing(i + 1) + 1;
        if (word == "operator" && !head_.HasParameters()) return AtOperator(i);
        if (word == "namespace") head_.isNamespace = true;
        if (word == "enum") head_.isEnum = true;
        if (word == "extern") head_.isExtern = true;
        const bool isClassKey =
            word == "class" || word == "struct" || word == "union" || word == "__interface";
        if (isClassKey && !head_.HasParameters()) head_.classKey = i;
        return i + 1;
    }

    /// A word on a new line that cannot belong to the parameters in front of it: those were the
    /// arguments of a macro that needs no semicolon.
    bool IsBehindMacro(std::size_t i, std::string_view word) const {
        if (!head_.HasParameters() || head_.hasInitialisers || head_.hasArrow || head_.isAssigned) {
            return false;
        }
        if (i != head_.declarator.parametersEnd + 1 || live_.Is(i + 1, '{')) return false;
        const std::size_t from = live_[i - 1].end;
        return !IsOneOf(word, kBehindParameters) &&
               tokens_.text.substr(from, live_[i].begin - from).find('\n') !=
                   std::string_view::npos;
    }

    /// The brackets of operator() are not its parameters.
    std::size_t AtOperator(std::size_t i) {
        std::size_t open = i + 1;
        if (live_.Is(open, '(') && live_.Is(open + 1, ')')) {
            open += 2;
        } else {
            const std::size_t last = std::min(live_.Size(), i + kLongestOperator);
            while (open < last && !live_.IsAnyOf(open, "(;{"))
                open = live_.Opens(open, '<') ? live_.Closing(open) + 1 : open + 1;
        }
        if (!live_.Opens(open, '(')) return i + 1;
        SetParameters(i, open);
        return live_.Closing(open) + 1;
    }

    /// `name`: the name's last word, or "operator".
    void SetParameters(std::size_t name, std::size_t open) {
        head_.declarator = {CQualifiedStart(live_, head_.first, name), open, live_.Closing(open)};
    }

    std::size_t AtOther(std::size_t i) {
        if (live_.Is(i, '(')) return AtRoundBracket(i);
        if (live_.Is(i, '{')) return AtBrace(i);
        if (live_.Opens(i, '[') || IsArgumentList(i)) return live_.Closing(i) + 1;
        if (live_.Is(i, ';')) return NextHead(i + 1);
        if (live_.Is(i, '}')) {
            if (!scopes_.empty()) scopes_.pop_back();
            return NextHead(i + 1);
        }
        if (live_.Is(i, ':')) return AtColon(i);
        if (live_.Is(i, '-') && live_.Is(i + 1, '>')) {
            head_.hasArrow = true;
            return i + 2;
        }
        if (live_.Is(i, '=') && !live_.Is(i + 1, '=') && !live_.IsAnyOf(i - 1, "=!<>")) {
            head_.isAssigned = true;
        }
        return i + 1;
    }

    /// The template arguments of a type: they may hold brackets, as in "function<int(int)>".
    bool IsArgumentList(std::size_t i) const {
        return live_.Opens(i, '<') && live_.IsWord(i - 1) && !head_.isAssigned;
    }

    std::size_t AtColon(std::size_t i) {
        if (live_.Is(i + 1, ':')) return i + 2;
        if (head_.HasParameters()) {
            head_.hasInitialisers = true;
        } else if (i > head_.first && IsOneOf(live_.Text(i - 1), kAccessWords)) {
            return NextHead(i + 1);
        }
        return i + 1;
    }

    std::size_t AtRoundBracket(std::size_t i) {
        const std::size_t close = live_.Closing(i);
        if (close == live_.Size()) return i + 1;
        if (!head_.HasParameters() && !head_.isAssigned && i > head_.first)
            FindParameters(i, close);
        return close + 1;
    }

    /// Decides whether these brackets hold the function's parameters or, as in
    /// "int (*choose(int how))(double)" and "int (isdigit)(int c)", its declarator.
    void FindParameters(std::size_t i, std::size_t close) {
        if (live_.Opens(close + 1, '(')) {
            if (close == i + 2 && live_.IsWord(i + 1)) {
                SetParameters(i + 1, close + 1);
                return;
            }
            if (live_.IsAnyOf(i + 1, "*&")) {
                for (std::size_t inner = i + 2; inner < close; ++inner) {
                    if (!live_.Is(inner, '(') || !live_.IsWord(inner - 1)) continue;
                    SetParameters(CNameStart(live_, i, inner), inner);
                    return;
                }
                return;
            }
        }
        const bool isNamed =
            live_.IsWord(i - 1) ? !IsOneOf(live_.Text(i - 1), kNotNames) : live_.Is(i - 1, '>');
        if (isNamed) SetParameters(CNameStart(live_, head_.first, i), i);
    }

    std::size_t AtBrace(std::size_t i) {
        if (head_.isNamespace || IsLinkage(i)) return Enter(i, "");
        const std::size_t close = live_.Closing(i);
        if (close == live_.Size()) return NextHead(i + 1);
        if (IsFunction(i)) return AtBody(i, close);
        // An initialiser's declaration ends with its semicolon, an enum's too.
        if (head_.isAssigned || head_.isEnum) return close + 1;
        if (head_.classKey != kNone) return Enter(i, CClassName(live_, head_.classKey, i));
        return NextHead(close + 1);
    }

    /// extern "C" {
    bool IsLinkage(std::size_t brace) const {
        return head_.isExtern && !head_.HasParameters() && brace > head_.first &&
               live_.IsKind(brace - 1, CTokenKind::Literal);
    }

    std::size_t Enter(std::size_t brace, const std::string& name) {
        std::string path = scopes_.empty() ? std::string() : scopes_.back();
        if (!name.empty()) path += name + "::";
        scopes_.emplace_back(CutToCharacters(path, kLongestPath));
        return NextHead(brace + 1);
    }

    bool IsFunction(std::size_t brace) const {
        if (!head_.HasParameters() || head_.isAssigned) return false;
        // "struct point move(int x) {" has a class key too, and so has "class A : B<int()> {".
        return head_.classKey == kNone || live_.Is(brace - 1, ')') || head_.hasArrow ||
               head_.hasInitialisers || IsOneOf(live_.Text(brace - 1), kBehindParameters);
    }

    std::size_t AtBody(std::size_t brace, std::size_t close) {
        if (IsMemberInitialiser(brace, close)) return close + 1;
        const std::string_view first = live_.Text(head_.first);
        if (first == "else" || first == "do") return NextHead(close + 1);
        const std::size_t end = LastBrace(close);
        const std::string path = scopes_.empty() ? std::string() : scopes_.back();
        units_.push_back({path + CFunctionName(live_, head_.declarator),
                          {StartOf(head_.first), live_[end].end}});
        return NextHead(end + 1);
    }

    /// Grid() : width_{1}, height_{2} {
    bool IsMemberInitialiser(std::size_t brace, std::size_t close) const {
        return head_.hasInitialisers && (live_.IsWord(brace - 1) || live_.Is(brace - 1, '>')) &&
               live_.IsAnyOf(close + 1, ",{");
    }

    /// Behind the body of a function that is one try block come its handlers.
    std::size_t LastBrace(std::size_t close) const {
        while (live_.IsWord(close + 1, "catch") && live_.Is(close + 2, '(')) {
            const std::size_t handler = live_.Closing(close + 2) + 1;
            if (!live_.Opens(handler, '{')) break;
            close = live_.Closing(handler);
        }
        return close;
    }

    /// The function starts with the macros that stand before it on its line.
    std::size_t StartOf(std::size_t first) const {
        std::size_t place = live_.PlaceOf(first);
        while (place > 0 && tokens_.tokens[place - 1].isMasked) {
            const std::size_t from = tokens_.tokens[place - 1].end;
            const std::size_t length = tokens_.tokens[place].begin - from;
            if (tokens_.text.substr(from, length).find('\n') != std::string_view::npos) break;
            --place;
        }
        return tokens_.tokens[place].begin;
    }

    const CTokens& tokens_;
    const CLiveTokens live_;
    Head head_ = {.declarator = {kNone, kNone, kNone}};
    /// The classes around the declaration, each scope's as one text: "Grid::Cell::".
    std::vector<std::string> scopes_;
    std::vector<SourceUnit> units_;
};

}  // namespace

std::vector<SourceUnit> FindCDefinitions(const CTokens& tokens) {
    return DefinitionScanner(tokens).Run();
}

}  // namespace snippetarium
