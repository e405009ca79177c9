#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "engine/cancel_poll.h"
#include "engine/on_progress.h"
#include "engine/text_index.h"

namespace snippetarium {

/// What is wrong with the index of one table.
struct TextIndexProblem {
    std::string_view table;
    /// In words; empty where the index is in order. Searches notice damage and read all texts.
    std::string damage;
    /// Rows that have a trigram the index does not know: searches may miss them. The first few IDs,
    /// and how many there are.
    std::vector<std::int64_t> examples;
    std::int64_t lostRows = 0;
};

/// Compares the text index of a catalogue with all its texts, from beside. It reads everything
/// twice and takes 8 bytes of memory for a row. Returns the tables that have problems. Throws
/// EngineError, Cancelled when the poll, which may be null, says so.
std::vector<TextIndexProblem> CheckTextIndex(const std::string& path,
                                             std::span<const IndexedTable> tables,
                                             const OnProgress& onProgress, const CancelPoll* poll);

}  // namespace snippetarium
