#pragma once

#include <string>
#include <string_view>

#include "export/markers.h"

namespace snippetarium {

/// The text of a class's file: the class's text with its procedures in it and the comment that
/// heads the class, where the language wants it. In Visual Basic the comment follows the lines that
/// the development environment itself keeps at the top of a file, up to "Option Explicit" in
/// whatever letter case; on a page it follows the first line if that opens a block of script
/// ("<%"); everywhere else it comes first.
///
/// `text` ends in a line break. Each piece of the file has one line break added behind it, which
/// for the last piece is this one:
///
///     VERSION 1.0 CLASS
///                                    <- behind the line break that was there, the one added
///     '*** the comment ***
///     Option Explicit
std::string LayOutClass(MarkerFamily family, std::string_view text, std::string_view header);

}  // namespace snippetarium
