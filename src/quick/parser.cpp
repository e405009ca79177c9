#include <algorithm>
#include <utility>

#include "quick/query.h"
#include "quick/tokens.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

using Type = QuickToken::Type;
using MaybeNode = std::optional<QuickNode>;

constexpr std::string_view kKindNames[kQuickKinds] = {"application", "class", "procedure"};

/// The kinds whose names begin so.
QuickKindSet KindsOf(std::string_view text) {
    QuickKindSet kinds;
    for (std::size_t i = 0; i < kQuickKinds; ++i) {
        if (EqualsIgnoringAsciiCase(text, kKindNames[i].substr(0, text.size()))) kinds.set(i);
    }
    return kinds;
}

bool HasLetter(const QuickToken& token) {
    return token.text.find_first_not_of(token.isPhrase ? " \t\r\n" : "*?") != std::string::npos;
}

/// Both, or the one that is there.
MaybeNode Join(QuickNode::Type type, MaybeNode left, MaybeNode right) {
    if (!left) return right;
    if (!right) return left;
    if (left->type == type) {
        left->parts.push_back(std::move(*right));
        return left;
    }
    QuickNode node{.type = type, .term = 0, .parts = {}};
    node.parts.push_back(std::move(*left));
    node.parts.push_back(std::move(*right));
    return node;
}

class Parser {
  public:
    explicit Parser(std::string_view entry) : tokens_(entry) {}

    QuickQuery Run() {
        while (tokens_.Current().type != Type::End) {
            query_.root = Join(QuickNode::Type::And, std::move(query_.root), ReadOr());
            if (tokens_.Current().type != Type::Close) continue;
            Tell("the bracket at", "closes nothing");
            tokens_.Advance();
        }
        std::ranges::stable_sort(query_.problems, {}, &QuickProblem::place);
        return std::move(query_);
    }

  private:
    void Tell(std::size_t place, std::string_view what, std::string_view isWrong) {
        std::string text(what);
        text.append(" ").append(std::to_string(place)).append(" ").append(isWrong);
        query_.problems.push_back({place, std::move(text)});
    }
    void Tell(std::string_view what, std::string_view isWrong) {
        Tell(tokens_.Current().place, what, isWrong);
    }

    bool IsAtEndOfGroup() const {
        return tokens_.Current().type == Type::End || tokens_.Current().type == Type::Close;
    }

    MaybeNode ReadOr() {
        MaybeNode node = ReadAnd();
        while (tokens_.Current().type == Type::Or) {
            const std::size_t place = tokens_.Current().place;
            tokens_.Advance();
            MaybeNode next = ReadAnd();
            if (!node) Tell(place, "the \"or\" at", "has nothing before it");
            if (!next) Tell(place, "the \"or\" at", "has nothing behind it");
            node = Join(QuickNode::Type::Or, std::move(node), std::move(next));
        }
        return node;
    }

    MaybeNode ReadAnd() {
        MaybeNode node;
        while (!IsAtEndOfGroup() && tokens_.Current().type != Type::Or) {
            const bool isAnd = tokens_.Current().type == Type::And;
            const std::size_t place = tokens_.Current().place;
            if (isAnd) {
                if (!node) Tell(place, "the \"and\" at", "has nothing before it");
                tokens_.Advance();
            }
            MaybeNode next = ReadNot();
            if (isAnd && !next) Tell(place, "the \"and\" at", "has nothing behind it");
            node = Join(QuickNode::Type::And, std::move(node), std::move(next));
        }
        return node;
    }

    MaybeNode ReadNot() {
        bool isNegated = false;
        std::size_t place = 0;
        for (; tokens_.Current().type == Type::Not; tokens_.Advance()) {
            isNegated = !isNegated;
            place = tokens_.Current().place;
        }
        const std::size_t problems = query_.problems.size();
        MaybeNode operand = ReadOperand();
        if (place != 0 && !operand && problems == query_.problems.size()) {
            Tell(place, "the \"not\" at", "has nothing behind it");
        }
        if (!isNegated || !operand) return operand;
        QuickNode node{.type = QuickNode::Type::Not, .term = 0, .parts = {}};
        node.parts.push_back(std::move(*operand));
        return node;
    }

    MaybeNode ReadOperand() {
        const QuickToken token = tokens_.Current();
        if (token.type == Type::Open) return ReadGroup(token);
        if (token.type != Type::Text) return {};
        tokens_.Advance();
        return ReadTerm(token);
    }

    MaybeNode ReadGroup(const QuickToken& open) {
        tokens_.Advance();
        if (depth_ == kDeepestQuickBracket) {
            Tell(open.place, "the bracket at", "is nested too deep");
            return {};
        }
        const std::optional<QuickField> outer = groupFilter_;
        if (open.filter) groupFilter_ = open.filter;
        ++depth_;
        const std::size_t problems = query_.problems.size();
        MaybeNode node = ReadOr();
        --depth_;
        groupFilter_ = outer;
        const bool isClosed = tokens_.Current().type == Type::Close;
        if (isClosed) tokens_.Advance();
        if (!isClosed) Tell(open.place, "the bracket at", "is never closed");
        if (isClosed && !node && problems == query_.problems.size()) {
            Tell(open.place, "the bracket at", "has nothing in it");
        }
        return node;
    }

    MaybeNode ReadTerm(const QuickToken& token) {
        if (!token.isClosed) Tell(token.place, "the phrase at", "has no closing quotation mark");
        QuickTerm term{.field = token.filter.value_or(groupFilter_.value_or(QuickField::Anything)),
                       .text = token.text,
                       .isPhrase = token.isPhrase,
                       .place = token.place,
                       .kinds = {},
                       .days = {}};
        if (!Complete(term, token)) return {};
        if (query_.terms.size() == kMostQuickTerms) {
            Tell(token.place, "the word at", "is one too many");
            return {};
        }
        query_.terms.push_back(std::move(term));
        return QuickNode{
            .type = QuickNode::Type::Term, .term = query_.terms.size() - 1, .parts = {}};
    }

    /// Reads what the term's filter wants for its value. False where there is nothing to look for.
    bool Complete(QuickTerm& term, const QuickToken& token) {
        if (!HasLetter(token)) {
            const bool isFilter = token.filter.has_value() && token.text.empty();
            Tell(token.place, isFilter ? "the filter at" : "the word at",
                 isFilter ? "has no value" : "has no letter to look for");
            return false;
        }
        if (term.field == QuickField::Kind) {
            term.kinds = KindsOf(term.text);
            if (term.kinds.none()) {
                Tell(token.place, "the kind at", "is none: application, class or procedure");
            }
            return term.kinds.any();
        }
        if (term.field == QuickField::Date) {
            ParsedDays parsed = ParseDays(term.text);
            if (!parsed.isWhole) {
                Tell(token.place, "the date at", "is none: write 2001, 2001-03 or 2001..2003");
            }
            if (parsed.days) term.days = std::move(*parsed.days);
            return parsed.days.has_value();
        }
        return true;
    }

    QuickTokens tokens_;
    QuickQuery query_;
    std::optional<QuickField> groupFilter_;
    std::size_t depth_ = 0;
};

}  // namespace

QuickQuery ParseQuickQuery(std::string_view entry) {
    return Parser(entry).Run();
}

}  // namespace snippetarium
