#pragma once

#include "import/c_tokens.h"

namespace snippetarium {

/// Chooses among the branches of each #if, so that the brackets of what stays fit together.
///
/// All branches stay where each is complete in itself, so that a procedure that is written once for
/// each platform is found each time. Where one is not (a head in two versions with one body behind
/// the #endif), only the first stays, and the tokens of the others are masked. What stands behind
/// #if 0 need not be code at all and never stays.
void MaskBrokenBranches(CTokens& tokens);

}  // namespace snippetarium
