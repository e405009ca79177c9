#include "support/text.h"

#include <algorithm>

namespace snippetarium {

namespace {

constexpr std::size_t kDigitsOfAGroup = 3;

bool IsQuote(char character) {
    return character == '"' || character == '\'';
}

bool IsVisible(char character) {
    return character >= 33 && character <= 126;
}

}  // namespace

std::string DoubleSingleQuotes(std::string_view text) {
    // Source texts come here by the ten thousand characters: one allocation, and whole runs copied.
    std::string doubled;
    doubled.reserve(text.size() + static_cast<std::size_t>(std::ranges::count(text, '\'')));
    std::size_t copied = 0;
    for (std::size_t quote = text.find('\''); quote != std::string_view::npos;
         quote = text.find('\'', copied)) {
        doubled.append(text, copied, quote + 1 - copied);
        doubled += '\'';
        copied = quote + 1;
    }
    doubled.append(text, copied);
    return doubled;
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
    std::string replaced;
    std::size_t copied = 0;
    if (!what.empty()) {
        for (std::size_t at = text.find(what); at != std::string_view::npos;
             at = text.find(what, copied)) {
            replaced.append(text, copied, at - copied).append(with);
            copied = at + what.size();
        }
    }
    return replaced.append(text, copied);
}

std::string_view StripOuterQuotes(std::string_view text) {
    if (!text.empty() && IsQuote(text.front())) text.remove_prefix(1);
    if (!text.empty() && IsQuote(text.back())) text.remove_suffix(1);
    return text;
}

std::string_view TrimToAlphanumeric(std::string_view text) {
    const std::size_t last = LastAlphanumericPos(text, text.size());
    if (last == 0) return {};
    const std::size_t first = FirstAlphanumericPos(text, last);
    return text.substr(first - 1, last - first + 1);
}

std::string_view TrimToVisible(std::string_view text) {
    while (!text.empty() && !IsVisible(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && !IsVisible(text.back()))
        text.remove_suffix(1);
    return text;
}

bool IsAlphanumeric(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z');
}

std::size_t FirstAlphanumericPos(std::string_view text, std::size_t length) {
    const std::string_view searched = text.substr(0, length);
    const auto found = std::ranges::find_if(searched, IsAlphanumeric);
    if (found == searched.end()) return length + 1;
    return static_cast<std::size_t>(found - searched.begin()) + 1;
}

std::size_t LastAlphanumericPos(std::string_view text, std::size_t length) {
    std::size_t position = std::min(length, text.size());
    while (position > 0 && !IsAlphanumeric(text[position - 1]))
        --position;
    return position;
}

std::int32_t MinOf(std::int32_t a, std::int32_t b) {
    return std::min(a, b);
}

std::size_t FindFirstOf(std::string_view text, std::span<const std::string_view> strings,
                        std::size_t start) {
    constexpr std::size_t kNone = std::string_view::npos;
    if (start == 0) start = 1;
    std::size_t first = kNone;
    for (const std::string_view string : strings) {
        if (!string.empty()) first = std::min(first, text.find(string, start - 1));
    }
    return first == kNone ? 0 : first + 1;
}

std::string Grouped(std::size_t number) {
    std::string text = std::to_string(number);
    for (std::size_t at = text.size(); at > kDigitsOfAGroup;) {
        at -= kDigitsOfAGroup;
        text.insert(at, ",");
    }
    return text;
}

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
    return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

}  // namespace snippetarium
