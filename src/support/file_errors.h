#pragma once

#include <string_view>

#include "support/error.h"

namespace snippetarium {

/// What was to be done with a file or folder when it failed.
enum class FileAction { Read, Write, Append, Delete, Inspect, List, MakeFolder };

/// The Error for an action that the system refused. The text names the path, in the platform's
/// writing, says why it failed and what to do about it:
///
///     The file '/home/ann/Form1.frm' cannot be written: the disk is full. Free some space on it,
///     or choose another disk.
///
/// `systemError` is a value of errno.
Error FileError(FileAction action, std::string_view path, int systemError);

}  // namespace snippetarium
