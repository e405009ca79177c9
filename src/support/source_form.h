#pragma once

#include <string>
#include <string_view>

#include "support/line_ends.h"

namespace snippetarium {

/// What a source file looked like beyond its text: how its characters were written and how its
/// lines ended. A SourceForm made by default is the form of files that the program makes itself.
struct SourceForm {
    /// A name that OpenEncoding takes.
    std::string encoding = "UTF-8";
    bool hasByteOrderMark = false;
    LineEnds lineEnds;

    /// The form as one text, for a column of the catalogue:
    ///
    ///     encoding=windows-1252;mark=no;ends=crlf;last=open;others=3,7-9
    ///
    /// "last" is "open" when no line end follows the last line, "others" stands only where there
    /// are lines that end in the other way.
    std::string Serialise() const;

    /// Reads what Serialise wrote, the fields in any order; a field that is missing has its
    /// default, so an empty text gives the default form. Throws Error for anything else.
    static SourceForm Parse(std::string_view text);

    friend bool operator==(const SourceForm&, const SourceForm&) = default;
};

}  // namespace snippetarium
