#pragma once

#include <stdexcept>

namespace snippetarium {

/// The command line asks for something that does not exist or leaves out something needed. The
/// program then does nothing and ends with status 2.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace snippetarium
