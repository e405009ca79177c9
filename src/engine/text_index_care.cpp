#include "engine/text_index_care.h"

#include <sqlite3.h>

#include "engine/engine_error.h"
#include "engine/sqlite_handle.h"

namespace snippetarium {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kIdleStep{8};
constexpr std::chrono::milliseconds kLongStep{200};
constexpr std::chrono::milliseconds kMostAtEndOfWriting{1000};
/// What a search reads in no time is not worth a segment.
constexpr std::int64_t kFewestRows = 64;
constexpr std::size_t kSegmentText = std::size_t{2} << 20U;
/// Takes some 8 ms.
constexpr std::size_t kIdleSegmentText = std::size_t{512} << 10U;

class Transaction {
  public:
    explicit Transaction(sqlite3* database) : database_(database) {
        RunStatements(database_, "BEGIN IMMEDIATE");
    }
    ~Transaction() {
        // Some failures have rolled back already.
        if (sqlite3_get_autocommit(database_) == 0)
            sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit() { RunStatements(database_, "COMMIT"); }

  private:
    sqlite3* database_;
};

}  // namespace

bool TextIndexCare::Tend(TendingPace pace) {
    if (hasFailed_ || tables_.empty()) return false;
    const bool isIdle = pace == TendingPace::WhenIdle;
    try {
        // What searches have to read goes first. On the way to the end, nothing is begun before
        // there is room for it that old segments have left.
        if (isIdle && TakeIn(kFewestRows, kIdleSegmentText)) return true;
        if (RemoveLeaving()) return true;
        if (Merge(Clock::now() + (isIdle ? kIdleStep : kLongStep))) return true;
        if (!isIdle && TakeIn(1, kSegmentText)) return true;
        builder_.reset();
        return false;
    } catch (...) {
        GiveUp();
        throw;
    }
}

void TextIndexCare::GiveUp() {
    hasFailed_ = true;
    merge_.reset();
    builder_.reset();
}

/// Makes one segment, if so many rows of a table wait.
bool TextIndexCare::TakeIn(std::int64_t fewestRows, std::size_t mostBytes) {
    for (const IndexedTable& table : tables_) {
        if (!HasTextIndex(database_, table) || CountWaitingRows(database_, table) < fewestRows)
            continue;
        if (!builder_) builder_ = std::make_unique<SegmentBuilder>();
        Transaction transaction(database_);
        TakeInWaitingRows(database_, table, *builder_, mostBytes);
        transaction.Commit();
        return true;
    }
    return false;
}

bool TextIndexCare::Merge(Clock::time_point until) {
    if (!merge_) {
        std::vector<TextSegment> due = SegmentMerge::Choose(ReadTextSegments(database_));
        if (due.empty()) return false;
        merge_ = std::make_unique<SegmentMerge>(std::move(due));
    }
    Transaction transaction(database_);
    const bool isDone = merge_->GoOn(database_, until);
    transaction.Commit();
    if (isDone) merge_.reset();
    return true;
}

bool TextIndexCare::RemoveLeaving() {
    const std::int64_t current = merge_ ? merge_->TargetID() : 0;
    for (const TextSegment& segment : ReadTextSegments(database_)) {
        if (segment.state == SegmentState::InUse || segment.segmentID == current) continue;
        Transaction transaction(database_);
        RemoveSomeBlocks(database_, segment.segmentID);
        transaction.Commit();
        return true;
    }
    return false;
}

/// For work beside a statement of the user's that has been carried out, and must not be reported as
/// failed: what keeps the index from being written will keep the next statement from it too.
template <typename Work>
void TextIndexCare::UnlessItFails(Work&& work) {
    if (hasFailed_ || tables_.empty()) return;
    try {
        work();
    } catch (const EngineError&) {
        GiveUp();
    }
}

bool TextIndexCare::NoteWritten(std::size_t bytes) {
    writtenBytes_ += bytes;
    return writtenBytes_ >= kSegmentText;
}

/// Merging gets as much time as taking in: so there are never many segments, and never a long
/// pause.
void TextIndexCare::TendWhileWriting() {
    writtenBytes_ = 0;
    UnlessItFails([this] {
        const Clock::time_point begin = Clock::now();
        for (std::size_t i = 0; i < tables_.size(); ++i) {
            if (!TakeIn(kFewestRows, kSegmentText)) break;
        }
        const Clock::time_point until = Clock::now() + (Clock::now() - begin);
        while (Clock::now() < until) {
            if (!RemoveLeaving() && !Merge(until)) return;
        }
    });
}

void TextIndexCare::EndWriting() {
    UnlessItFails([this] {
        const Clock::time_point until = Clock::now() + kMostAtEndOfWriting;
        while (Clock::now() < until && TakeIn(kFewestRows, kSegmentText)) {
        }
    });
    builder_.reset();
    writtenBytes_ = 0;
}

}  // namespace snippetarium
