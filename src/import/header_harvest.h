#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/author_links.h"

namespace snippetarium {

/// What a comment that heads a class or a procedure says of it.
struct HarvestedHeader {
    /// Each once, in the order of the comment.
    std::vector<AuthorName> authors = {};
    /// Days as "2001-03-14", each once, in the order of the comment.
    std::vector<std::string> dates = {};
    /// A keyword string; those of several lines with ", " between them.
    std::string keywords = {};

    bool operator==(const HarvestedHeader&) const = default;
};

/// Reads the lines of a comment that begin, behind their decoration, with one of kHeaderLabels in
/// any letter case. The decoration is what any of the languages puts around a line of a comment.
///
///     ' Author: Ann B. Lee <ann@example.org> and Bob Moss
///      * Last modified: 14-Mar-2001, by Bob
///     ' Keywords: grid, drawing
///
/// Authors stand between commas, semicolons, "&" and "and". Mail addresses and what stands in
/// brackets are no part of a name, nor is a date or anything else without a letter an author. A
/// single word is a last name; what stands between the first word and the last is the middle name.
///
/// Dates are read in the forms of support/date_text.h, wherever they stand in the line.
HarvestedHeader HarvestHeader(std::string_view comment);

}  // namespace snippetarium
