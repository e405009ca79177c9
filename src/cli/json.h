#pragma once

#include <nlohmann/json_fwd.hpp>

namespace snippetarium {

/// A document whose members keep the order in which they were added. Files that build one include
/// nlohmann/json.hpp besides.
using Json = nlohmann::ordered_json;

}  // namespace snippetarium
