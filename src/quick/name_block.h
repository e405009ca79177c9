#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/id_set.h"
#include "quick/byte_range.h"
#include "quick/query.h"

namespace snippetarium {

class Database;

/// The names of up to 1,024 IDs of one level, as one text to look through.
class NameBlock {
  public:
    /// From tblNameBlock, or from the level's own table where the block is not there or cannot be
    /// read.
    static NameBlock Read(Database& db, QuickKind kind, std::int32_t block);
    /// Fills a list with the blocks from `newest` down to `oldest`, in this order: to find the
    /// place of the first takes as long as to read some more. What the list held is replaced, so
    /// that its memory is used again.
    static void Read(Database& db, QuickKind kind, std::int32_t newest, std::int32_t oldest,
                     std::vector<NameBlock>& blocks);

    /// Nothing yet.
    NameBlock() = default;

    /// All names, a line break between two.
    const std::string& Names() const { return names_; }

    /// One name: its ID, and its place in Names().
    struct Entry {
        std::int32_t id = 0;
        ByteRange place;
    };
    /// In the order of their IDs and places.
    const std::vector<Entry>& Entries();

    std::string_view NameOf(const Entry& entry) const {
        return std::string_view(names_).substr(entry.place.begin, entry.place.size);
    }

  private:
    void Reset(std::int32_t block);
    bool IsWhole() const;
    void ReadTable(Database& db, QuickKind kind);

    std::int32_t firstID_ = 0;
    std::string packedEntries_;
    std::string names_;
    std::vector<Entry> entries_;
};

}  // namespace snippetarium
