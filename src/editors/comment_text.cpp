#include "editors/comment_text.h"

#include <algorithm>
#include <cstddef>

namespace snippetarium {

namespace {

constexpr std::string_view kBlanks = " \t";
/// Of comments in Visual Basic, in C and its family, and on pages.
constexpr std::string_view kMarksBefore = "'/*!-= \t";
constexpr std::string_view kPageComment = "<!--";
constexpr std::string_view kMarksBehind = "*/->= \t";

void CutMarksBefore(std::string_view& line) {
    line.remove_prefix(std::min(line.find_first_not_of(kMarksBefore), line.size()));
    if (!line.starts_with(kPageComment)) return;
    line.remove_prefix(kPageComment.size());
    CutMarksBefore(line);
}

/// The tags of a documentation comment: "<summary>", "<p>".
void CutTags(std::string_view& line) {
    while (line.starts_with('<') && line.find('>') != std::string_view::npos) {
        line.remove_prefix(line.find('>') + 1);
        line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    }
    if (line.ends_with('>') && line.rfind("</") != std::string_view::npos)
        line = line.substr(0, line.rfind("</"));
}

std::string_view WithoutMarks(std::string_view line) {
    CutMarksBefore(line);
    std::string_view text = line;
    const std::size_t end = text.find_last_not_of(kBlanks) + 1;
    text = text.substr(0, end);
    const bool endsComment = text.ends_with("*/") || text.ends_with("-->");
    text = text.substr(0, text.find_last_not_of(endsComment ? kMarksBehind : kBlanks) + 1);
    CutTags(text);
    return text;
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
