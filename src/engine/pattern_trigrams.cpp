#include "engine/pattern_trigrams.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace snippetarium {

namespace {

using Characters = std::vector<char32_t>;

/// A set of more trigrams has lists of nearly all rows together.
constexpr std::size_t kMostChoices = 32;

/// The characters that an element accepts; none where they are many.
Characters CharactersOf(const LikeElement& element) {
    Characters characters;
    if (element.kind == LikeElement::Kind::Character) characters.push_back(element.character);
    if (element.kind != LikeElement::Kind::InSet) return characters;
    for (const auto& [first, last] : element.set) {
        if (last >= first && last - first >= kMostChoices) return {};
        for (char32_t character = first; character <= last; ++character)
            characters.push_back(character);
    }
    return characters;
}

std::vector<Trigram> Combine(std::span<const Characters, 3> places) {
    std::vector<Trigram> trigrams;
    for (const char32_t first : places[0]) {
        for (const char32_t second : places[1]) {
            for (const char32_t third : places[2])
                trigrams.push_back(TrigramOf(first, second, third));
        }
    }
    std::ranges::sort(trigrams);
    const auto rest = std::ranges::unique(trigrams);
    trigrams.erase(rest.begin(), rest.end());
    return trigrams;
}

}  // namespace

std::vector<std::vector<Trigram>> TrigramChoicesOf(const LikePattern& pattern) {
    std::vector<std::vector<Trigram>> choices;
    for (const LikeSegment& segment : pattern.Segments()) {
        std::vector<Characters> places;
        std::ranges::transform(segment.elements, std::back_inserter(places), CharactersOf);
        for (std::size_t i = 0; i + 3 <= places.size(); ++i) {
            const auto three = std::span(places).subspan(i).first<3>();
            const std::size_t count = three[0].size() * three[1].size() * three[2].size();
            if (count > 0 && count <= kMostChoices) choices.push_back(Combine(three));
        }
    }
    std::ranges::sort(choices);
    const auto rest = std::ranges::unique(choices);
    choices.erase(rest.begin(), rest.end());
    return choices;
}

}  // namespace snippetarium
