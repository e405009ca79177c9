#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/substring_search.h"
#include "quick/characters.h"
#include "quick/name_block.h"
#include "quick/plan.h"

namespace snippetarium {

/// Reads the names of all levels: applications, classes, procedures, the newest block first. A
/// change of a name that was read ahead is not seen.
class BlockWalk {
  public:
    explicit BlockWalk(const QuickPlan& plan, QuickKind from = QuickKind::Application)
        : plan_(plan), level_(static_cast<std::size_t>(from)) {
        Enter();
    }

    bool IsAtEnd() const { return level_ == kQuickKinds; }
    QuickKind Kind() const { return static_cast<QuickKind>(level_); }
    std::int32_t Block() const { return block_; }
    NameBlock& Names() {
        if (next_ == read_.size()) ReadAhead();
        return read_[next_];
    }
    void Next() {
        if (next_ < read_.size()) ++next_;
        if (--block_ >= 0) return;
        ++level_;
        Enter();
    }

  private:
    /// More and more at a time, so that what the first block has is there at once.
    static constexpr std::int32_t kMostAhead = 16;

    void Enter() {
        if (!IsAtEnd()) block_ = plan_.newestBlock[level_];
    }
    void ReadAhead() {
        NameBlock::Read(plan_.db, Kind(), block_, std::max(0, block_ - ahead_ + 1), read_);
        next_ = 0;
        ahead_ = std::min(2 * ahead_, kMostAhead);
    }

    const QuickPlan& plan_;
    std::size_t level_;
    std::int32_t block_ = 0;
    std::vector<NameBlock> read_;  // read_[next_] is the one of block_
    std::size_t next_ = 0;
    std::int32_t ahead_ = 1;
};

/// Calls `note(entry, place)` for the places of a needle in a block, until it says that the rest of
/// the entry does not matter.
template <typename Note>
void ForEachPlace(NameBlock& block, const FoldedNeedle& needle, Note note) {
    const std::string& names = block.Names();
    std::size_t at = needle.Find(names);
    if (at == FoldedNeedle::kNotFound) return;
    auto entry = block.Entries().begin();
    const auto end = block.Entries().end();
    while (at != FoldedNeedle::kNotFound) {
        while (entry != end && entry->place.End() < at + needle.Size())
            ++entry;
        if (entry == end) return;
        std::size_t next = at + 1;
        if (entry->place.begin <= at) {
            const ByteRange inName{at - entry->place.begin, needle.Size()};
            if (note(*entry, inName)) next = std::min(entry->place.End(), names.size());
        }
        while (next < names.size() && IsContinuation(names[next]))
            ++next;
        at = next < names.size() ? needle.Find(names, next) : FoldedNeedle::kNotFound;
    }
}

}  // namespace snippetarium
