#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "import/cut_file.h"
#include "import/source_units.h"

namespace snippetarium::test {

/// The text with CR LF where it has LF.
inline std::string WithCrLf(std::string_view text) {
    std::string result;
    for (const char character : text) {
        if (character == '\n') result += '\r';
        result += character;
    }
    return result;
}

/// The text that a file was cut from, put together again as export does it: comment and code in the
/// place of each procedure, and the line break at the end where `text` has one.
inline std::string Reassemble(const CutFile& cut, UnitPlacement placement, std::string_view text) {
    const bool addsBreak = placement == UnitPlacement::WholeLines;
    std::string result;
    std::size_t copied = 0;
    for (const CutProcedure& procedure : cut.procedures) {
        result.append(cut.text, copied, procedure.position - copied);
        copied = procedure.position;
        result += procedure.comment;
        if (addsBreak && !procedure.comment.empty()) result += "\r\n";
        result += procedure.code;
    }
    result.append(cut.text, copied);
    if (text.ends_with("\r\n")) result += "\r\n";
    return result;
}

}  // namespace snippetarium::test
