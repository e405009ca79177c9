#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "engine/inspection.h"
#include "store/check.h"

namespace snippetarium {

/// A table some of whose delivered rows no catalogue is ever without.
struct PermanentTable {
    std::string_view name;
    std::string_view key;
};

/// All rows that a new catalogue has in these are permanent.
std::span<const PermanentTable> TablesWithPermanentRows();

std::vector<CheckFinding> FindMissingPermanentRows(const Inspection& catalogue,
                                                   const Inspection& delivered);

}  // namespace snippetarium
