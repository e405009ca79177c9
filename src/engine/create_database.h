#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

/// Makes a new catalogue file at a platform path and fills it by a script in the engine's own SQL,
/// all or nothing: a failure leaves no file behind. Throws EngineError; CannotOpen when something
/// exists at the path already.
void CreateDatabase(const std::string& path, std::string_view script);

}  // namespace snippetarium
