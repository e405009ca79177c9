#include "support/file_errors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <system_error>

#include "support/paths.h"

namespace snippetarium {

namespace {

struct Reason {
    int systemError;
    std::int32_t number;
    std::string_view cause;
    std::string_view advice;
};

// clang-format off
constexpr std::array kReasons{
    Reason{ENOENT, error_number::kFileNotFound, "it does not exist", "Check its name and its folder."},
    Reason{ENOTDIR, error_number::kPathNotFound, "a part of its path is no folder", "Check the path."},
    Reason{EACCES, error_number::kPermissionDenied, "access to it is denied", "Check who may use it and its folder."},
    Reason{EPERM, error_number::kPermissionDenied, "access to it is denied", "Check who may use it and its folder."},
    Reason{EROFS, error_number::kPermissionDenied, "its disk is write-protected", "Choose another disk."},
    Reason{EBUSY, error_number::kPermissionDenied, "another program is using it", "Close that program and try again."},
    Reason{ETXTBSY, error_number::kPermissionDenied, "another program is using it", "Close that program and try again."},
    Reason{EEXIST, error_number::kFileExists, "something else has this name", "Choose another name."},
    Reason{EISDIR, error_number::kBadFileName, "it is a folder", "Give the name of a file."},
    Reason{EINVAL, error_number::kBadFileName, "this is no valid name", "Choose another name."},
    Reason{EILSEQ, error_number::kBadFileName, "this is no valid name", "Choose another name."},
    Reason{ENAMETOOLONG, error_number::kBadFileName, "its path is too long", "Choose a shorter one."},
    Reason{ELOOP, error_number::kBadFileName, "the links on its path lead in a circle", "Mend the links, or choose another path."},
    Reason{ENOSPC, error_number::kDiskFull, "the disk is full", "Free some space on it, or choose another disk."},
    Reason{EDQUOT, error_number::kDiskFull, "your share of the disk is used up", "Free some space on it, or choose another disk."},
    Reason{EFBIG, error_number::kDiskFull, "the disk takes no file of this size", "Choose another disk."},
    Reason{ENOMEM, error_number::kOutOfMemory, "there is too little memory for it", "Close other programs and try again."},
};
// clang-format on

std::string_view Verb(FileAction action) {
    switch (action) {
        case FileAction::Read:
            return "read";
        case FileAction::Write:
            return "written";
        case FileAction::Append:
            return "appended to";
        case FileAction::Delete:
            return "deleted";
        case FileAction::Inspect:
            return "looked at";
        case FileAction::List:
            return "listed";
        case FileAction::MakeFolder:
            return "made";
    }
    return "used";
}

bool IsAboutFolder(FileAction action) {
    return action == FileAction::List || action == FileAction::MakeFolder;
}

/// A missing file that was to be written means that its folder is missing.
bool IsMissingFolder(FileAction action, int systemError) {
    return systemError == ENOENT && (action == FileAction::Write || action == FileAction::Append);
}

/// A NUL in the path, one way in which a name is no valid one, would end the message.
std::string ShownPath(std::string_view path) {
    std::string shown = ToPlatformPath(path);
    std::replace(shown.begin(), shown.end(), '\0', '?');
    return shown;
}

Error Described(FileAction action, std::string_view path, std::int32_t number,
                std::string_view cause, std::string_view advice) {
    std::string text = IsAboutFolder(action) ? "The folder '" : "The file '";
    text += ShownPath(path);
    text += "' cannot be ";
    text += Verb(action);
    text += ": ";
    text += cause;
    text += ". ";
    text += advice;
    return Error(number, text);
}

}  // namespace

Error FileError(FileAction action, std::string_view path, int systemError) {
    if (IsMissingFolder(action, systemError)) {
        return Described(action, path, error_number::kPathNotFound, "its folder does not exist",
                         "Make the folder first, or choose another one.");
    }
    const auto reason = std::find_if(kReasons.begin(), kReasons.end(), [&](const Reason& row) {
        return row.systemError == systemError;
    });
    if (reason == kReasons.end()) {
        const std::string cause =
            "the system reports \"" + std::generic_category().message(systemError) + "\"";
        return Described(action, path, error_number::kFileReadWrite, cause,
                         "Check the disk and try again.");
    }
    const bool isMissing = systemError == ENOENT && IsAboutFolder(action);
    const std::int32_t number = isMissing ? error_number::kPathNotFound : reason->number;
    return Described(action, path, number, reason->cause, reason->advice);
}

}  // namespace snippetarium
