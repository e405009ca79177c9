#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace snippetarium::bench {

/// Makes a catalogue of generated sources: for every 500 procedures an application, for every 20 a
/// class, about 900 bytes of source a procedure, and keywords, authors, dates and languages as
/// often as people give them. The same number gives the same catalogue, byte for byte. Replaces a
/// file of that name.
void GenerateCatalogue(const std::string& path, std::int32_t procedures);

/// Writes the procedures of each class into a file of their own, for tools that search in files.
/// `text` is what is written of a procedure: an expression on its columns.
void WriteSources(const std::filesystem::path& catalogue, const std::filesystem::path& folder,
                  const std::string& text);

}  // namespace snippetarium::bench
