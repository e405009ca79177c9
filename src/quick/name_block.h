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
    /// The blocks from `newest` down to `oldest`, in this order: to find the place of the first
    /// takes as long as to read ten.
    static std::vector<NameBlock> Read(Database& db, QuickKind kind, std::int32_t newest,
                                       std::int32_t oldest);

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
    explicit NameBlock(std::int32_t block) : firstID_(block * kIDsInBlock) {}

    bool IsWhole() const;
    void ReadTable(Database& db, QuickKind kind);

    std::int32_t firstID_ = 0;
    std::string packedEntries_;
    std::string names_;
    std::vector<Entry> entries_;
};

}  // namespace snippetarium
