#include "engine/jet_like.h"

#include <algorithm>
#include <string>
#include <utility>

#include "engine/engine_error.h"
#include "support/case_fold.h"
#include "support/utf8.h"

namespace snippetarium {

// A pattern is cut at its "%" into segments. The first segment must match at the beginning of the
// text and the last at its end; each one between is put at the first place, behind the one before
// it, where it matches. That first place is always good enough: a later one only leaves less text
// to the segments that follow. So nothing is ever tried again, and no pattern takes exponential
// time.
//
// Each element of a segment takes exactly one character. Hence a segment that runs out of text at
// one place does so at every later place as well, and the last segment's place follows from the
// number of its elements.

namespace {

using Kind = LikeElement::Kind;

[[noreturn]] void RefusePattern(const std::string& reason) {
    throw EngineError(EngineErrorCode::InvalidPattern, "Invalid pattern string: " + reason);
}

/// The ranges of "a-fx", the text between two brackets without the mark of a negation.
std::vector<LikeElement::Range> ReadSet(std::string_view content) {
    std::vector<LikeElement::Range> set;
    for (std::size_t position = 0; position < content.size();) {
        const char32_t first = NextFolded(content, position);
        const bool isRange = position + 1 < content.size() && content[position] == '-';
        if (isRange) ++position;
        set.push_back({first, isRange ? NextFolded(content, position) : first});
    }
    return set;
}

/// What the brackets around `content` stand for; `content` is not empty.
LikeElement ReadBrackets(std::string_view content) {
    LikeElement element;
    element.kind = Kind::InSet;
    if (content.size() > 1 && (content.front() == '!' || content.front() == '^')) {
        element.kind = Kind::NotInSet;
        content.remove_prefix(1);
    }
    element.set = ReadSet(content);
    const LikeElement::Range& only = element.set.front();
    if (element.kind == Kind::InSet && element.set.size() == 1 && only.first == only.last) {
        element.kind = Kind::Character;
        element.character = only.first;
    }
    return element;
}

/// The element at `position`, which then moves behind it; nothing for "[]".
std::optional<LikeElement> ReadElement(std::string_view pattern, std::size_t& position) {
    if (pattern[position] == '_') {
        ++position;
        return LikeElement{};
    }
    if (pattern[position] != '[') {
        return LikeElement{Kind::Character, NextFolded(pattern, position), {}};
    }
    const std::size_t end = pattern.find(']', position);
    if (end == std::string_view::npos) {
        RefusePattern("a bracket \"[\" is not closed. To find the bracket itself, write \"[[]\".");
    }
    const std::string_view content = pattern.substr(position + 1, end - position - 1);
    position = end + 1;
    if (content.empty()) return std::nullopt;
    return ReadBrackets(content);
}

/// Malformed bytes stay out of runs: next to each other there they could make a character.
bool IsPlain(const LikeElement& element) {
    constexpr char32_t kFirstMalformed = 0xDC80;
    constexpr char32_t kLastMalformed = 0xDCFF;
    const char32_t character = element.character;
    return element.kind == Kind::Character &&
           (character < kFirstMalformed || character > kLastMalformed);
}

/// Finds the segment's longest run of plain characters, once all its elements are there.
void CompileRun(LikeSegment& segment) {
    const auto begin = segment.elements.begin();
    const auto end = segment.elements.end();
    auto longest = begin;
    std::ptrdiff_t length = 0;
    for (auto run = begin; run != end;) {
        const auto runEnd = std::find_if_not(run, end, IsPlain);
        if (runEnd - run > length) {
            longest = run;
            length = runEnd - run;
        }
        run = std::find_if(runEnd, end, IsPlain);
    }
    segment.isPlainText = longest == begin && longest + length == end;
    if (length == 0) return;
    std::string text;
    for (auto element = longest; element != longest + length; ++element) {
        AppendUtf8(text, element->character);
    }
    segment.run.emplace(text);
    segment.elementsBeforeRun = static_cast<std::size_t>(longest - begin);
}

std::vector<LikeSegment> ReadSegments(std::string_view pattern) {
    std::vector<LikeSegment> segments(1);
    for (std::size_t position = 0; position < pattern.size();) {
        if (pattern[position] == '%') {
            ++position;
            const bool isBehindAnother = segments.size() > 1 && segments.back().elements.empty();
            if (!isBehindAnother) segments.emplace_back();
            continue;
        }
        std::optional<LikeElement> element = ReadElement(pattern, position);
        if (element) segments.back().elements.push_back(std::move(*element));
    }
    for (LikeSegment& segment : segments)
        CompileRun(segment);
    return segments;
}

/// Counts the steps of a match and asks now and then whether to stop.
class StepCounter {
  public:
    explicit StepCounter(const CancelPoll* poll) : poll_(poll) {}

    void Spend(std::size_t steps) {
        if (steps < stepsUntilPoll_) {
            stepsUntilPoll_ -= steps;
            return;
        }
        stepsUntilPoll_ = kStepsBetweenPolls;
        if (poll_ != nullptr && poll_->IsCancelled()) {
            throw EngineError(EngineErrorCode::Cancelled, "The search was cancelled.");
        }
    }

  private:
    static constexpr std::size_t kStepsBetweenPolls = 50'000;

    const CancelPoll* poll_;
    std::size_t stepsUntilPoll_ = kStepsBetweenPolls;
};

enum class Outcome { Match, Mismatch, TextTooShort };

/// Matches the segment at `position`, which moves behind it when it matches.
Outcome MatchAt(const LikeSegment& segment, std::string_view text, std::size_t& position,
                StepCounter& steps) {
    steps.Spend(segment.elements.size());
    std::size_t place = position;
    for (const LikeElement& element : segment.elements) {
        if (place == text.size()) return Outcome::TextTooShort;
        if (!element.Accepts(NextFolded(text, place))) return Outcome::Mismatch;
    }
    position = place;
    return Outcome::Match;
}

/// The start of the character that ends at `end`, which is above 0 and no place inside a character.
std::size_t PreviousCharacter(std::string_view text, std::size_t end) {
    constexpr std::size_t kLongestCharacter = 4;
    for (std::size_t length = 2; length <= std::min(end, kLongestCharacter); ++length) {
        std::size_t position = end - length;
        DecodeUtf8(text, position);
        if (position == end) return end - length;
    }
    return end - 1;
}

/// The place `count` characters before `position`; nothing when that is before `first`.
std::optional<std::size_t> StepBack(std::string_view text, std::size_t first, std::size_t position,
                                    std::size_t count) {
    for (; count > 0; --count) {
        if (position <= first) return std::nullopt;
        position = PreviousCharacter(text, position);
    }
    return position;
}

/// Finds plain text from `position` on, which then moves to it; false when there is none.
bool FindRun(const FoldedNeedle& run, std::string_view text, std::size_t& position,
             StepCounter& steps) {
    constexpr std::size_t kBytesPerStep = 32;
    const std::size_t found = run.Find(text, position);
    const std::size_t end = std::min(found, text.size());
    steps.Spend((end - position) / kBytesPerStep + 1);
    position = end;
    return found != FoldedNeedle::kNotFound;
}

/// Puts a segment of wildcards and plain text where its run of plain text stands and the rest
/// matches.
bool FindAroundRun(const LikeSegment& segment, std::string_view text, std::size_t& position,
                   StepCounter& steps) {
    for (std::size_t place = position; FindRun(*segment.run, text, place, steps);) {
        std::optional<std::size_t> start =
            StepBack(text, position, place, segment.elementsBeforeRun);
        const Outcome outcome = start ? MatchAt(segment, text, *start, steps) : Outcome::Mismatch;
        if (outcome == Outcome::TextTooShort) return false;
        if (outcome == Outcome::Match) {
            position = *start;
            return true;
        }
        NextFolded(text, place);
    }
    return false;
}

/// Puts a segment without plain text at the first place where it matches.
bool FindPlaceByPlace(const LikeSegment& segment, std::string_view text, std::size_t& position,
                      StepCounter& steps) {
    while (true) {
        const Outcome outcome = MatchAt(segment, text, position, steps);
        if (outcome != Outcome::Mismatch) return outcome == Outcome::Match;
        NextFolded(text, position);
    }
}

/// Puts the segment at the first place from `position` on where it matches and moves `position`
/// behind it; false when there is none.
bool FindSegment(const LikeSegment& segment, std::string_view text, std::size_t& position,
                 StepCounter& steps) {
    if (!segment.run) return FindPlaceByPlace(segment, text, position, steps);
    if (!segment.isPlainText) return FindAroundRun(segment, text, position, steps);
    const bool isFound = FindRun(*segment.run, text, position, steps);
    if (isFound) position += segment.run->Size();
    return isFound;
}

}  // namespace

bool LikeElement::Accepts(char32_t folded) const {
    if (kind == Kind::Character) return folded == character;
    if (kind == Kind::AnyCharacter) return true;
    const bool isInSet = std::any_of(set.begin(), set.end(), [folded](const Range& range) {
        return range.first <= folded && folded <= range.last;
    });
    return isInSet == (kind == Kind::InSet);
}

std::string PatternOfLiteral(std::string_view literal) {
    std::string pattern = "%";
    for (const char character : literal) {
        const bool isWildcard = character == '%' || character == '_' || character == '[';
        pattern.append(isWildcard ? "[" : "").append(1, character).append(isWildcard ? "]" : "");
    }
    return pattern + "%";
}

LikePattern::LikePattern(std::string_view pattern) {
    const std::size_t length = CharacterCount(pattern);
    if (length > kMaxPatternLength) {
        RefusePattern("it has " + std::to_string(length) + " characters, more than the " +
                      std::to_string(kMaxPatternLength) + " that are possible. Shorten it.");
    }
    segments_ = ReadSegments(pattern);
}

std::vector<std::string> LikePattern::PlainRuns() const {
    std::vector<std::string> runs;
    for (const LikeSegment& segment : segments_) {
        bool isInRun = false;
        for (const LikeElement& element : segment.elements) {
            const bool wasInRun = std::exchange(isInRun, IsPlain(element));
            if (!isInRun) continue;
            if (!wasInRun) runs.emplace_back();
            AppendUtf8(runs.back(), element.character);
        }
    }
    return runs;
}

bool LikePattern::Match(std::string_view text, const CancelPoll* poll) const {
    StepCounter steps(poll);
    std::size_t position = 0;
    if (MatchAt(segments_.front(), text, position, steps) != Outcome::Match) return false;
    if (segments_.size() == 1) return position == text.size();

    const LikeSegment& tail = segments_.back();
    const auto tailStart = StepBack(text, position, text.size(), tail.elements.size());
    if (!tailStart) return false;
    std::size_t tailEnd = *tailStart;
    if (MatchAt(tail, text, tailEnd, steps) != Outcome::Match) return false;

    const std::string_view middle = text.substr(0, *tailStart);
    return std::all_of(segments_.begin() + 1, segments_.end() - 1, [&](const LikeSegment& segment) {
        return FindSegment(segment, middle, position, steps);
    });
}

}  // namespace snippetarium
