#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "engine/sqlite_handle.h"
#include "engine/text_block.h"
#include "engine/text_segments.h"

namespace snippetarium {

// Merging. A search looks into each segment, so there should be few. When there are eight of about
// the same size they become one, and so a list is written anew once for each time the index grows
// eightfold. That is done step by step, between other things: the new segment is filled with one
// range of keys after the other and counts only when it is complete, in the same moment in which
// the old ones stop to.

/// Some segments of one table on their way to becoming one. While it is under way, nothing else may
/// remove segments.
class SegmentMerge {
  public:
    /// The segments that should be merged next, of one table; empty where there are enough of no
    /// size.
    static std::vector<TextSegment> Choose(const std::vector<TextSegment>& segments);

    explicit SegmentMerge(std::vector<TextSegment> sources);
    SegmentMerge(const SegmentMerge&) = delete;
    SegmentMerge& operator=(const SegmentMerge&) = delete;

    /// Goes on until that moment, or the end; returns whether the end is reached. Needs a
    /// transaction. Throws EngineError, Corrupted where a segment is damaged.
    bool GoOn(sqlite3* database, std::chrono::steady_clock::time_point until);
    /// The new segment; 0 before the first step.
    std::int64_t TargetID() const { return target_.segmentID; }

  private:
    /// Reads a segment from its first list to its last.
    struct Source {
        std::int64_t segmentID = 0;
        std::uint32_t firstID = 0;
        /// Where the block behind those that were read begins.
        TextKey nextBlock = 0;
        std::vector<std::pair<TextKey, std::string>> lists = {};
        std::size_t place = 0;

        bool HasList() const { return place < lists.size(); }
    };

    void Begin(sqlite3* database);
    static void Load(Source& source, TextBlockReader& blocks);
    std::string TakeLists(TextKey key);
    void End(sqlite3* database);

    std::vector<TextSegment> segments_;
    std::vector<Source> sources_;
    TextSegment target_;
    std::optional<TextBlockWriter> writer_;
    std::vector<std::pair<TextKey, std::string>> finished_;
    std::vector<std::uint32_t> ids_;
};

}  // namespace snippetarium
