#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "import/text_range.h"

namespace snippetarium {

// Which parts of a source text are shown in which colour. Ranges count bytes of the UTF-8 text,
// from 0.

enum class HighlightKind : std::uint8_t {
    Keyword,
    Type,
    String,
    Escape,  ///< within a string
    Comment,
    Number,
    Preprocessor,
    Function,
    Constant,
    Property,
    Variable,  ///< one that the language itself provides, such as "this"
    Label,
    Tag,
    Attribute,
    Operator,
    Punctuation,
    ScriptMark,  ///< "<%" and "%>" around the script of a page
};

struct HighlightSpan {
    TextRange range;
    HighlightKind kind = HighlightKind::Keyword;

    bool operator==(const HighlightSpan&) const = default;
};

/// The highlighting of one text, worked out in steps, so that a long one never stops the window.
///
///     Highlighter highlighter(page.text, page.languageID);
///     highlighter.Work(8ms);
///     for (const HighlightSpan& span : highlighter.Spans(visible)) ...
///     while (!highlighter.Work(8ms)) { ... from the idle timer }
class Highlighter {
  public:
    /// Highlights nothing.
    Highlighter();
    /// `languageID` as the catalogue has it; 0 and unknown ones highlight nothing. The text must be
    /// well-formed UTF-8, and may be anything besides, a piece of a program too. It is copied. What
    /// stands in the `skipped` ranges, such as markers of procedures, is no part of the program.
    Highlighter(std::string_view text, std::int32_t languageID,
                std::span<const TextRange> skipped = {});
    Highlighter(Highlighter&&) noexcept;
    Highlighter& operator=(Highlighter&&) noexcept;
    ~Highlighter();

    /// Goes on for about this long. True when the whole text has been looked at. A text that takes
    /// too much is given up and stays plain.
    bool Work(std::chrono::microseconds time);
    bool IsDone() const;
    /// Does all the work.
    void Finish();

    /// The spans that lie in this range or reach into it, in the order of the text; they do not
    /// overlap. Before the work is done these are those that are known up to now.
    std::vector<HighlightSpan> Spans(const TextRange& range) const;
    /// How far from its beginning all spans of the text are known.
    std::size_t KnownUpTo() const;

    class Engine;

  private:
    std::unique_ptr<Engine> engine_;
};

}  // namespace snippetarium
