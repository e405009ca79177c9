#include "import/type_bodies.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace snippetarium {

// The declarations of a type are read one after the other, without a grammar. What stands before an
// opening brace, the head, tells what the braces hold: "class" and its like a type, whose
// declarations are read next; an "=" a value, which is passed over; everything else code. Where the
// head misleads, code is read as a type: then the braces in it are found instead, and without them
// it still parses.

namespace {

// clang-format off
constexpr std::string_view kTypeWords[] = {
    "class", "interface", "struct", "record", "namespace",
};
// clang-format on

/// What brackets hold.
enum class Inside : std::uint8_t {
    Declarations,
    /// The constants of an enumeration, up to the semicolon behind them.
    Constants,
    /// "get { }" and the like.
    Accessors,
    /// A find.
    Code,
    /// What is passed over.
    Other,
};

class BodyFinder {
  public:
    BodyFinder(const CTokens& tokens, Grammar grammar) : tokens_(tokens), grammar_(grammar) {}

    std::vector<TextRange> Run() {
        for (place_ = 0; place_ < tokens_.tokens.size(); ++place_) {
            const CToken& token = tokens_.tokens[place_];
            if (token.isMasked) continue;
            if (!Read(token)) return {};
            last_ = token.kind == CTokenKind::Punctuation ? tokens_.text[token.begin] : 'x';
        }
        return open_.empty() ? std::move(bodies_) : std::vector<TextRange>();
    }

  private:
    struct Bracket {
        char closing = '\0';
        Inside inside = Inside::Other;
        std::size_t begin = 0;  // of what it holds
    };

    /// What has been met of a declaration.
    struct Head {
        bool isType = false;
        bool isEnum = false;
        bool isOperator = false;
        bool isAssigned = false;
        bool hasParameters = false;
        /// In the name of an annotation, whose brackets hold no parameters.
        bool isAnnotation = false;
    };

    /// False where the brackets do not fit.
    bool Read(const CToken& token) {
        if (token.kind == CTokenKind::Punctuation) return ReadSign(tokens_.text[token.begin]);
        if (!IsInHead()) return true;
        head_.isAnnotation = head_.isAnnotation && (last_ == '@' || last_ == '.');
        if (token.kind == CTokenKind::Word) ReadWord(tokens_.TextOf(token));
        return true;
    }

    bool ReadSign(char sign) {
        switch (sign) {
            case '(':
                return OpenBracket(')', Inside::Other);
            case '[':
                return OpenBracket(']', Inside::Other);
            case '{':
                return OpenBracket('}', InsideOfBraces());
            case ')':
            case ']':
            case '}':
                return CloseBracket(sign);
            default:
                if (IsInHead()) ReadOtherSign(sign);
                return true;
        }
    }

    Inside Around() const { return open_.empty() ? Inside::Declarations : open_.back().inside; }
    bool IsInHead() const {
        return Around() == Inside::Declarations || Around() == Inside::Constants;
    }

    void ReadWord(std::string_view word) {
        if (head_.hasParameters) return;
        if (word == "operator") head_.isOperator = true;
        // "void record(int x)" and C#'s "@class" are names.
        if (!IsWordNext() || (last_ == '@' && grammar_ == Grammar::CSharp)) return;
        if (word == "enum") head_.isEnum = true;
        const bool isType =
            std::find(std::begin(kTypeWords), std::end(kTypeWords), word) != std::end(kTypeWords);
        if (isType) head_.isType = true;
    }

    bool IsWordNext() const {
        return place_ + 1 < tokens_.tokens.size() &&
               (tokens_.tokens[place_ + 1].kind == CTokenKind::Word ||
                tokens_.text[tokens_.tokens[place_ + 1].begin] == '@');
    }

    void ReadOtherSign(char sign) {
        if (sign == ';') {
            if (Around() == Inside::Constants) open_.back().inside = Inside::Declarations;
            head_ = {};
        } else if (sign == ',' && Around() == Inside::Constants) {
            head_ = {};
        } else if (sign == '@') {
            head_.isAnnotation = true;
        } else if (sign != '.') {
            head_.isAnnotation = false;
            if (sign == '=' && !head_.isOperator) head_.isAssigned = true;
        }
    }

    Inside InsideOfBraces() const {
        if (Around() == Inside::Accessors) return Inside::Code;
        if (!IsInHead() || head_.isAssigned) return Inside::Other;
        if (head_.isEnum) return Inside::Constants;
        if (head_.isType || Around() == Inside::Constants) return Inside::Declarations;
        // Without parameters it is a property in C#, in Java an initialiser.
        const bool isProperty = grammar_ == Grammar::CSharp && !head_.hasParameters;
        return isProperty ? Inside::Accessors : Inside::Code;
    }

    bool OpenBracket(char closing, Inside inside) {
        if (closing == ')' && IsInHead() && !head_.isAnnotation) head_.hasParameters = true;
        head_.isAnnotation = false;
        if (inside == Inside::Declarations || inside == Inside::Constants) head_ = {};
        open_.push_back({closing, inside, tokens_.tokens[place_].end});
        return true;
    }

    bool CloseBracket(char sign) {
        if (open_.empty() || open_.back().closing != sign) return false;
        const Bracket bracket = open_.back();
        open_.pop_back();
        const bool isEmpty = bracket.begin == tokens_.tokens[place_].begin;
        if (bracket.inside == Inside::Code && !isEmpty)
            bodies_.push_back({bracket.begin, tokens_.tokens[place_].begin});
        // A value's declaration goes on.
        if (sign == '}' && IsInHead() && !head_.isAssigned) head_ = {};
        return true;
    }

    const CTokens& tokens_;
    Grammar grammar_;
    std::size_t place_ = 0;
    char last_ = '\0';  // the sign in front of this token; 'x' for a word or a literal
    Head head_ = {};    // of the declaration at hand, also while brackets in it are read
    std::vector<Bracket> open_;
    std::vector<TextRange> bodies_;
};

}  // namespace

std::vector<TextRange> FindTypeBodies(const CTokens& tokens, Grammar grammar) {
    return BodyFinder(tokens, grammar).Run();
}

}  // namespace snippetarium
