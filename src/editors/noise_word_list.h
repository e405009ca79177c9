#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "keywords/noise_words.h"

namespace snippetarium {

class Database;

/// The words of an entry, each once, as they are stored.
std::vector<std::string> WordsToAdd(std::string_view entry);

/// Refuses a word of more than 255 characters.
bool FitsNoiseWord(Database& db, std::string_view word);

/// What becomes different when words become noise words.
struct NoiseEffect {
    /// How many of them are in the index, from which they go.
    std::size_t searchWords = 0;
    /// From how many keyword strings they are taken out.
    std::size_t keywords = 0;
};

/// Throws.
NoiseEffect EffectOfNoise(Database& db, std::string_view entry);

// The editor of noise words. Where an operation may not be done, or the user decided otherwise,
// nothing is written.

/// One word of at most 255 characters that is none yet. Asks where keywords change by it. Returns
/// what has become different; nothing where it was not done.
std::optional<NoiseEffect> AddListedNoiseWord(Database& db, NoiseWords& noise,
                                              std::string_view entry);

/// Returns whether it was done.
bool DeleteListedNoiseWord(Database& db, NoiseWords& noise, std::string_view word);

}  // namespace snippetarium
