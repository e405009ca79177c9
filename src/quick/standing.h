#pragma once

#include <optional>

#include "quick/name_match.h"

namespace snippetarium {

/// How a row meets a part of an entry. There may be several ways, and a hit has the rank of the
/// best one in which a text of its own plays a part: "draw or lang:java" ranks a Java procedure
/// that is called "Draw" by its name.
struct Standing {
    /// It meets the part by filters and "not" alone.
    bool byFilters = false;
    /// The best tier at which it meets the part with some text of its own.
    std::optional<QuickTier> byText;

    static Standing OfFilter(bool holds) { return {holds, {}}; }
    static Standing OfText(std::optional<QuickTier> tier) { return {false, tier}; }

    bool IsMet() const { return byFilters || byText; }
    std::optional<QuickTier> Tier() const {
        return !byText && byFilters ? std::optional(QuickTier::Filter) : byText;
    }
};

/// The better of two tiers that may be missing.
constexpr std::optional<QuickTier> BetterTier(std::optional<QuickTier> a,
                                              std::optional<QuickTier> b) {
    if (!a || !b) return a ? a : b;
    return *a < *b ? a : b;
}

/// Of "a or b".
inline Standing Either(const Standing& a, const Standing& b) {
    return {a.byFilters || b.byFilters, BetterTier(a.byText, b.byText)};
}

/// Of "a and b": each by text, or one by text and the other by filters.
inline Standing Both(const Standing& a, const Standing& b) {
    Standing both{a.byFilters && b.byFilters, {}};
    if (a.byText && b.byText) both.byText = *a.byText < *b.byText ? b.byText : a.byText;
    if (b.byFilters) both.byText = BetterTier(both.byText, a.byText);
    if (a.byFilters) both.byText = BetterTier(both.byText, b.byText);
    return both;
}

/// Of a node of an entry, where `ofTerm(node)` gives the standing of a term and `ofNot(node)` that
/// of a "not".
template <typename Node, typename OfTerm, typename OfNot>
Standing StandingOf(const Node& node, const OfTerm& ofTerm, const OfNot& ofNot) {
    switch (node.type) {
        case Node::Type::Term:
            return ofTerm(node);
        case Node::Type::Not:
            return ofNot(node);
        case Node::Type::And: {
            Standing all = Standing::OfFilter(true);
            for (const Node& part : node.parts) {
                all = Both(all, StandingOf(part, ofTerm, ofNot));
                if (!all.IsMet()) break;
            }
            return all;
        }
        case Node::Type::Or:
            break;
    }
    Standing any;
    for (const Node& part : node.parts)
        any = Either(any, StandingOf(part, ofTerm, ofNot));
    return any;
}

}  // namespace snippetarium
