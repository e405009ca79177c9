#include "import/logical_line.h"

#include <algorithm>
#include <utility>

#include "support/text.h"

namespace snippetarium {

namespace {

struct Replacement {
    std::string_view what;
    std::string_view with;
};

// clang-format off
constexpr Replacement kKeyPasses[] = {
    {"            ", " "},
    {"     ", " "},
    {"   ", " "},
    {"  ", " "},
    {" = ", "="},
    {"= ", "="},
    {" =", "="},
    {" > ", ">"},
    {"> ", ">"},
    {" >", ">"},
    {" ( ", "("},
    {"( ", "("},
    {" (", "("},
};
// clang-format on

/// One pass from left to right. The replacement must be the shorter of the two.
void ShortenAll(std::string& text, const Replacement& replacement) {
    std::size_t found = text.find(replacement.what);
    if (found == std::string::npos) return;
    std::size_t written = found;
    while (found != std::string::npos) {
        written += replacement.with.copy(&text[written], replacement.with.size());
        const std::size_t kept = found + replacement.what.size();
        found = text.find(replacement.what, kept);
        const std::size_t keptEnd = std::min(found, text.size());
        std::copy(&text[kept], &text[keptEnd], &text[written]);
        written += keptEnd - kept;
    }
    text.resize(written);
}

}  // namespace

std::string_view LineReader::ReadLine() {
    const std::size_t newline = std::min(text_.find('\n', offset_), text_.size());
    std::string_view line = text_.substr(offset_, newline - offset_);
    if (newline < text_.size() && line.ends_with('\r')) line.remove_suffix(1);
    offset_ = std::min(newline + 1, text_.size());
    ++lineNumber_;
    progress_.LineRead();
    return line;
}

LogicalLine ReadLogicalLine(LineReader& reader) {
    const std::size_t begin = reader.Offset();
    const std::size_t number = reader.LineNumber() + 1;
    const std::string_view first = reader.ReadLine();
    const char* end = first.data() + first.size();
    std::string key(TrimToVisible(first));
    while (key.ends_with('_') && !reader.AtEnd()) {
        const std::string_view next = reader.ReadLine();
        end = next.data() + next.size();
        key.back() = ' ';
        key += TrimToVisible(next);
    }
    return {{first.data(), end}, NormaliseKeyLine(std::move(key)), begin, number};
}

std::string NormaliseKeyLine(std::string text) {
    for (const Replacement& pass : kKeyPasses)
        ShortenAll(text, pass);
    text.erase(text.find_last_not_of(' ') + 1);
    text.erase(0, text.find_first_not_of(' '));
    return text;
}

bool IsCommentLine(std::string_view key) {
    return key.starts_with('\'');
}

bool IsBlankLine(std::string_view line) {
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace snippetarium
