#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

/// A path of the catalogue as the user is to see it: with the platform's separators. One that
/// begins with a drive or a server ("C:\src") comes from another platform and stays as it is
/// stored.
std::string ShownPath(std::string_view path);

}  // namespace snippetarium
