#include "cli/text_argument.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <istream>

#include "cli/command_context.h"
#include "cli/usage_error.h"
#include "keywords/words.h"
#include "support/error.h"
#include "support/line_ends.h"
#include "support/text_file.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kStandardInput = "-";
constexpr std::string_view kLineBreak = "\r\n";
/// More than the longest text of the catalogue takes in any encoding. What is longer is not read to
/// its end: it may have none.
constexpr std::size_t kMostBytes = 1'000'000;

std::string ReadBytes(std::istream& input, const std::string& name) {
    std::string bytes(kMostBytes + 1, '\0');
    input.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (input.bad())
        throw Error(error_number::kFileReadWrite, "The file '" + name + "' cannot be read.");
    bytes.resize(static_cast<std::size_t>(input.gcount()));
    if (bytes.size() <= kMostBytes) return bytes;
    throw Error(error_number::kInvalidCall,
                "What '" + name + "' holds is too long for the catalogue: it has more than " +
                    std::to_string(kMostBytes) + " bytes.");
}

std::string ReadFile(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        throw Error(error_number::kFileReadWrite, "'" + path + "' is a folder, not a file.");
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw Error(error_number::kFileNotFound,
                    "The file '" + path + "' cannot be opened: " + std::strerror(errno) + ".");
    }
    return ReadBytes(file, path);
}

}  // namespace

void RequireUtf8(std::string_view name, std::string_view value) {
    if (!IsValidUtf8(value))
        throw UsageError("The value of " + std::string(name) + " is not valid UTF-8.");
}

std::optional<std::string> TextArgument(const CommandContext& context, std::string_view name) {
    std::optional<std::string> text = context.Given().Value(name);
    if (!text) return text;
    RequireUtf8(name, *text);
    NormaliseLineEnds(*text);
    return text;
}

std::optional<std::string> FileArgument(const CommandContext& context, std::string_view option) {
    const std::optional<std::string> source = context.Given().Value(option);
    if (!source) return std::nullopt;
    const std::string bytes = *source == kStandardInput
                                  ? ReadBytes(context.GetStreams().input, "the standard input")
                                  : ReadFile(*source);
    std::string text = DecodeTextFile(bytes).text;
    if (text.ends_with(kLineBreak)) text.resize(text.size() - kLineBreak.size());
    return text;
}

std::vector<std::string> SplitList(std::string_view list) {
    std::vector<std::string> entries;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(';'), list.size());
        const std::string_view entry = TrimBlanks(list.substr(0, end));
        if (!entry.empty()) entries.emplace_back(entry);
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return entries;
}

}  // namespace snippetarium
