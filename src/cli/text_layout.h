#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace snippetarium {

// Laying out the program's own texts for a terminal. Their lines fit into 80 columns.
inline constexpr std::size_t kLineWidth = 80;

/// The text's paragraphs (parted by empty lines), each broken at blanks and every line indented. A
/// word that is too long for a line has one of its own. Ends in a line break unless it is empty.
std::string WrapParagraphs(std::string_view text, std::size_t indent);

/// "  term          help", the help broken into lines that start in the same column.
std::string DefinitionRow(std::string_view term, std::string_view help, std::size_t helpColumn);

}  // namespace snippetarium
