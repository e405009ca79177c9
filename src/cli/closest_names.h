#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

/// The names that a mistyped one may have meant, the likeliest first, at most `limit` of them:
/// those that contain it, and those that a few changed letters make of it. Letter case counts for
/// nothing.
std::vector<std::string> ClosestNames(std::string_view typed,
                                      std::span<const std::string_view> names, std::size_t limit);

/// " Did you mean 'tree'?", or nothing where no name comes close. To be put behind a message.
std::string ClosestNamesHint(std::string_view typed, std::span<const std::string_view> names);

}  // namespace snippetarium
