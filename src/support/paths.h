#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

// A path is UTF-8 text in which a backslash and a slash both separate. The catalogue writes
// backslashes ("sub\Form1.frm"); the disk gets what its platform wants. Only the file system
// classes and those who show a path to the user need ToPlatformPath: everything else passes paths
// as they are.
//
// The functions for the parts of a path look at the text alone, never at the disk, and give views
// into the path that was passed. A separator at the end does not count: "src\sub\" is the folder
// "src\sub".

/// The path with the platform's separators.
std::string ToPlatformPath(std::string_view path);

/// The path with the catalogue's separators, backslashes.
std::string ToCataloguePath(std::string_view path);

/// The entry below the folder, with one separator between them, a backslash where the folder does
/// not end in one of its own. An empty folder gives the entry alone.
std::string JoinPath(std::string_view folder, std::string_view entry);

/// "C:" of "C:\src", "\\server\share" of "\\server\share\src"; of a path that starts at the root of
/// a platform without drive letters, that root: "/" of "/home/ann". Empty for a relative path.
std::string_view DriveName(std::string_view path);

/// All but the last part: "src" of "src\sub\", "C:\" of "C:\src", "/" of "/home". Empty for a root
/// and for a path of one part.
std::string_view ParentFolder(std::string_view path);

/// The last part: "Form1.frm" of "sub\Form1.frm". Empty for a root.
std::string_view FileName(std::string_view path);

/// The file name without its extension: "a.tar" of "a.tar.gz", empty of ".profile".
std::string_view BaseName(std::string_view path);

/// What follows the last dot of the file name, without that dot: "gz" of "a.tar.gz", "profile" of
/// ".profile". Empty when there is no dot.
std::string_view FileExtension(std::string_view path);

}  // namespace snippetarium
