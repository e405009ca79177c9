#include "quick/name_index.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/database.h"

namespace snippetarium {

namespace {

/// The text behind every name that begins with this one.
std::string Behind(const std::string& beginning) {
    return beginning + "\U0010FFFF";
}

/// Adds the procedures whose names may be the word. False where they are too many to be read at
/// once.
bool FindExactNames(Database& db, const std::string& word, FoundRows& found) {
    constexpr std::size_t kMostRows = 1000;
    constexpr std::string_view kEqual = "SELECT codeID, codeName FROM tblCode WHERE codeName = ?1";
    constexpr std::string_view kBetween =
        "SELECT codeID, codeName FROM tblCode WHERE codeName >= ?1 AND codeName < ?2";
    const auto take = [&](RowCursor& row) {
        while (found.size() <= kMostRows && row.Next()) {
            found.push_back({QuickKind::Procedure, QuickTier::ExactName,
                             static_cast<std::int32_t>(row.Number(0)),
                             static_cast<std::uint32_t>(row.Text(1).size())});
        }
        return found.size() <= kMostRows;
    };
    if (!take(*db.GetConnection().OpenCursor(kEqual, std::string_view(word)))) return false;
    for (const std::string_view mark : {"(", " ", "\t"}) {
        const std::string first = word + std::string(mark);
        const std::string behind = Behind(first);
        const auto row = db.GetConnection().OpenCursor(kBetween, std::string_view(first),
                                                       std::string_view(behind));
        if (!take(*row)) return false;
    }
    return true;
}

/// True where the name of a procedure begins so.
bool HasNameThatBegins(Database& db, const std::string& beginning) {
    constexpr std::string_view kAny =
        "SELECT 1 FROM tblCode WHERE codeName >= ?1 AND codeName < ?2 LIMIT 1";
    const std::string behind = Behind(beginning);
    return db.GetConnection()
        .OpenCursor(kAny, std::string_view(beginning), std::string_view(behind))
        ->Next();
}

bool IsLookedForInNames(const PlannedTerm& term) {
    return !term.isNegated && term.IsLookedForIn(QuickText::Name);
}

/// The letters of which every name has one at its beginning that has a part of the entry there.
/// Nothing where it may begin with any.
std::optional<std::u32string> FirstLetters(const QuickPlan& plan, const QuickNode& node) {
    std::u32string letters;
    if (node.type == QuickNode::Type::Term) {
        const PlannedTerm& term = plan.terms[node.term];
        if (IsLookedForInNames(term)) letters = term.pattern->Beginning().substr(0, 1);
    } else if (node.type == QuickNode::Type::Or) {
        for (const QuickNode& part : node.parts) {
            const auto ofPart = FirstLetters(plan, part);
            if (!ofPart) return {};
            letters += *ofPart;
        }
    }
    return letters.empty() ? std::nullopt : std::optional(letters);
}

/// True where no name can begin with all words of the entry: two of them begin with different
/// letters.
bool CannotBeginWithAll(const QuickPlan& plan) {
    if (plan.root.type != QuickNode::Type::And) return false;
    std::vector<std::u32string> seen;
    for (const QuickNode& part : plan.root.parts) {
        const auto letters = FirstLetters(plan, part);
        if (!letters) continue;
        const auto isApart = [&](const std::u32string& others) {
            return letters->find_first_of(others) == std::u32string::npos;
        };
        if (std::ranges::any_of(seen, isApart)) return true;
        seen.push_back(*letters);
    }
    return false;
}

/// The best tier that a procedure can have, as far as that is known from those of the terms.
QuickTier BestTier(const QuickPlan& plan, const QuickNode& node,
                   const std::vector<QuickTier>& ofTerms) {
    switch (node.type) {
        case QuickNode::Type::Term:
            return IsTextField(plan.terms[node.term].term.field) ? ofTerms[node.term]
                                                                 : QuickTier::ExactName;
        case QuickNode::Type::Not:
            return QuickTier::ExactName;
        case QuickNode::Type::And:
        case QuickNode::Type::Or:
            break;
    }
    const bool isAnd = node.type == QuickNode::Type::And;
    QuickTier best = BestTier(plan, node.parts.front(), ofTerms);
    for (const QuickNode& part : node.parts) {
        const QuickTier ofPart = BestTier(plan, part, ofTerms);
        best = isAnd ? std::max(best, ofPart) : std::min(best, ofPart);
    }
    return best;
}

}  // namespace

NamesInIndex AskNameIndex(const QuickPlan& plan) {
    if (CannotBeginWithAll(plan)) return {{}, QuickTier::WordStart};
    FoundRows exact;
    std::vector<QuickTier> best(plan.terms.size(), QuickTier::WordStart);
    for (std::size_t i = 0; i < plan.terms.size(); ++i) {
        const PlannedTerm& term = plan.terms[i];
        if (!IsLookedForInNames(term)) continue;
        const std::string& word = term.pattern->Literal();
        if (!term.pattern->IsPlain() || !FindExactNames(plan.db, word, exact)) {
            best[i] = QuickTier::ExactName;
        } else if (HasNameThatBegins(plan.db, word)) {
            best[i] = QuickTier::NamePrefix;
        }
    }
    const QuickTier bestOfOthers = BestTier(plan, plan.root, best);
    if (bestOfOthers == QuickTier::ExactName) return {};
    std::ranges::sort(exact, ComesBefore);
    const auto isSameID = [](const FoundRow& a, const FoundRow& b) { return a.id == b.id; };
    exact.erase(std::unique(exact.begin(), exact.end(), isSameID), exact.end());
    return {std::move(exact), bestOfOthers};
}

}  // namespace snippetarium
