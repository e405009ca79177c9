#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace snippetarium {

// Comment headers: the frames of asterisks that the editors put around the comment of a class or a
// procedure. A comment is stored framed and is exported as it is stored.
//
//     '**********************************************************************
//     'Draws the grid.
//     '**********************************************************************
//
// What all of them do: a comment that is framed already comes back unchanged, and so does an empty
// one. Every "//" is removed. Lines that the frame would make longer than 100 characters are broken
// at blanks; one without a blank stays whole. Any line break may stand in the comment, CR LF comes
// out.

/// Framed for Visual Basic: each line begins with "'". No line break behind the frame: export adds
/// one. A comment that begins with "'*" counts as framed.
std::string FormatVbCommentHeader(std::string_view comment);

/// Framed as one block comment of C: each line begins with "*". A line break stands behind the
/// frame, since the code follows right after it. A comment that begins with "/*" counts as framed.
/// A "*/" in the comment would end it too soon and becomes "* /".
std::string FormatCCommentHeader(std::string_view comment);

/// Framed as it fits a class of this language and its procedures. Besides the languages with C's
/// markers, C# (3) and headers (10, 11) have C's comments; their markers are lines, to which export
/// adds the line break, so their frame ends without one.
std::string FormatCommentHeader(std::string_view comment, std::int32_t languageID);

}  // namespace snippetarium
