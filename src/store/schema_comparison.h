#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/inspection.h"
#include "store/check.h"

namespace snippetarium {

/// The text of a CREATE statement so that two that mean the same are the same: without comments,
/// each run of white space one blank, none beside brackets and commas, outside literals in small
/// letters.
std::string NormalisedSchemaText(std::string_view text);

/// What a catalogue's tables, indexes and triggers, and the planner's statistics, lack of those of
/// a new catalogue, or have otherwise.
std::vector<CheckFinding> CompareSchemas(const Inspection& catalogue, const Inspection& delivered);

/// The stored queries that are missing or differ from the program's.
std::vector<CheckFinding> CompareStoredQueries(const Inspection& catalogue,
                                               const Inspection& delivered);

}  // namespace snippetarium
