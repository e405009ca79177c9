#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "import/line_progress.h"

namespace snippetarium {

/// Reads a text line by line and moves the file's progress with each. Lines end in CR LF
/// (support/line_ends.h) and are parts of the text, which must outlive them.
class LineReader {
  public:
    LineReader(std::string_view text, LineProgress& progress) : text_(text), progress_(progress) {}

    /// True when no line is left, or the import was cancelled.
    bool IsDone() const { return AtEnd() || progress_.IsCancelled(); }
    bool AtEnd() const { return offset_ == text_.size(); }

    /// The next line without its line end; not to be called at the end.
    std::string_view ReadLine();

    /// Where the next line begins, in bytes from 0.
    std::size_t Offset() const { return offset_; }
    /// The number of the line that was read last, from 1.
    std::size_t LineNumber() const { return lineNumber_; }

  private:
    std::string_view text_;
    LineProgress& progress_;
    std::size_t offset_ = 0;
    std::size_t lineNumber_ = 0;
};

/// What the analysis takes as one line of Visual Basic: a line with those that continue it.
///
///     Private Sub Draw(x, _       raw: both lines, as they stand
///         y)                      key: Private Sub Draw(x, y)
struct LogicalLine {
    /// Without the last line end.
    std::string_view raw;
    /// The same in one line and with fewer blanks: what every test is made on.
    std::string key;
    /// Where it begins: its offset in bytes from 0, and its line number from 1.
    std::size_t begin = 0;
    std::size_t number = 0;
};

/// Reads a line, and while it ends in "_" the next one too. To the analysis every "_" continues its
/// line, also in a comment and without a blank before it.
LogicalLine ReadLogicalLine(LineReader& reader);

/// Makes runs of blanks shorter, removes blanks next to "=", ">" and "(", and those at both ends.
/// Runs are shortened in single passes, by which a long one may keep more than one blank (nine
/// become two), and tabs stay. Keys have always been made so, and the names that derive from them
/// are in people's catalogues.
std::string NormaliseKeyLine(std::string text);

/// Whether the line is a comment, by its key.
bool IsCommentLine(std::string_view key);

/// True when nothing but blanks and tabs stands on the line.
bool IsBlankLine(std::string_view line);

}  // namespace snippetarium
