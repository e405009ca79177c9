#include "quick/name_match.h"

#include <array>

#include "quick/characters.h"
#include "support/case_fold.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

enum class LetterKind : std::uint8_t { None, Digit, Small, Capital, Other };

constexpr std::size_t kAsciiCharacters = 0x80;

constexpr std::array<LetterKind, kAsciiCharacters> kAsciiKinds = [] {
    std::array<LetterKind, kAsciiCharacters> kinds{};
    for (std::size_t i = '0'; i <= '9'; ++i)
        kinds[i] = LetterKind::Digit;
    for (std::size_t i = 'a'; i <= 'z'; ++i)
        kinds[i] = LetterKind::Small;
    for (std::size_t i = 'A'; i <= 'Z'; ++i)
        kinds[i] = LetterKind::Capital;
    return kinds;
}();

LetterKind KindOfForeign(char32_t character) {
    if (FoldCase(character) != character) return LetterKind::Capital;
    return OtherCases(character).empty() ? LetterKind::Other : LetterKind::Small;
}

LetterKind KindAt(std::string_view name, std::size_t position) {
    if (position >= name.size()) return LetterKind::None;
    const auto byte = static_cast<unsigned char>(name[position]);
    if (byte < kAsciiCharacters) return kAsciiKinds[byte];
    return KindOfForeign(DecodeUtf8(name, position));
}

LetterKind KindBefore(std::string_view name, std::size_t position) {
    if (position == 0) return LetterKind::None;
    std::size_t start = position - 1;
    while (start > 0 && position - start < 4 && IsContinuation(name[start]))
        --start;
    return KindAt(name, start);
}

bool IsLetter(LetterKind kind) {
    return kind != LetterKind::None && kind != LetterKind::Digit;
}

}  // namespace

bool IsWordStart(std::string_view name, std::size_t position) {
    const LetterKind here = KindAt(name, position);
    if (here == LetterKind::None) return false;
    const LetterKind before = KindBefore(name, position);
    if (before == LetterKind::None) return true;
    if (IsLetter(before) != IsLetter(here)) return true;
    if (here != LetterKind::Capital) return false;
    if (before != LetterKind::Capital) return true;
    std::size_t next = position;
    DecodeUtf8(name, next);
    return KindAt(name, next) == LetterKind::Small;
}

bool IsWordEnd(std::string_view name, std::size_t position) {
    if (KindBefore(name, position) == LetterKind::None) return false;
    return KindAt(name, position) == LetterKind::None || IsWordStart(name, position);
}

std::string_view BareName(std::string_view name) {
    const std::size_t bracket = name.find('(');
    if (bracket == std::string_view::npos || bracket == 0) return name;
    const std::size_t last = name.find_last_not_of(" \t", bracket - 1);
    return last == std::string_view::npos ? name : name.substr(0, last + 1);
}

QuickTier TierOfPlace(std::string_view name, const ByteRange& place) {
    if (place.begin == 0) {
        const bool isWhole = place.End() == name.size() || place.End() == BareName(name).size();
        return isWhole ? QuickTier::ExactName : QuickTier::NamePrefix;
    }
    return IsWordStart(name, place.begin) ? QuickTier::WordStart : QuickTier::NamePart;
}

namespace {

/// Of a pattern that is the same text wherever it stands.
std::optional<NameMatch> MatchPlain(const WordPattern& pattern, std::string_view name) {
    std::optional<NameMatch> best;
    for (auto place = pattern.Find(name); place;) {
        const QuickTier tier = TierOfPlace(name, *place);
        if (!best || tier < best->tier) best = NameMatch{tier, *place};
        if (tier <= QuickTier::WordStart) break;  // no later place is better
        std::size_t next = place->begin;
        NextFolded(name, next);
        place = pattern.Find(name, next);
    }
    return best;
}

}  // namespace

std::optional<NameMatch> MatchName(const WordPattern& pattern, std::string_view name) {
    if (pattern.IsPlain()) return MatchPlain(pattern, name);
    for (const std::string_view whole : {name, BareName(name)}) {
        if (pattern.FitsWhole(whole)) return NameMatch{QuickTier::ExactName, {0, whole.size()}};
    }
    if (const auto start = pattern.FindAt(name, 0)) return NameMatch{QuickTier::NamePrefix, *start};
    const std::optional<ByteRange> first = pattern.Find(name);
    if (!first) return {};
    // No place lies before the first one, but a better one may lie behind it.
    for (std::size_t position = first->begin; position < name.size(); NextFolded(name, position)) {
        if (!IsWordStart(name, position)) continue;
        if (const auto place = pattern.FindAt(name, position))
            return NameMatch{QuickTier::WordStart, *place};
    }
    return NameMatch{QuickTier::NamePart, *first};
}

}  // namespace snippetarium
