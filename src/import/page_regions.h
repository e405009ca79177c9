#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "import/text_range.h"

namespace snippetarium {

// The parts of a page that hold program text.

enum class ScriptLanguage : std::uint8_t { VbScript, JavaScript };

/// Who runs it. What a server runs is one program for the whole page, whatever stands between its
/// parts; each script element for a browser stands for itself.
enum class ScriptSide : std::uint8_t { Server, Browser };

enum class PageKind : std::uint8_t {
    /// Blocks in <% %> are run by the server.
    ServerPage,
    Html,
};

struct PageRegion {
    /// What stands between the tags or percent signs.
    TextRange range = {};
    ScriptLanguage language = ScriptLanguage::VbScript;
    ScriptSide side = ScriptSide::Server;

    bool operator==(const PageRegion&) const = default;
};

/// In the order in which they begin. A region for a browser may have regions of the server in it.
/// What a server only prints (<%= ... %>) and scripts in other languages are left out.
///
/// The server's language is that of the page's directive, <%@ language="JavaScript" %>, and
/// VBScript without one. A script element's is told by its attributes language or type, and is
/// JavaScript without them (for the server: the server's language).
std::vector<PageRegion> FindPageRegions(std::string_view text, PageKind kind);

/// The text with every byte outside the ranges replaced by a blank, but for line breaks: what is
/// left stands on the lines and at the positions that it has in the page.
std::string OnlyRanges(std::string_view text, const std::vector<TextRange>& ranges);

/// The text of a page without the blocks of its server. What they print becomes a word of the same
/// length, the others blanks; line breaks stay.
std::string WithoutServerBlocks(std::string_view text);

}  // namespace snippetarium
