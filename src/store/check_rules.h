#pragma once

#include <span>
#include <string>
#include <string_view>

#include "store/check.h"

namespace snippetarium {

/// A rule that all rows of a table keep.
struct CheckRule {
    FindingKind kind;
    FindingWeight weight;
    std::string_view table;
    /// True for a row that breaks the rule.
    std::string_view condition;
    /// An expression that leads to such a row: "codeID 17".
    std::string_view example;
    /// Such rows in words.
    std::string_view what;
    /// What mends them when the condition follows: "DELETE FROM tblFavorite". Empty: nothing does.
    std::string_view mending;
    std::string_view advice;

    /// "FROM tblFavorite WHERE ..." and the whole mending statement.
    std::string Breaches() const;
    std::string MendingScript() const;
};

/// The rules, in the order in which they are checked and mended. Checking one takes one pass over
/// its table, whatever indexes there are.
std::span<const CheckRule> CheckRules();

}  // namespace snippetarium
