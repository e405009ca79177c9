#include "export/comment_header.h"

#include <algorithm>
#include <cstddef>

#include "export/markers.h"
#include "support/text.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::size_t kFrameStars = 70;
constexpr std::size_t kLongestLine = 100;
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineBreak = "\r\n";

enum class CommentStyle { VisualBasic, C };

/// Takes the first line off the text, and with it the line break.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of(kLineBreak), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with(kLineBreak) ? 2 : text.empty() ? 0 : 1);
    return line;
}

/// Takes off the line what fits into so many characters, up to a blank; where no blank lets it fit,
/// what comes before the first blank. The blanks in between are dropped.
std::string_view TakeFitting(std::string_view& line, std::size_t characters) {
    const std::string_view whole = line;
    const std::size_t fitting = CutToCharacters(line, characters).size();
    const std::size_t firstWord = line.find_first_not_of(kBlanks);
    std::size_t end = line.size();
    if (fitting < line.size() && firstWord != std::string_view::npos) {
        end = line.find_last_of(kBlanks, fitting);
        if (end == std::string_view::npos || end < firstWord)
            end = line.find_first_of(kBlanks, std::max(fitting, firstWord));
        end = std::min(end, line.size());
    }
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks, end), line.size()));
    if (end == whole.size()) return whole;
    return whole.substr(0, whole.find_last_not_of(kBlanks, end) + 1);
}

/// What makes this a line of the comment. Right behind "*" a slash would end it.
std::string_view LineMark(std::string_view line, CommentStyle style) {
    if (style == CommentStyle::VisualBasic) return "'";
    return line.starts_with('/') ? "* " : "*";
}

void AppendLine(std::string& framed, std::string_view line, CommentStyle style) {
    const char markCharacter = style == CommentStyle::C ? '*' : '\'';
    bool isMarked = line.starts_with(markCharacter);
    do {
        const std::string_view mark = isMarked ? "" : LineMark(line, style);
        framed.append(mark).append(TakeFitting(line, kLongestLine - mark.size()));
        framed += kLineBreak;
        isMarked = false;  // a broken line's later parts were not written as lines
    } while (!line.empty());
}

bool IsFramed(std::string_view comment, CommentStyle style) {
    return comment.starts_with(style == CommentStyle::C ? "/*" : "'*");
}

/// The framed comment without a line break behind it.
std::string Frame(std::string_view comment, CommentStyle style) {
    if (IsFramed(comment, style)) return std::string(comment);
    std::string text = ReplaceAll(comment, "//", "");
    if (text.empty()) return text;
    if (style == CommentStyle::C) text = ReplaceAll(text, "*/", "* /");
    const std::string stars(kFrameStars, '*');
    std::string framed = (style == CommentStyle::C ? "/" : "'") + stars;
    framed += kLineBreak;
    for (std::string_view rest = text; !rest.empty();)
        AppendLine(framed, TakeLine(rest), style);
    return framed += style == CommentStyle::C ? stars + "/" : "'" + stars;
}

/// True for C# and the two kinds of headers.
bool HasCCommentsOnly(std::int32_t languageID) {
    return languageID == 3 || languageID == 10 || languageID == 11;
}

}  // namespace

std::string FormatVbCommentHeader(std::string_view comment) {
    return Frame(comment, CommentStyle::VisualBasic);
}

std::string FormatCCommentHeader(std::string_view comment) {
    std::string framed = Frame(comment, CommentStyle::C);
    if (!framed.empty() && !IsFramed(comment, CommentStyle::C)) framed += kLineBreak;
    return framed;
}

std::string FormatCommentHeader(std::string_view comment, std::int32_t languageID) {
    if (MarkerFamilyOf(languageID) == MarkerFamily::C) return FormatCCommentHeader(comment);
    return Frame(comment,
                 HasCCommentsOnly(languageID) ? CommentStyle::C : CommentStyle::VisualBasic);
}

}  // namespace snippetarium
