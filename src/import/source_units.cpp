#include "import/source_units.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "import/source_words.h"

namespace snippetarium {

namespace {

constexpr std::string_view kLineBreak = "\r\n";

/// Nothing but blanks, with at most one line break among them.
bool IsGapWithoutBlankLine(std::string_view gap) {
    return std::all_of(gap.begin(), gap.end(), IsBlank) &&
           std::count(gap.begin(), gap.end(), '\n') <= 1;
}

std::size_t LineStart(std::string_view text, std::size_t position) {
    const std::size_t before =
        position == 0 ? std::string_view::npos : text.rfind('\n', position - 1);
    return before == std::string_view::npos ? 0 : before + 1;
}

/// Looks back no further than it must: a file may be one long line.
bool StartsItsLine(std::string_view text, std::size_t position) {
    while (position > 0 && text[position - 1] != '\n' && IsBlank(text[position - 1]))
        --position;
    return position == 0 || text[position - 1] == '\n';
}

/// Is this, behind a unit on its last line, something that goes with it: a semicolon, a comment?
bool BelongsToUnit(std::string_view rest) {
    while (true) {
        const auto end = std::ranges::find_if_not(
            rest, [](char character) { return IsBlank(character) || character == ';'; });
        rest.remove_prefix(static_cast<std::size_t>(end - rest.begin()));
        if (rest.empty() || rest.starts_with("//")) return true;
        const std::size_t close = rest.find("*/", 2);
        if (!rest.starts_with("/*") || close == std::string_view::npos) return false;
        rest.remove_prefix(close + 2);
    }
}

/// Cuts units out of one text, the first one first.
class UnitCutter {
  public:
    UnitCutter(std::string_view text, std::span<const TextRange> comments, UnitPlacement placement)
        : text_(text), comments_(comments), placement_(placement) {}

    void Cut(const SourceUnit& unit) {
        std::optional<TextRange> code = Placed(unit.code);
        if (!code || code->begin < done_) return;
        const std::size_t block = CommentBlockAbove(unit.code.begin);
        TextRange comment{code->begin, code->begin};
        if (block < unit.code.begin) comment.begin = block;
        if (placement_ == UnitPlacement::WholeLines) comment = WholeLines(comment);
        result_.text += text_.substr(done_, comment.begin - done_);
        result_.procedures.push_back(
            {unit.name, Text(comment), Text(*code), unit.language, result_.text.size()});
        done_ = code->end;
    }

    CutFile Finish() {
        std::string_view rest = text_.substr(done_);
        if (rest.ends_with(kLineBreak)) rest.remove_suffix(kLineBreak.size());
        result_.text += rest;
        return std::move(result_);
    }

  private:
    std::string Text(const TextRange& range) const {
        return std::string(text_.substr(range.begin, range.end - range.begin));
    }

    /// The range that may be cut for the code; none where other text shares its lines.
    std::optional<TextRange> Placed(const TextRange& code) const {
        if (placement_ == UnitPlacement::Exact) return code;
        if (!StartsItsLine(text_, code.begin)) return std::nullopt;
        const std::size_t end = text_.find(kLineBreak, code.end);
        // The text's last line break is not stored, and without one there is no marker.
        if (end == std::string_view::npos || end + kLineBreak.size() == text_.size()) {
            return std::nullopt;
        }
        if (!BelongsToUnit(text_.substr(code.end, end - code.end))) return std::nullopt;
        return TextRange{LineStart(text_, code.begin), end};
    }

    /// From the start of the comment's first line, without the line break that export adds.
    TextRange WholeLines(const TextRange& comment) const {
        const std::string_view above = text_.substr(0, comment.end);
        if (comment.begin == comment.end || !above.ends_with(kLineBreak)) {
            return {comment.end, comment.end};
        }
        return {LineStart(text_, comment.begin), comment.end - kLineBreak.size()};
    }

    /// Where the comment block above this position starts; the position where there is none.
    std::size_t CommentBlockAbove(std::size_t position) const {
        auto next = std::upper_bound(
            comments_.begin(), comments_.end(), position,
            [](std::size_t end, const TextRange& comment) { return end < comment.end; });
        while (next != comments_.begin()) {
            const TextRange& comment = *std::prev(next);
            if (comment.begin < done_ || !StartsItsLine(text_, comment.begin) ||
                !IsGapWithoutBlankLine(text_.substr(comment.end, position - comment.end))) {
                break;
            }
            position = comment.begin;
            --next;
        }
        return position;
    }

    std::string_view text_;
    std::span<const TextRange> comments_;
    UnitPlacement placement_;
    CutFile result_;
    std::size_t done_ = 0;  // everything before it is in the result
};

}  // namespace

CutFile CutUnits(std::string_view text, std::span<const SourceUnit> units,
                 std::span<const TextRange> comments, UnitPlacement placement) {
    UnitCutter cutter(text, comments, placement);
    for (const SourceUnit& unit : units)
        cutter.Cut(unit);
    return cutter.Finish();
}

}  // namespace snippetarium
