#pragma once

#include <memory>
#include <string_view>

#include "support/encoding.h"

namespace snippetarium {

/// UTF-8, UTF-16LE, UTF-16BE, UTF-32LE or UTF-32BE, in any usual writing; null for any other name.
std::unique_ptr<Encoding> OpenUnicodeEncoding(std::string_view name);

/// True for the names above whose characters take two bytes or four.
bool IsWideEncoding(std::string_view name);

}  // namespace snippetarium
