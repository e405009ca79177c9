#pragma once

#include "import/c_tokens.h"

namespace snippetarium {

/// Masks the declarations of parameters that C before its standard had between the head of a
/// function and its body:
///
///     int copy(from, to) char *from; char *to; { ... }
///
/// so that the scanner sees a head and its body.
void MaskOldStyleParameters(CTokens& tokens);

}  // namespace snippetarium
