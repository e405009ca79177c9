#pragma once

#include <string_view>

#include "import/cut_file.h"
#include "import/line_progress.h"
#include "import/page_regions.h"

namespace snippetarium {

/// Cuts a server page or an HTML page into the procedures of its scripts, in VBScript and in
/// JavaScript. Text: UTF-8 with CR LF between lines. Each procedure bears the language of its
/// script. Only procedures that stand on lines of their own are cut; in
///
///     <% Sub Draw
///     End Sub %>
///
/// the percent signs share the lines, and it stays in the text. The result names no class: a page
/// is a class by its file name.
CutFile CutScriptPage(std::string_view text, PageKind kind, LineProgress& progress);

/// Does an include file hold something of a page? One that has neither a script nor a block of the
/// server is some other program's.
bool HoldsPageCode(std::string_view text);

}  // namespace snippetarium
