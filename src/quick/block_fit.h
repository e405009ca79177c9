#pragma once

#include <cstdint>
#include <string_view>

#include "quick/name_block.h"
#include "quick/plan.h"
#include "quick/word_pattern.h"

namespace snippetarium {

// A letter or two that stand in many names, but never where a word starts, make no hit of the
// better tiers; yet only the names themselves can tell. So a block of names is first looked
// through as one text, for nothing but the places where a word may start. That is done with the
// processor's vectors and takes a twentieth of looking at name by name.

/// How well a pattern fits the best name of a block, at most.
enum class BlockFit : std::uint8_t {
    /// It is in none of them.
    None,
    /// It does not stand where a name or a word in it starts.
    Inside,
    /// It is none of them, not even without a parameter list.
    AtWordStart,
    Whole,
};

/// For a text of names with a line break between two. The pattern may fit worse than is told, but
/// never better.
BlockFit FitOfBlock(const WordPattern& pattern, std::string_view names);

/// How well the best name of a block of procedures fits the entry, at most. Notes the terms that
/// are in none of them.
BlockFit FitOfEntry(QuickPlan& plan, const NameBlock& names, std::int32_t block);

}  // namespace snippetarium
