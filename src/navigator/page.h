#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "import/text_range.h"
#include "navigator/page_heading.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;

// What the page view shows of a node, as data.
//
// The text of a page has line ends of LF alone, so that a place in it is the same place in a text
// control; ranges count its bytes from 0 (navigator/utf16_map.h has the places that controls count
// in).

/// A place in the text that leads to another node: a procedure's marker in the text of its class,
/// a class in the list of an application.
struct PageLink {
    TextRange range;
    std::string targetKey;

    bool operator==(const PageLink&) const = default;
};

struct Page {
    /// All 0 where there is nothing to show.
    NodeIDs node;
    std::string name;
    std::vector<HeadingLine> heading;
    std::string text;
    std::vector<PageLink> links;
    /// Which language highlights the text (navigator/highlight.h); 0 for prose.
    std::int32_t languageID = 0;
};

/// The page of a node: of an application its comment and its classes, of a class its comment and
/// its text, of a procedure its comment and its code, whole also where a text was too long for its
/// column. Lines of a comment that the heading repeats are left out (support/header_labels.h). An
/// empty page where the node is gone, and on a failure, which is reported.
Page ReadPage(Database& db, const NodeIDs& node);

/// The text of a procedure as it is copied into a program: comment and code as they are stored,
/// without what ReadPage leaves out, with line ends of LF. The page's whole text for other nodes.
std::string TextToCopy(Database& db, const NodeIDs& node);

}  // namespace snippetarium
