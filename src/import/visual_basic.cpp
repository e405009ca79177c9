#include "import/visual_basic.h"

#include <cstddef>
#include <optional>
#include <utility>

#include "import/basic_scan.h"

namespace snippetarium {

// How the line breaks add up. Export writes for a procedure
//
//     comment CR LF code CR LF
//
// in the place of its marker and the line break behind that. The code ends in a line break of its
// own and the text has one more behind the marker, which makes two blank lines below a procedure.
// A header is written with a blank line above it, and the whole text with one behind it. So that a
// file that was exported gives the text again that it was made from, these are the blank lines that
// the cutting takes away: up to two below each procedure, one above the header, and the line break
// at the end of the text.
//
// The header. Export writes it above the first "Option Explicit", or on top where there is none,
// and can write it nowhere else. So the comment block that stands there is the class's header, and
// comments in other places are lines of the text like any other. A block that leads from the top
// to the first procedure is divided: what stands right above the procedure is its comment, what a
// blank line separates from it is the header.

namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kBehindMarker = "\r\n\r\n";
constexpr int kBlankLinesBelowProcedure = 2;

std::string_view WithoutLineBreak(std::string_view lines) {
    if (lines.ends_with(kLineBreak)) lines.remove_suffix(kLineBreak.size());
    return lines;
}

/// The beginning of the line that ends, with its line break, at `end`.
std::size_t BeginOfLineAbove(std::string_view text, std::size_t end) {
    const std::string_view line = WithoutLineBreak(text.substr(0, end));
    return line.rfind('\n') + 1;
}

bool HasBlankLineAbove(std::string_view text, std::size_t end) {
    const std::size_t begin = BeginOfLineAbove(text, end);
    return IsBlankLine(WithoutLineBreak(text.substr(begin, end - begin)));
}

std::size_t SkipBlankLinesUp(std::string_view text, std::size_t end) {
    while (end > 0 && HasBlankLineAbove(text, end))
        end = BeginOfLineAbove(text, end);
    return end;
}

std::size_t SkipLinesThatAreNotBlankUp(std::string_view text, std::size_t end) {
    while (end > 0 && !HasBlankLineAbove(text, end))
        end = BeginOfLineAbove(text, end);
    return end;
}

/// The comment lines from `begin` to `end`.
struct Header {
    std::size_t begin = 0;
    std::size_t end = 0;
};

class BasicCutter {
  public:
    BasicCutter(std::string_view text, BasicScan scan) : text_(text), scan_(std::move(scan)) {}

    CutFile Cut() {
        file_.className = std::move(scan_.className);
        file_.problems = std::move(scan_.problems);
        if (const std::optional<Header> header = FindHeader()) TakeHeader(*header);
        for (BasicProcedure& procedure : scan_.procedures)
            Take(procedure);
        file_.text += WithoutLineBreak(text_.substr(copied_));
        return std::move(file_);
    }

  private:
    std::optional<Header> FindHeader() {
        return scan_.optionExplicit ? HeaderAboveOptionExplicit(*scan_.optionExplicit)
                                    : HeaderOnTop();
    }

    std::optional<Header> HeaderAboveOptionExplicit(const OptionExplicitLine& line) const {
        if (line.commentBegin == line.begin) return std::nullopt;
        if (Says(text_.substr(0, line.commentBegin))) return std::nullopt;
        return Header{line.commentBegin, line.begin};
    }

    std::optional<Header> HeaderOnTop() {
        Header header{0, scan_.endOfBlockOnTop};
        BasicProcedure* first = scan_.procedures.empty() ? nullptr : &scan_.procedures.front();
        if (first && first->begin == header.end)
            header.end = SkipLinesThatAreNotBlankUp(text_, header.end);
        const std::size_t commentOfFirst = header.end;
        header.end = SkipBlankLinesUp(text_, header.end);
        if (header.end == 0 || Says(text_.substr(header.end))) return std::nullopt;
        if (first && first->commentBegin == 0) first->commentBegin = commentOfFirst;
        return header;
    }

    void TakeHeader(const Header& header) {
        std::string_view above = text_.substr(0, header.begin);
        if (above.ends_with("\r\n\r\n") || above == kLineBreak) above = WithoutLineBreak(above);
        file_.text = above;
        file_.comment = WithoutLineBreak(text_.substr(header.begin, header.end - header.begin));
        copied_ = header.end;
    }

    void Take(BasicProcedure& procedure) {
        CopyTo(procedure.name.empty() ? procedure.begin : procedure.commentBegin);
        CutProcedure cut;
        cut.position = file_.text.size();
        if (!procedure.name.empty()) {
            const std::string_view comment =
                text_.substr(procedure.commentBegin, procedure.begin - procedure.commentBegin);
            cut.comment = WithoutLineBreak(comment);
            cut.name = std::move(procedure.name);
            cut.code = std::move(procedure.code);
            file_.text += kBehindMarker;
            copied_ = SkipBlankLinesBelowProcedure(procedure.end);
        }
        file_.procedures.push_back(std::move(cut));
    }

    void CopyTo(std::size_t end) {
        file_.text += text_.substr(copied_, end - copied_);
        copied_ = end;
    }

    std::size_t SkipBlankLinesBelowProcedure(std::size_t end) const {
        for (int i = 0; i < kBlankLinesBelowProcedure && text_.substr(end).starts_with(kLineBreak);
             ++i)
            end += kLineBreak.size();
        return end;
    }

    static bool Says(std::string_view text) {
        return FindOptionExplicit(text) != std::string_view::npos;
    }

    std::string_view text_;
    BasicScan scan_;
    CutFile file_;
    /// What stands above this is in the file's text already, or was cut out.
    std::size_t copied_ = 0;
};

CutFile Cut(std::string_view text, BasicDialect dialect, LineProgress& progress) {
    return BasicCutter(text, ScanBasic(text, dialect, progress)).Cut();
}

}  // namespace

CutFile CutVisualBasic(std::string_view text, LineProgress& progress) {
    return Cut(text, BasicDialect::VisualBasic, progress);
}

CutFile CutVbScript(std::string_view text, LineProgress& progress) {
    return Cut(text, BasicDialect::VbScript, progress);
}

}  // namespace snippetarium
