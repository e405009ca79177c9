#include "quick/matching_line.h"

#include <algorithm>
#include <optional>

#include "quick/characters.h"

namespace snippetarium {

namespace {

/// In bytes. What stands before the first place is less interesting than what follows it.
constexpr std::size_t kLongestLine = 400;
constexpr std::size_t kMostBefore = 80;

/// The start of the character that the place is in. In a damaged text there may be bytes that are
/// in none; a place among many of them stays.
std::size_t CharacterStart(std::string_view text, std::size_t place) {
    constexpr std::size_t kMostBytes = 4;
    for (std::size_t start = place; place - start < kMostBytes; --start) {
        if (start == 0 || start == text.size() || !IsContinuation(text[start])) return start;
    }
    return place;
}

std::optional<ByteRange> FindFirst(std::string_view text,
                                   const std::vector<const WordPattern*>& patterns) {
    std::optional<ByteRange> first;
    for (const WordPattern* pattern : patterns) {
        const auto found = pattern->Find(text);
        if (found && (!first || found->begin < first->begin)) first = found;
    }
    return first;
}

/// The part of a long line that is shown, in bytes of the line.
ByteRange Window(std::string_view line, std::size_t firstPlace) {
    if (line.size() <= kLongestLine) return {0, line.size()};
    std::size_t begin = firstPlace > kMostBefore ? firstPlace - kMostBefore : 0;
    begin = CharacterStart(line, begin);
    const std::size_t end = CharacterStart(line, std::min(begin + kLongestLine, line.size()));
    return {begin, end - begin};
}

}  // namespace

std::vector<ByteRange> FindAll(std::string_view text,
                               const std::vector<const WordPattern*>& patterns) {
    std::vector<ByteRange> all;
    for (const WordPattern* pattern : patterns) {
        std::size_t from = 0;
        while (const auto found = pattern->Find(text, from)) {
            all.push_back(*found);
            from = found->End();
            if (from >= text.size()) break;
        }
    }
    std::ranges::sort(all, {}, &ByteRange::begin);
    std::vector<ByteRange> joined;
    for (const ByteRange& range : all) {
        if (joined.empty() || range.begin > joined.back().End()) {
            joined.push_back(range);
        } else {
            const std::size_t end = std::max(joined.back().End(), range.End());
            joined.back().size = end - joined.back().begin;
        }
    }
    return joined;
}

MatchingLine FindMatchingLine(std::string_view text, const std::vector<const WordPattern*>& sought,
                              const std::vector<const WordPattern*>& marked) {
    const std::optional<ByteRange> first = FindFirst(text, sought);
    if (!first) return {};
    const std::size_t before = text.substr(0, first->begin).rfind('\n');
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 1;
    std::size_t end = std::min(text.find('\n', first->begin), text.size());
    if (end > begin && text[end - 1] == '\r') --end;
    const std::string_view line = text.substr(begin, end - begin);
    const ByteRange window = Window(line, first->begin - begin);
    MatchingLine result;
    result.text = line.substr(window.begin, window.size);
    result.number = 1 + static_cast<std::size_t>(std::count(
                            text.begin(), text.begin() + static_cast<std::ptrdiff_t>(begin), '\n'));
    result.place = first->begin + 1;
    result.matches = FindAll(result.text, marked);
    // A phrase that goes on in the next line, or beyond the part that is shown.
    if (result.matches.empty()) {
        const std::size_t start = first->begin - begin - window.begin;
        result.matches.push_back({start, std::min(first->size, result.text.size() - start)});
    }
    return result;
}

}  // namespace snippetarium
