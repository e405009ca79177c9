#pragma once

#include <string>

#include "support/error.h"

namespace snippetarium {

/// An operation that checks or asks first would not do what it was told to. A message box has said
/// why; this says what that means.
class RefusedError : public Error {
  public:
    explicit RefusedError(const std::string& result = "Nothing was changed.")
        : Error(error_number::kInvalidCall, result) {}
};

/// For the result of such an operation: throws RefusedError unless it was done.
inline void RequireDone(bool isDone) {
    if (!isDone) throw RefusedError();
}

}  // namespace snippetarium
