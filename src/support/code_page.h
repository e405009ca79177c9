#pragma once

#include <memory>
#include <string_view>

#include "support/encoding.h"

namespace snippetarium {

/// A single-byte or multi-byte code page; null for a name that is none.
std::unique_ptr<Encoding> OpenCodePage(std::string_view name);

}  // namespace snippetarium
