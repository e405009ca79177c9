#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/cancel_poll.h"
#include "engine/substring_search.h"

namespace snippetarium {

/// The characters that one place of a pattern accepts, folded.
struct LikeElement {
    enum class Kind { Character, AnyCharacter, InSet, NotInSet };
    struct Range {
        char32_t first = 0;
        char32_t last = 0;
    };

    Kind kind = Kind::AnyCharacter;
    char32_t character = 0;
    std::vector<Range> set;

    bool Accepts(char32_t folded) const;
};

/// What stands between two "%" of a pattern: it matches as many characters as it has elements.
struct LikeSegment {
    std::vector<LikeElement> elements;
    /// The longest run of plain characters, nothing where there is none, and what stands before it.
    std::optional<FoldedNeedle> run;
    std::size_t elementsBeforeRun = 0;
    bool isPlainText = false;
};

/// The pattern of all texts that hold the literal: "100%" gives "%100[%]%".
std::string PatternOfLiteral(std::string_view literal);

/// A pattern of the LIKE operator, compiled once to be matched against many texts.
///
///     %        any characters, also none
///     _        one character
///     [abc]    one of these characters; [a-fx] one of a range or x
///     [!abc]   one other character; [^abc] is the same
///     [%]      a wildcard that stands for itself: [%], [_], [[], [-]
///     []       nothing at all, as if it were not there
///
/// Everything else stands for itself, "]" outside brackets too, without regard to case. A bracket
/// ends at the first "]", which can therefore be in no set ("[]]" is a plain "]"). In a set "-" is
/// itself where it comes first or last, "!" and "^" where they do not come first or stand alone.
/// The ends of a range are folded before they are compared, and a range that then runs backwards is
/// empty. A malformed byte of either text is a character of its own.
///
///     LikePattern("%get[!a-z]_").Match("x.GET_a")  ->  true
class LikePattern {
  public:
    /// The greatest number of characters in a pattern.
    static constexpr std::size_t kMaxPatternLength = 4096;

    /// Throws EngineError InvalidPattern when a bracket is not closed or the pattern is too long.
    explicit LikePattern(std::string_view pattern);

    /// True when the pattern matches the whole text. Asks `poll`, where there is one, every some
    /// tens of thousands of steps, and throws EngineError Cancelled when it says so. Takes at most
    /// as many steps as the text's characters times the pattern's.
    bool Match(std::string_view text, const CancelPoll* poll = nullptr) const;

    /// Texts of plain characters, folded, that every text holds which the pattern matches.
    std::vector<std::string> PlainRuns() const;

    /// What stands between the "%"; the first must match at the text's beginning and the last at
    /// its end.
    const std::vector<LikeSegment>& Segments() const { return segments_; }

  private:
    std::vector<LikeSegment> segments_;
};

}  // namespace snippetarium
