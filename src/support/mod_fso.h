#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "support/file_system.h"
#include "support/host.h"
#include "support/text_stream.h"

namespace snippetarium {

// File operations that choose what to do by a number. A number without a meaning is a mistake of
// the caller: the user is shown which ones are right, and the result is false, an empty text or no
// stream. Failures of the disk are thrown, as by FileSystem.

/// Does the path exist as a drive (1), a folder (2) or a file (4)?
bool FSObjectExists(const FileSystem& files, MessageBoxes& messages, std::string_view path,
                    std::int16_t drive1folder2file4);

/// The path's drive name (1), parent folder (2), file name (4), file name without extension (8) or
/// extension without its dot (16), from its text alone (support/paths.h).
std::string GetFromPath(MessageBoxes& messages, std::string_view path,
                        std::int16_t Drive1Parent2File4Base8Ext16);

/// Opens the file for reading (1) or appending (8).
std::optional<TextStream> OpenTextFile(FileSystem& files, MessageBoxes& messages,
                                       std::string_view path, std::int16_t read1Append8);

/// Reads the stream to its end and returns the number of lines that were left.
std::size_t CountLines(TextStream& stream);

/// Moves over this many lines, fewer where the stream ends.
void SkipLines(TextStream& stream, std::size_t count);

}  // namespace snippetarium
