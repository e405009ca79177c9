#pragma once

#include <string>
#include <string_view>

#include "support/line_set.h"

namespace snippetarium {

// A line ends at CR LF or at LF. A CR that no LF follows is a character of its line. Text inside
// the catalogue has CR LF only; LineEnds remembers what a file had.

enum class LineEnd { CrLf, Lf };

struct LineEnds {
    /// How most lines end. CR LF where neither kind has the majority.
    LineEnd most = LineEnd::CrLf;
    /// The lines that end in the other way.
    LineSet others;
    /// False when text without a line end stands behind the last one. True for an empty text.
    bool lastLineEnds = true;

    friend bool operator==(const LineEnds&, const LineEnds&) = default;
};

/// Makes every line end in CR LF and returns what the ends were.
LineEnds NormaliseLineEnds(std::string& text);

/// The text with the line ends given, NormaliseLineEnds undone. Of a text that was edited since,
/// `others` still means lines of these numbers, and line ends behind the last line are added or
/// dropped so that the file ends as it used to: with one or more, or with none.
std::string WithLineEnds(std::string_view text, const LineEnds& ends);

}  // namespace snippetarium
