#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

/// What a comment says first, for a heading: the first line in which anything is left when the
/// marks of comments, the frame, the tags of documentation and the blanks at both ends are taken
/// off. Empty where there is none.
///
///     '*******************
///     '  Draws the grid.      gives    Draws the grid.
///     '*******************
std::string FirstCommentLine(std::string_view comment);

}  // namespace snippetarium
