#include "engine/trigrams.h"

#include <algorithm>
#include <string>

namespace snippetarium {

std::vector<Trigram> TrigramsOf(const std::vector<std::string>& literals) {
    std::vector<Trigram> trigrams;
    for (const std::string& literal : literals)
        ForEachTrigram(literal, [&](Trigram trigram) { trigrams.push_back(trigram); });
    std::ranges::sort(trigrams);
    const auto rest = std::ranges::unique(trigrams);
    trigrams.erase(rest.begin(), rest.end());
    return trigrams;
}

}  // namespace snippetarium
