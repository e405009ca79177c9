#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/substring_search.h"
#include "quick/byte_range.h"

namespace snippetarium {

/// A word or phrase to look for in texts, without regard to case. Compiled once, then used for any
/// number of texts.
///
/// In a word, "*" stands for any characters, also none, and "?" for one; neither for white space,
/// so that a word with wildcards is found within one word of the text. "*" at either end of a word
/// changes nothing, since a word is found anywhere.
///
///     WordPattern("dr*w", Wildcards::Count).Find("  Undrawn x", 0)  ->  {4, 4}
class WordPattern {
  public:
    enum class Wildcards { Count, AreLetters };

    /// `word` holds a character besides wildcards.
    WordPattern(std::string_view word, Wildcards wildcards);

    /// The first place, at or behind `from`, where the pattern fits; of the places that begin there
    /// the shortest. `from` is where a character starts.
    std::optional<ByteRange> Find(std::string_view text, std::size_t from = 0) const;
    /// The shortest place that begins at `from`.
    std::optional<ByteRange> FindAt(std::string_view text, std::size_t from) const;
    /// True when the pattern fits the text from end to end.
    bool FitsWhole(std::string_view text) const;

    /// True without wildcards: then the needle is all there is to it.
    bool IsPlain() const { return isPlain_; }
    /// The longest run of letters without a wildcard in it. Every text in which the pattern fits
    /// holds it.
    const std::string& Literal() const { return literal_; }
    const FoldedNeedle& Needle() const { return needle_; }
    /// The folded characters that each place where the pattern fits begins with, up to the first
    /// wildcard, but two at most.
    std::u32string Beginning() const;
    /// What every text ends with that a pattern with wildcards fits from end to end. Nothing where
    /// that is not sure.
    const std::optional<FoldedNeedle>& Ending() const { return ending_; }

  private:
    /// What stands between two "*": characters, folded; kAnyOne for a "?".
    using Segment = std::u32string;
    static constexpr char32_t kAnyOne = 0x110000;

    WordPattern(std::string_view text, bool isPlain);
    std::optional<std::size_t> EndOf(const Segment& segment, std::string_view text,
                                     std::size_t from) const;
    std::optional<ByteRange> FindSegment(const Segment& segment, std::string_view text,
                                         std::size_t from, std::size_t end) const;
    std::optional<ByteRange> FindInRun(std::string_view text, std::size_t from,
                                       std::size_t end) const;
    std::optional<std::size_t> EndOfRest(std::string_view text, std::size_t from,
                                         std::size_t end) const;

    bool isPlain_;
    std::string literal_;
    FoldedNeedle needle_;
    std::vector<Segment> segments_;
    std::optional<FoldedNeedle> ending_;
};

}  // namespace snippetarium
