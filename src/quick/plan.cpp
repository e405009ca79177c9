#include "quick/plan.h"

#include <algorithm>

#include "store/database.h"

namespace snippetarium {

namespace {

QuickText TextOfField(QuickField field) {
    switch (field) {
        case QuickField::Keyword:
            return QuickText::Keyword;
        case QuickField::Comment:
            return QuickText::Comment;
        case QuickField::Code:
            return QuickText::Code;
        default:
            return QuickText::Name;
    }
}

void MarkNegated(const QuickNode& node, bool isNegated, std::vector<PlannedTerm>& terms) {
    if (node.type == QuickNode::Type::Term) terms[node.term].isNegated = isNegated;
    for (const QuickNode& part : node.parts)
        MarkNegated(part, isNegated || node.type == QuickNode::Type::Not, terms);
}

/// Whether every row that has the term has the other one, too.
bool Implies(const PlannedTerm& term, const PlannedTerm& other) {
    if (!other.pattern || !other.pattern->IsPlain()) return false;
    // Phrases are found in keywords where words are not.
    if (!IsTextField(term.term.field) || term.term.isPhrase != other.term.isPhrase) return false;
    for (std::size_t i = 0; i < kQuickTexts; ++i) {
        const auto text = static_cast<QuickText>(i);
        if (term.IsLookedForIn(text) && !other.IsLookedForIn(text)) return false;
    }
    return other.pattern->Needle().Find(term.pattern->Literal()) != FoldedNeedle::kNotFound;
}

/// Rules out the terms of a node that make hits and imply the other one.
void RuleOut(const QuickNode& node, const PlannedTerm& other, std::vector<PlannedTerm>& terms) {
    if (node.type == QuickNode::Type::Not) return;
    for (const QuickNode& part : node.parts)
        RuleOut(part, other, terms);
    if (node.type != QuickNode::Type::Term || terms[node.term].isNegated) return;
    if (Implies(terms[node.term], other)) terms[node.term].isRuledOut = true;
}

/// For each "a and not b" in the tree.
void RuleOut(const QuickNode& node, std::vector<PlannedTerm>& terms) {
    for (const QuickNode& part : node.parts) {
        RuleOut(part, terms);
        const bool isNot = node.type == QuickNode::Type::And && part.type == QuickNode::Type::Not &&
                           part.parts.front().type == QuickNode::Type::Term;
        if (isNot) RuleOut(node, terms[part.parts.front().term], terms);
    }
}

std::int32_t NewestBlock(Database& db, const QuickLevel& level) {
    const auto row = db.GetConnection().OpenCursor(level.newestID);
    return row->Next() ? BlockOf(static_cast<std::int32_t>(row->Number(0))) : 0;
}

constexpr bool IsNameTier(QuickTier tier) {
    return tier <= QuickTier::NamePart;
}

BlockMask All() {
    return ~BlockMask();
}

/// A class of candidates for one term, up to a tier.
BlockMask CandidatesOfTerm(const PlannedTerm& term, QuickTier tier, QuickKind kind,
                           std::int32_t block) {
    if (term.term.field == QuickField::Kind) {
        return term.term.kinds.test(static_cast<std::size_t>(kind)) ? All() : BlockMask();
    }
    if (!IsTextField(term.term.field)) {
        return term.byFilter.Block(kind, block);
    }
    BlockMask mask;
    for (std::size_t i = 0; i < kQuickTexts; ++i) {
        const auto text = static_cast<QuickText>(i);
        if (TierOfText(text) > tier) break;
        if (term.IsLookedForIn(text)) mask |= term.In(text).Block(kind, block);
    }
    if (term.slip && tier >= QuickTier::Slip) mask |= term.bySlip.Block(kind, block);
    return mask;
}

/// Rows without a word in their names may still have it elsewhere.
BlockMask CandidatesOfNot(const QuickPlan& plan, const QuickNode& node, QuickKind kind,
                          std::int32_t block) {
    if (node.type != QuickNode::Type::Term) return All();
    const PlannedTerm& term = plan.terms[node.term];
    const CandidateRows& names = term.In(QuickText::Name);
    if (!term.IsLookedForIn(QuickText::Name) || !names.IsKnown(kind)) return All();
    return ~names.Of(kind).Block(block);
}

BlockMask CandidatesOfNode(const QuickPlan& plan, const QuickNode& node, QuickTier tier,
                           QuickKind kind, std::int32_t block) {
    switch (node.type) {
        case QuickNode::Type::Term:
            return CandidatesOfTerm(plan.terms[node.term], tier, kind, block);
        case QuickNode::Type::Not:
            return CandidatesOfNot(plan, node.parts.front(), kind, block);
        case QuickNode::Type::And: {
            BlockMask mask = All();
            for (const QuickNode& part : node.parts)
                mask &= CandidatesOfNode(plan, part, tier, kind, block);
            return mask;
        }
        case QuickNode::Type::Or:
            break;
    }
    BlockMask mask;
    for (const QuickNode& part : node.parts)
        mask |= CandidatesOfNode(plan, part, tier, kind, block);
    return mask;
}

/// A hit has the tier of one of its terms, so that term has to be found there.
BlockMask ReachedBy(const QuickPlan& plan, QuickTier tier, QuickKind kind, std::int32_t block) {
    if (tier == QuickTier::Filter) return All();
    BlockMask mask;
    for (const PlannedTerm& term : plan.terms) {
        if (term.isNegated || !IsTextField(term.term.field)) continue;
        if (tier == QuickTier::Slip) {
            if (term.slip) mask |= term.bySlip.Block(kind, block);
            continue;
        }
        for (std::size_t i = 0; i < kQuickTexts; ++i) {
            const auto text = static_cast<QuickText>(i);
            const bool isOfTier = TierOfText(text) == tier || (IsNameTier(tier) && i == 0);
            if (isOfTier && term.IsLookedForIn(text)) mask |= term.In(text).Block(kind, block);
        }
    }
    return mask;
}

}  // namespace

PlannedTerm::PlannedTerm(const QuickTerm& from) : term(from) {
    if (term.field == QuickField::Kind || term.field == QuickField::Date) return;
    pattern.emplace(term.text, term.isPhrase ? WordPattern::Wildcards::AreLetters
                                             : WordPattern::Wildcards::Count);
    const bool isInNames = term.field == QuickField::Anything || term.field == QuickField::Name;
    const bool hasWildcard = pattern->Literal() != term.text;
    if (isInNames && !term.isPhrase && !hasWildcard && SlipPattern::IsLongEnough(term.text)) {
        slip.emplace(term.text);
    }
}

bool PlannedTerm::IsLookedForIn(QuickText text) const {
    if (isRuledOut) return false;
    if (term.field == QuickField::Anything) return true;
    return IsTextField(term.field) && TextOfField(term.field) == text;
}

QuickPlan::QuickPlan(Database& database, const QuickQuery& query)
    : db(database), root(query.root.value_or(QuickNode())) {
    for (const QuickTerm& term : query.terms)
        terms.emplace_back(term);
    MarkNegated(root, false, terms);
    RuleOut(root, terms);
    for (PlannedTerm& term : terms) {
        // Names with a word under a "not" are no candidates, as far as they were looked at.
        if (term.isNegated && term.IsLookedForIn(QuickText::Name))
            term.In(QuickText::Name).KnowAll();
    }
    for (const QuickLevel& level : kQuickLevels)
        newestBlock[static_cast<std::size_t>(level.kind)] = NewestBlock(db, level);
}

bool QuickPlan::UsesText(QuickText text) const {
    return std::ranges::any_of(terms, [text](const PlannedTerm& term) {
        return !term.isNegated && term.IsLookedForIn(text);
    });
}

bool QuickPlan::UsesSlips() const {
    return std::ranges::any_of(
        terms, [](const PlannedTerm& term) { return !term.isNegated && term.slip.has_value(); });
}

bool QuickPlan::LooksAtNames() const {
    return std::ranges::any_of(
        terms, [](const PlannedTerm& term) { return term.IsLookedForIn(QuickText::Name); });
}

BlockMask CandidatesOf(const QuickPlan& plan, QuickTier tier, QuickKind kind, std::int32_t block) {
    BlockMask mask = ReachedBy(plan, tier, kind, block);
    if (mask.any()) mask &= CandidatesOfNode(plan, plan.root, tier, kind, block);
    if (block == 0) mask.reset(0);  // IDs are positive
    return mask;
}

bool CanBeMetByFilters(const QuickNode& node, const std::vector<PlannedTerm>& terms) {
    const auto canBe = [&](const QuickNode& part) { return CanBeMetByFilters(part, terms); };
    switch (node.type) {
        case QuickNode::Type::Term:
            return !IsTextField(terms[node.term].term.field);
        case QuickNode::Type::Not:
            return true;
        case QuickNode::Type::And:
            return std::ranges::all_of(node.parts, canBe);
        case QuickNode::Type::Or:
            break;
    }
    return std::ranges::any_of(node.parts, canBe);
}

}  // namespace snippetarium
