#pragma once

#include <span>

#include "support/embedded_file.h"

namespace snippetarium {

/// What a catalogue is made of, in the order of the library's CMakeLists.txt.
std::span<const EmbeddedFile> EmbeddedFiles();

}  // namespace snippetarium
