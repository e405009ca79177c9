#pragma once

#include <span>

#include "support/embedded_file.h"

namespace snippetarium {

/// Small projects in the languages that can be imported, one a folder. They look as an export
/// writes them, so that they come out of a catalogue as they went in.
std::span<const EmbeddedFile> SampleSources();

}  // namespace snippetarium
