#pragma once

#include <string_view>

#include "export/whole_texts.h"
#include "support/file_system.h"
#include "support/source_form.h"

namespace snippetarium {

/// What becomes of what a file holds already.
enum class OutputMode : std::int8_t { Replace, Append };

/// A text on its way into a file.
struct TextOutput {
    std::string_view path;
    std::string_view text;  ///< ends in a line break
    SourceForm form;
};

/// Writes the file, whole or not at all. A file that is replaced or new gets the form. A text that
/// is appended begins on a line of its own and takes the form that the file has. Throws Error.
void PutText(FileSystem& files, const TextOutput& output, OutputMode mode, Remarks& remarks);

}  // namespace snippetarium
