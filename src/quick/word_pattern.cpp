#include "quick/word_pattern.h"

#include <algorithm>

#include "quick/characters.h"
#include "support/case_fold.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// Where the run of characters without white space that holds `position` begins, but not before
/// `from`.
std::size_t StartOfRun(std::string_view text, std::size_t from, std::size_t position) {
    while (position > from && !IsWhiteSpace(text[position - 1]))
        --position;
    return position;
}

std::size_t EndOfRun(std::string_view text, std::size_t position) {
    while (position < text.size() && !IsWhiteSpace(text[position]))
        ++position;
    return position;
}

std::string LongestLiteral(std::string_view text) {
    std::string_view longest;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find_first_of("*?", start), text.size());
        if (end - start > longest.size()) longest = text.substr(start, end - start);
        start = end + 1;
    }
    return std::string(longest);
}

bool HasWildcard(std::string_view text) {
    return text.find_first_of("*?") != std::string_view::npos;
}

/// Without the "*" at its ends.
std::string_view Trimmed(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of('*'), text.size());
    return text.substr(first, text.find_last_not_of('*') + 1 - first);
}

}  // namespace

WordPattern::WordPattern(std::string_view word, Wildcards wildcards)
    : WordPattern(wildcards == Wildcards::Count ? Trimmed(word) : word,
                  wildcards == Wildcards::AreLetters || !HasWildcard(Trimmed(word))) {}

WordPattern::WordPattern(std::string_view text, bool isPlain)
    : isPlain_(isPlain),
      literal_(isPlain_ ? std::string(text) : LongestLiteral(text)),
      needle_(literal_) {
    if (isPlain_) return;
    Segment segment;
    const auto finish = [&] {
        if (!segment.empty()) segments_.push_back(std::move(segment));
        segment.clear();
    };
    for (std::size_t position = 0; position < text.size();) {
        if (text[position] == '*') {
            finish();
            ++position;
        } else if (text[position] == '?') {
            segment += kAnyOne;
            ++position;
        } else {
            segment += NextFolded(text, position);
        }
    }
    finish();
    std::string ending;
    const Segment& last = segments_.back();
    for (const char32_t character : last.substr(last.rfind(kAnyOne) + 1))
        AppendUtf8(ending, character);
    if (!ending.empty()) ending_.emplace(ending);
}

std::u32string WordPattern::Beginning() const {
    constexpr std::size_t kMost = 2;
    std::u32string beginning;
    if (!isPlain_) {
        const Segment& first = segments_.front();
        beginning = first.substr(0, std::min(first.find(kAnyOne), kMost));
    }
    for (std::size_t i = 0; isPlain_ && i < literal_.size() && beginning.size() < kMost;)
        beginning += NextFolded(literal_, i);
    return beginning;
}

/// Where the segment ends when it stands at `from`.
std::optional<std::size_t> WordPattern::EndOf(const Segment& segment, std::string_view text,
                                              std::size_t from) const {
    std::size_t position = from;
    for (const char32_t wanted : segment) {
        if (position == text.size() || IsWhiteSpace(text[position])) return {};
        const char32_t character = NextFolded(text, position);
        if (wanted != kAnyOne && character != wanted) return {};
    }
    return position;
}

std::optional<ByteRange> WordPattern::FindSegment(const Segment& segment, std::string_view text,
                                                  std::size_t from, std::size_t end) const {
    const std::string_view run = text.substr(0, end);
    for (std::size_t start = from; start < end;) {
        if (const auto found = EndOf(segment, run, start)) return ByteRange{start, *found - start};
        NextFolded(run, start);
    }
    return {};
}

/// Where the segments behind the first one end when that ends at `from`: each at its first place,
/// which leaves the most room for the next.
std::optional<std::size_t> WordPattern::EndOfRest(std::string_view text, std::size_t from,
                                                  std::size_t end) const {
    std::size_t position = from;
    for (std::size_t i = 1; i < segments_.size(); ++i) {
        const auto found = FindSegment(segments_[i], text, position, end);
        if (!found) return {};
        position = found->End();
    }
    return position;
}

/// Within one run: where the rest does not fit behind the first segment's first place, it fits
/// behind no later one.
std::optional<ByteRange> WordPattern::FindInRun(std::string_view text, std::size_t from,
                                                std::size_t end) const {
    const auto first = FindSegment(segments_.front(), text, from, end);
    if (!first) return {};
    const auto last = EndOfRest(text, first->End(), end);
    if (!last) return {};
    return ByteRange{first->begin, *last - first->begin};
}

std::optional<ByteRange> WordPattern::Find(std::string_view text, std::size_t from) const {
    if (isPlain_) {
        const std::size_t found = needle_.Find(text, from);
        if (found == FoldedNeedle::kNotFound) return {};
        return ByteRange{found, needle_.Size()};
    }
    while (from < text.size()) {
        std::size_t run = from;
        if (!literal_.empty()) {
            const std::size_t literal = needle_.Find(text, from);
            if (literal == FoldedNeedle::kNotFound) return {};
            run = StartOfRun(text, from, literal);
        }
        const std::size_t end = EndOfRun(text, std::max(run, from));
        if (const auto found = FindInRun(text, run, end)) return found;
        from = end + 1;
    }
    return {};
}

std::optional<ByteRange> WordPattern::FindAt(std::string_view text, std::size_t from) const {
    if (isPlain_) {
        if (text.size() - from < needle_.Size()) return {};
        if (!EqualFolded(text.substr(from, needle_.Size()), literal_)) return {};
        return ByteRange{from, needle_.Size()};
    }
    const auto first = EndOf(segments_.front(), text, from);
    if (!first) return {};
    const auto last = EndOfRest(text, *first, EndOfRun(text, *first));
    if (!last) return {};
    return ByteRange{from, *last - from};
}

bool WordPattern::FitsWhole(std::string_view text) const {
    if (isPlain_) return EqualFolded(text, literal_);
    if (EndOfRun(text, 0) != text.size()) return false;
    const auto first = EndOf(segments_.front(), text, 0);
    if (!first) return false;
    if (segments_.size() == 1) return *first == text.size();
    // The last segment's length in characters is known, so its only place is at the end.
    std::size_t position = *first;
    for (std::size_t i = 1; i + 1 < segments_.size(); ++i) {
        const auto found = FindSegment(segments_[i], text, position, text.size());
        if (!found) return false;
        position = found->End();
    }
    for (; position < text.size(); NextFolded(text, position)) {
        if (EndOf(segments_.back(), text, position) == text.size()) return true;
    }
    return false;
}

}  // namespace snippetarium
