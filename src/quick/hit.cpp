#include "quick/hit.h"

#include <algorithm>

namespace snippetarium {

namespace {

using Patterns = std::vector<const WordPattern*>;

/// The patterns of all terms that make hits and are looked for in this text.
Patterns PatternsIn(const QuickPlan& plan, QuickText text) {
    Patterns patterns;
    for (const PlannedTerm& term : plan.terms) {
        if (!term.isNegated && term.IsLookedForIn(text)) patterns.push_back(&*term.pattern);
    }
    return patterns;
}

/// Of the terms that make hits, those that the row has at this very tier. For a name, those that it
/// has in its name.
Patterns PatternsOfTier(const QuickPlan& plan, NodeRow& row, QuickTier tier) {
    Patterns patterns;
    for (const PlannedTerm& term : plan.terms) {
        if (term.isNegated || !IsTextField(term.term.field)) continue;
        const auto ofTerm = row.TierOf(term, tier);
        const bool isName = tier <= QuickTier::NamePart;
        if (ofTerm && (isName || *ofTerm == tier)) patterns.push_back(&*term.pattern);
    }
    return patterns;
}

QuickText TextOfTier(QuickTier tier) {
    switch (tier) {
        case QuickTier::Keyword:
            return QuickText::Keyword;
        case QuickTier::Comment:
            return QuickText::Comment;
        default:
            return QuickText::Code;
    }
}

void MarkName(const QuickPlan& plan, QuickHit& hit) {
    hit.nameMatches = FindAll(hit.Name(), PatternsIn(plan, QuickText::Name));
    if (hit.tier != QuickTier::Slip) return;
    for (const PlannedTerm& term : plan.terms) {
        if (!term.slip || !hit.nameMatches.empty()) continue;
        if (const auto stretch = term.slip->Find(hit.Name())) hit.nameMatches.push_back(*stretch);
    }
}

/// The keywords of a hit are shown also where a word stands in none of them as it was typed.
MatchingLine WholeKeywords(const std::string& keywords) {
    MatchingLine line;
    line.text = keywords.substr(0, keywords.find_first_of("\r\n"));
    line.number = 1;
    line.place = 1;
    return line;
}

void FindLine(const QuickPlan& plan, NodeRow& row, QuickHit& hit) {
    if (hit.tier == QuickTier::Slip || hit.tier == QuickTier::Filter) return;
    hit.lineOf = TextOfTier(hit.tier);
    const Patterns sought = PatternsOfTier(plan, row, hit.tier);
    const Patterns marked = hit.tier <= QuickTier::NamePart ? sought : PatternsIn(plan, hit.lineOf);
    switch (hit.lineOf) {
        case QuickText::Keyword: {
            const std::string keywords = row.Keywords();
            hit.line = FindMatchingLine(keywords, sought, marked);
            if (hit.line.number == 0) hit.line = WholeKeywords(keywords);
            break;
        }
        case QuickText::Comment:
            hit.line = FindMatchingLine(row.Comment(), sought, marked);
            break;
        default:
            hit.line = FindMatchingLine(row.Code(), sought, marked);
            break;
    }
}

}  // namespace

QuickHit DescribeHit(const QuickPlan& plan, NodeRow& row, QuickTier tier) {
    QuickHit hit;
    hit.kind = row.Kind();
    hit.tier = tier;
    hit.ids = row.IDs();
    hit.appName = row.AppName();
    if (hit.kind != QuickKind::Application) hit.className = row.ClassName();
    if (hit.kind == QuickKind::Procedure) hit.procedureName = row.Name();
    switch (hit.kind) {
        case QuickKind::Application:
            hit.key = ApplicationNodeKey(hit.ids.appID);
            break;
        case QuickKind::Class:
            hit.key = ClassNodeKey(hit.ids.appID, hit.ids.classID);
            break;
        case QuickKind::Procedure:
            hit.key = ProcedureNodeKey(hit.ids);
            break;
    }
    MarkName(plan, hit);
    FindLine(plan, row, hit);
    return hit;
}

const std::string& QuickHit::Name() const {
    if (kind == QuickKind::Application) return appName;
    return kind == QuickKind::Class ? className : procedureName;
}

}  // namespace snippetarium
