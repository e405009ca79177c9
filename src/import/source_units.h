#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "import/cut_file.h"
#include "import/text_range.h"

namespace snippetarium {

/// A definition that an analyser found in a file's text.
struct SourceUnit {
    std::string name = {};
    TextRange code = {};
    /// As CutProcedure::language.
    std::string language = {};
};

/// What may be cut out of a line.
enum class UnitPlacement : std::uint8_t {
    /// Any stretch: export puts comment and code in the marker's place and adds nothing.
    Exact,
    /// Only what stands on lines of its own: export adds a line break behind the comment and behind
    /// the code. The lines are cut with their indentation, and with what is blank, a semicolon or a
    /// comment at their end. Other units stay in the text.
    WholeLines,
};

/// Cuts the units out of the text, each with the comment block directly above it. `units` and
/// `comments` stand in the order of the text; a unit that begins before the one in front of it has
/// ended is left out. className and comment of the result are left empty.
///
/// A comment block is comments that start their lines, with no blank line between them and none
/// before the code. The line break that ends the text is left out: export adds it.
CutFile CutUnits(std::string_view text, std::span<const SourceUnit> units,
                 std::span<const TextRange> comments, UnitPlacement placement);

}  // namespace snippetarium
