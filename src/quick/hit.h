#pragma once

#include "quick/node_row.h"
#include "quick/plan.h"
#include "quick/quick_search.h"

namespace snippetarium {

/// What is shown of a row that was found.
QuickHit DescribeHit(const QuickPlan& plan, NodeRow& row, QuickTier tier);

}  // namespace snippetarium
