#pragma once

#include <string_view>

namespace snippetarium {

/// "0.1.0", as the build's project says.
std::string_view ProgramVersion();

}  // namespace snippetarium
