#include "editors/comment_text.h"

#include <algorithm>
#include <cstddef>

namespace snippetarium {

namespace {

constexpr std::string_view kBlanks = " \t";
/// Of comments in Visual Basic, in C and its family, and on pages.
constexpr std::string_view kMarksBefore = "'/*!<-= \t";
constexpr std::string_view kMarksBehind = "*/->= \t";

std::string_view WithoutMarks(std::string_view line) {
    const std::size_t first = line.find_first_not_of(kMarksBefore);
    if (first == std::string_view::npos) return {};
    std::string_view text = line.substr(first);
    const std::size_t end = text.find_last_not_of(kBlanks) + 1;
    text = text.substr(0, end);
    const bool endsComment = text.ends_with("*/") || text.ends_with("-->");
    return text.substr(0, text.find_last_not_of(endsComment ? kMarksBehind : kBlanks) + 1);
}

}  // namespace

std::string FirstCommentLine(std::string_view comment) {
    while (!comment.empty()) {
        const std::size_t end = std::min(comment.find_first_of("\r\n"), comment.size());
        const std::string_view text = WithoutMarks(comment.substr(0, end));
        if (!text.empty()) return std::string(text);
        comment.remove_prefix(std::min(end + 1, comment.size()));
    }
    return {};
}

}  // namespace snippetarium
