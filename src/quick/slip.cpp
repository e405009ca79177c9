#include "quick/slip.h"

#include <algorithm>
#include <utility>
#include <vector>

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

std::array<FoldedNeedle, SlipPattern::kNeedles> NeedlesOf(const std::u32string& word) {
    const std::u32string_view all = word;
    const std::size_t middle = word.size() / 2;
    std::u32string swapped = word;
    std::swap(swapped[middle - 1], swapped[middle]);
    return {NeedleOf(all.substr(0, middle)), NeedleOf(all.substr(middle)), NeedleOf(swapped)};
}

}  // namespace

bool IsAtMostOneSlip(std::u32string_view typed, std::u32string_view meant) {
    const auto [a, b] = std::ranges::mismatch(typed, meant);
    const std::u32string_view restA(a, typed.end());
    const std::u32string_view restB(b, meant.end());
    if (restA.empty() && restB.empty()) return true;
    if (restA.size() == restB.size()) {
        if (restA.substr(1) == restB.substr(1)) return true;
        return restA.size() > 1 && restA[0] == restB[1] && restA[1] == restB[0] &&
               restA.substr(2) == restB.substr(2);
    }
    if (restA.size() == restB.size() + 1) return restA.substr(1) == restB;
    return restA.size() + 1 == restB.size() && restA == restB.substr(1);
}

SlipPattern::SlipPattern(std::string_view word) : word_(Decode(word)), needles_(NeedlesOf(word_)) {}

bool SlipPattern::IsLongEnough(std::string_view word) {
    return CharacterCount(word) >= kShortest;
}

std::optional<ByteRange> SlipPattern::Find(std::string_view name) const {
    std::u32string characters;
    std::vector<std::size_t> places;  // of each character, and the end
    for (std::size_t position = 0; position < name.size();) {
        places.push_back(position);
        characters += NextFolded(name, position);
    }
    places.push_back(name.size());
    for (std::size_t start = 0; start < characters.size(); ++start) {
        if (!IsWordStart(name, places[start])) continue;
        for (std::size_t size = word_.size() - 1; size <= word_.size() + 1; ++size) {
            if (start + size > characters.size()) break;
            if (!IsWordEnd(name, places[start + size])) continue;
            const auto stretch = std::u32string_view(characters).substr(start, size);
            if (!IsAtMostOneSlip(word_, stretch)) continue;
            return ByteRange{places[start], places[start + size] - places[start]};
        }
    }
    return {};
}

}  // namespace snippetarium
