#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "import/line_progress.h"
#include "import/syntax_tree.h"
#include "import/text_range.h"

namespace snippetarium {

enum class Grammar : std::uint8_t { Java, CSharp, JavaScript };

enum class ParseEnd : std::uint8_t {
    Done,
    /// The user cancelled the import.
    Cancelled,
    /// More brackets within brackets, more time or more memory than any sensible file takes.
    TooTangled,
};

struct ParseResult {
    ParseEnd end = ParseEnd::Done;
    /// Empty (a null root) unless Done.
    SyntaxTree tree = {};
};

/// Parses any text; what is no source of that language becomes error nodes. The parser does not see
/// what stands in the `skipped` ranges, which are in the order of the text; a few hundred of them
/// cost nothing, many cost much. Moves `progress` on with the lines that were read, which lets the
/// user cancel.
ParseResult ParseSyntax(std::string_view text, Grammar grammar, LineProgress& progress,
                        std::span<const TextRange> skipped = {});

}  // namespace snippetarium
