#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "engine/segment_builder.h"
#include "engine/segment_merge.h"
#include "engine/text_index.h"

struct sqlite3;

namespace snippetarium {

/// Keeps the text index of an open catalogue small and whole: takes in rows that wait, merges
/// segments, removes what is left of old ones. Each step is one transaction, so a program that is
/// killed loses at most the step. The index is never needed: where its care fails, searches read
/// more texts.
class TextIndexCare {
  public:
    TextIndexCare(sqlite3* database, std::span<const IndexedTable> tables)
        : database_(database), tables_(tables) {}

    /// One step; returns whether another one has something to do. Throws EngineError, and then does
    /// nothing any more.
    bool Tend(TendingPace pace);

    /// While much is being written: takes note of so many bytes of it. Returns whether
    /// TendWhileWriting is due, as it is every few megabytes.
    bool NoteWritten(std::size_t bytes);
    void TendWhileWriting();
    /// The writing is over: takes in what waits, so that it can be searched fast. Where that is
    /// far more than has just been written, the rest waits for Tend.
    void EndWriting();

    /// Others have changed the index, maybe mended it.
    void Forget() {
        merge_.reset();
        hasFailed_ = false;
    }

  private:
    bool TakeIn(std::int64_t fewestRows, std::size_t mostBytes);
    bool Merge(std::chrono::steady_clock::time_point until);
    bool RemoveLeaving();
    void GiveUp();
    template <typename Work>
    void UnlessItFails(Work&& work);

    sqlite3* database_;
    std::span<const IndexedTable> tables_;
    /// There while it is needed: it takes some megabytes.
    std::unique_ptr<SegmentBuilder> builder_;
    std::unique_ptr<SegmentMerge> merge_;
    std::size_t writtenBytes_ = 0;
    bool hasFailed_ = false;
};

}  // namespace snippetarium
