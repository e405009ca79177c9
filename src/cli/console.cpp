#include "cli/console.h"

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <istream>
#include <ostream>

#include "support/utf8.h"

namespace snippetarium {

namespace {

// Sequences that every terminal since the VT100 knows.
constexpr std::string_view kEraseLine = "\r\x1b[2K";
constexpr std::string_view kCutLongLines = "\x1b[?7l";
constexpr std::string_view kWrapLongLines = "\x1b[?7h";

constexpr char32_t kFirstSurrogate = 0xd800;  // DecodeUtf8 gives surrogates for malformed bytes
constexpr char32_t kLastSurrogate = 0xdfff;

bool IsHarmless(char32_t character) {
    if (character < 0x20) return character == '\n' || character == '\t';
    if (character >= 0x7f && character < 0xa0) return false;
    return character < kFirstSurrogate || character > kLastSurrogate;
}

}  // namespace

Console::Terminals Console::OfProcess() {
    const char* const type = std::getenv("TERM");
    const bool isDumb = type == nullptr || std::string_view(type) == "dumb";
    return {.input = isatty(STDIN_FILENO) == 1,
            .error = isatty(STDERR_FILENO) == 1 && !isDumb,
            .output = isatty(STDOUT_FILENO) == 1 && !isDumb};
}

void Console::PrintLine(std::string_view text) {
    ClearStatus();
    error_ << TerminalText(text) << '\n' << std::flush;
}

bool Console::Ask(std::string_view prompt, std::string& answer) {
    ClearStatus();
    error_ << TerminalText(prompt) << std::flush;
    input_.clear();  // an end of input that the user typed ends one answer, not all that follow
    if (std::getline(input_, answer)) return true;
    error_ << '\n' << std::flush;
    return false;
}

void Console::ShowStatus(std::string_view line) {
    if (!CanShowStatus()) return;
    std::string text = TerminalText(line);
    std::replace(text.begin(), text.end(), '\n', '?');
    error_ << kEraseLine << kCutLongLines << text << kWrapLongLines << std::flush;
    statusIsShown_ = true;
}

void Console::ClearStatus() {
    if (!statusIsShown_) return;
    error_ << kEraseLine << std::flush;
    statusIsShown_ = false;
}

std::string TerminalText(std::string_view text) {
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        const char32_t character = DecodeUtf8(text, position);
        if (character == '\r' && text.substr(position).starts_with('\n')) continue;
        if (IsHarmless(character)) {
            result += text.substr(start, position - start);
        } else {
            result += '?';
        }
    }
    return result;
}

}  // namespace snippetarium
