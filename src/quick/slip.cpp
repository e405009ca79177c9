#include "quick/slip.h"

#include <utility>

#include "quick/name_match.h"
#include "support/case_fold.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

std::u32string Decode(std::string_view text) {
    std::u32string characters;
    for (std::size_t position = 0; position < text.size();)
        characters += NextFolded(text, position);
    return characters;
}

FoldedNeedle NeedleOf(std::u32string_view characters) {
    std::string text;
    for (const char32_t character : characters)
        AppendUtf8(text, character);
    return FoldedNeedle(text);
}

using MaybePlace = std::optional<std::size_t>;

/// The place behind a text that the name has from `place` on.
MaybePlace Behind(std::u32string_view text, std::string_view name, std::size_t place) {
    for (const char32_t character : text) {
        if (place == name.size() || NextFolded(name, place) != character) return {};
    }
    return place;
}

/// The same for a text whose first two characters are swapped.
MaybePlace BehindSwapped(std::u32string_view text, std::string_view name, std::size_t place) {
    if (text.size() < 2) return {};
    MaybePlace behind = Behind(text.substr(1, 1), name, place);
    if (behind) behind = Behind(text.substr(0, 1), name, *behind);
    return behind ? Behind(text.substr(2), name, *behind) : behind;
}

std::array<FoldedNeedle, SlipPattern::kNeedles> NeedlesOf(const std::u32string& word) {
    const std::u32string_view all = word;
    const std::size_t middle = word.size() / 2;
    std::u32string swapped = word;
    std::swap(swapped[middle - 1], swapped[middle]);
    return {NeedleOf(all.substr(0, middle)), NeedleOf(all.substr(middle)), NeedleOf(swapped)};
}

}  // namespace

SlipPattern::SlipPattern(std::string_view word) : word_(Decode(word)), needles_(NeedlesOf(word_)) {}

bool SlipPattern::IsLongEnough(std::string_view word) {
    return CharacterCount(word) >= kShortest;
}

std::optional<ByteRange> SlipPattern::Find(std::string_view name) const {
    for (std::size_t start = 0; start < name.size(); NextFolded(name, start)) {
        if (!IsWordStart(name, start) || !MayStandAt(name, start)) continue;
        if (const auto end = EndOfStretch(name, start)) return ByteRange{start, *end - start};
    }
    return {};
}

/// A slip changes two neighbours at most, and their order: of the first two characters, one is left
/// in the first two places.
bool SlipPattern::MayStandAt(std::string_view name, std::size_t place) const {
    const auto isOneOfTwo = [this](char32_t character) {
        return character == word_[0] || character == word_[1];
    };
    if (isOneOfTwo(NextFolded(name, place))) return true;
    return place < name.size() && isOneOfTwo(NextFolded(name, place));
}

std::optional<std::size_t> SlipPattern::EndOfStretch(std::string_view name,
                                                     std::size_t start) const {
    // The slip is where word and name no longer agree.
    std::u32string_view rest = word_;
    std::size_t slip = start;
    std::size_t lastAgreeing = start;
    for (std::size_t next = start; !rest.empty() && slip < name.size(); slip = next) {
        if (NextFolded(name, next) != rest.front()) break;
        lastAgreeing = slip;
        rest.remove_prefix(1);
    }
    std::size_t behindSlip = slip;
    const bool isAtEnd = slip == name.size();
    if (!isAtEnd) NextFolded(name, behindSlip);

    MaybePlace oneTooMany = lastAgreeing;
    MaybePlace asMany = slip;
    if (!rest.empty()) {
        oneTooMany = Behind(rest.substr(1), name, slip);
        asMany = isAtEnd ? MaybePlace() : Behind(rest.substr(1), name, behindSlip);
        if (!asMany) asMany = BehindSwapped(rest, name, slip);
    }
    const MaybePlace oneMissing = isAtEnd ? MaybePlace() : Behind(rest, name, behindSlip);
    for (const MaybePlace& end : {oneTooMany, asMany, oneMissing}) {
        if (end && IsWordEnd(name, *end)) return end;
    }
    return {};
}

}  // namespace snippetarium
