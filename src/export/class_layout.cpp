#include "export/class_layout.h"

#include <cstddef>

#include "support/ascii_search.h"

namespace snippetarium {

namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kOptionExplicit = "Option Explicit";
constexpr std::string_view kScriptBlock = "<%";

/// What is written before the header, with the line break that is added behind it.
struct Head {
    std::size_t length = 0;
    std::string_view lineBreak;
};

Head HeadOfVisualBasic(std::string_view text) {
    const std::size_t found = FindIgnoringAsciiCase(text, kOptionExplicit);
    if (found == text.npos || found == 0) return {};
    return {found, kLineBreak};
}

Head HeadOfPage(std::string_view text) {
    if (!text.starts_with(kScriptBlock)) return {};
    const std::size_t end = text.find(kLineBreak);
    if (end == text.npos) return {text.size(), kLineBreak};
    return {end + kLineBreak.size(), ""};
}

Head HeadOf(MarkerFamily family, std::string_view text) {
    switch (family) {
        case MarkerFamily::VisualBasic:
            return HeadOfVisualBasic(text);
        case MarkerFamily::Page:
            return HeadOfPage(text);
        case MarkerFamily::C:
            break;
    }
    return {};
}

}  // namespace

std::string LayOutClass(MarkerFamily family, std::string_view text, std::string_view header) {
    if (header.empty()) return std::string(text);
    const Head head = HeadOf(family, text);
    std::string file(text.substr(0, head.length));
    file.append(head.lineBreak).append(header).append(kLineBreak);
    return file.append(text.substr(head.length));
}

}  // namespace snippetarium
