#include "support/mod_fso.h"

#include <algorithm>
#include <array>
#include <span>

#include "support/message_boxes.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

/// A value that a selector may have, and what the user is told that it means.
struct Choice {
    std::int16_t value;
    std::string_view meaning;
};

enum ObjectKind : std::int16_t { Drive = 1, Folder = 2, File = 4 };
enum PathPart : std::int16_t {
    DrivePart = 1,
    ParentPart = 2,
    FilePart = 4,
    BasePart = 8,
    ExtensionPart = 16
};
enum OpenMode : std::int16_t { ReadMode = 1, AppendMode = 8 };

// clang-format off
constexpr std::array kObjectKinds{
    Choice{Drive, "drive"},
    Choice{Folder, "folder"},
    Choice{File, "file"},
};
constexpr std::array kPathParts{
    Choice{DrivePart, "drive name"},
    Choice{ParentPart, "parent folder name"},
    Choice{FilePart, "file name"},
    Choice{BasePart, "file name without extension"},
    Choice{ExtensionPart, "file extension"},
};
constexpr std::array kOpenModes{
    Choice{ReadMode, "for reading"},
    Choice{AppendMode, "for appending"},
};
// clang-format on

struct Selector {
    std::string_view functionName;
    std::string_view argumentName;
    std::span<const Choice> choices;
};

/// "1: drive" and so on, one choice a line.
std::string ChoiceLines(std::span<const Choice> choices) {
    std::string lines;
    for (const Choice& choice : choices) {
        if (!lines.empty()) lines += "\r\n";
        lines += std::to_string(choice.value) + ": ";
        lines += choice.meaning;
    }
    return lines;
}

/// True when the value is one of the selector's; else tells the user which these are.
bool Accepts(MessageBoxes& messages, const Selector& selector, std::int16_t value) {
    const auto hasValue = [value](const Choice& choice) { return choice.value == value; };
    if (std::any_of(selector.choices.begin(), selector.choices.end(), hasValue)) return true;
    ReportBadArgument(messages, selector.functionName, selector.argumentName, value,
                      ChoiceLines(selector.choices), kErrorTitle);
    return false;
}

}  // namespace

bool FSObjectExists(const FileSystem& files, MessageBoxes& messages, std::string_view path,
                    std::int16_t drive1folder2file4) {
    const Selector selector{"FSObjectExists", "drive1folder2file4", kObjectKinds};
    if (!Accepts(messages, selector, drive1folder2file4)) return false;
    if (drive1folder2file4 == Drive) return files.DriveExists(path);
    if (drive1folder2file4 == Folder) return files.FolderExists(path);
    return files.FileExists(path);
}

std::string GetFromPath(MessageBoxes& messages, std::string_view path,
                        std::int16_t Drive1Parent2File4Base8Ext16) {
    const Selector selector{"GetFromPath", "Drive1Parent2File4Base8Ext16", kPathParts};
    if (!Accepts(messages, selector, Drive1Parent2File4Base8Ext16)) return {};
    switch (Drive1Parent2File4Base8Ext16) {
        case DrivePart:
            return std::string(DriveName(path));
        case ParentPart:
            return std::string(ParentFolder(path));
        case FilePart:
            return std::string(FileName(path));
        case BasePart:
            return std::string(BaseName(path));
        default:
            return std::string(FileExtension(path));
    }
}

std::optional<TextStream> OpenTextFile(FileSystem& files, MessageBoxes& messages,
                                       std::string_view path, std::int16_t read1Append8) {
    const Selector selector{"OpenTextFile", "read1Append8", kOpenModes};
    if (!Accepts(messages, selector, read1Append8)) return std::nullopt;
    return read1Append8 == ReadMode ? TextStream::ForReading(files, path)
                                    : TextStream::ForAppending(files, path);
}

std::size_t CountLines(TextStream& stream) {
    std::size_t count = 0;
    for (; !stream.AtEnd(); ++count)
        stream.ReadLine();
    return count;
}

void SkipLines(TextStream& stream, std::size_t count) {
    for (; count > 0 && !stream.AtEnd(); --count)
        stream.ReadLine();
}

}  // namespace snippetarium
