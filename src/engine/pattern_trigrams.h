#pragma once

#include <vector>

#include "engine/jet_like.h"
#include "engine/trigrams.h"

namespace snippetarium {

/// What the texts that a pattern matches have in common: each holds at least one trigram of every
/// set that is returned. "%grids%" has the sets {gri}, {rid} and {ids}, "%gri[dp]%" the sets {gri}
/// and {rid, rip}. Empty where the pattern demands no three characters in a row, or leaves too many
/// to choose from.
std::vector<std::vector<Trigram>> TrigramChoicesOf(const LikePattern& pattern);

}  // namespace snippetarium
