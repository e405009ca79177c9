#pragma once

#include <string_view>

#include "import/cut_file.h"
#include "import/line_progress.h"

namespace snippetarium {

// Cutting a file of Visual Basic or VBScript into its class and its procedures. The text has CR LF
// line ends (support/line_ends.h).
//
// Nothing of the text is lost and nothing changes its place: when the procedures are put back
// above the line breaks that stand for them, and the header where export writes it, the same lines
// come out in the same order. Only blank lines behind a procedure, above the header and at the end
// of the file may become more, once: cutting what was put back gives the same records again, so
// that they do not grow with every import and export.
//
// A procedure without a name stays in the text, with its comment; its CutProcedure is empty and
// says only that it is there. When the import is cancelled, the cutting ends after the line at
// hand: the procedure at hand ends there, and all lines below stay uncut in the text.

CutFile CutVisualBasic(std::string_view text, LineProgress& progress);

/// VBScript has no properties here, takes its class's name from nowhere, and names a procedure
/// without brackets too.
CutFile CutVbScript(std::string_view text, LineProgress& progress);

}  // namespace snippetarium
