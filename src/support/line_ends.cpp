#include "support/line_ends.h"

#include <cstddef>
#include <utility>

namespace snippetarium {

namespace {

constexpr std::string_view kCrLf = "\r\n";

/// A line without its end, and how it ends.
struct Line {
    std::string_view content;
    LineEnd end = LineEnd::CrLf;
};

/// Calls visit(line) for each line that ends, in order, and returns the text behind the last of
/// them.
template <typename Visit>
std::string_view ForEachLine(std::string_view text, Visit visit) {
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        const bool hasReturn = end > 0 && text[end - 1] == '\r';
        visit(hasReturn ? Line{text.substr(0, end - 1), LineEnd::CrLf}
                        : Line{text.substr(0, end), LineEnd::Lf});
        text.remove_prefix(end + 1);
    }
    return text;
}

struct LineCounts {
    std::size_t crLf = 0;
    std::size_t lf = 0;
};

LineCounts CountEnds(std::string_view text) {
    LineCounts counts;
    ForEachLine(text,
                [&](const Line& line) { ++(line.end == LineEnd::CrLf ? counts.crLf : counts.lf); });
    return counts;
}

bool EndsInLineEnd(std::string_view text) {
    return text.empty() || text.back() == '\n';
}

void AppendEnd(std::string& text, LineEnd end) {
    text += end == LineEnd::CrLf ? kCrLf : kCrLf.substr(1);
}

LineEnd Other(LineEnd end) {
    return end == LineEnd::CrLf ? LineEnd::Lf : LineEnd::CrLf;
}

std::string_view WithoutLastEnds(std::string_view text) {
    while (text.ends_with('\n'))
        text.remove_suffix(text.ends_with(kCrLf) ? 2 : 1);
    return text;
}

}  // namespace

LineEnds NormaliseLineEnds(std::string& text) {
    LineEnds ends;
    ends.lastLineEnds = EndsInLineEnd(text);
    const LineCounts counts = CountEnds(text);
    if (counts.lf == 0) return ends;

    ends.most = counts.lf > counts.crLf ? LineEnd::Lf : LineEnd::CrLf;
    std::string normal;
    normal.reserve(text.size() + counts.lf);
    std::size_t number = 0;
    normal += ForEachLine(text, [&](const Line& line) {
        ++number;
        if (line.end != ends.most) ends.others.Add(number);
        normal.append(line.content).append(kCrLf);
    });
    text = std::move(normal);
    return ends;
}

std::string WithLineEnds(std::string_view text, const LineEnds& ends) {
    std::string result;
    result.reserve(text.size() + kCrLf.size());
    std::size_t number = 0;
    const auto appendEnd = [&] {
        ++number;
        // A CR that is data would make one line end of itself and an LF.
        const bool needsCrLf = result.ends_with('\r');
        const LineEnd end = ends.others.Contains(number) ? Other(ends.most) : ends.most;
        AppendEnd(result, needsCrLf ? LineEnd::CrLf : end);
    };
    const bool endsHere = EndsInLineEnd(text);
    result += ForEachLine(ends.lastLineEnds ? text : WithoutLastEnds(text), [&](const Line& line) {
        result += line.content;
        appendEnd();
    });
    if (ends.lastLineEnds && !endsHere) appendEnd();
    return result;
}

}  // namespace snippetarium
