#pragma once

#include "support/error.h"

namespace snippetarium {

/// An operation that asks before it writes would not do what it was told to. A message box has said
/// why.
class RefusedError : public Error {
  public:
    RefusedError() : Error(error_number::kInvalidCall, "Nothing was changed.") {}
};

/// For the result of such an operation: throws RefusedError unless it was done.
inline void RequireDone(bool isDone) {
    if (!isDone) throw RefusedError();
}

}  // namespace snippetarium
