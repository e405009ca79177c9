#include "quick/name_block.h"

#include <algorithm>
#include <array>
#include <utility>

#include "quick/levels.h"
#include "store/database.h"
#include "store/packed_names.h"

namespace snippetarium {

namespace {

static_assert(kIDsInBlock == kIDsInNameBlock);

constexpr std::size_t kDigits = 4;
constexpr std::size_t kPackedEntry = 2 * kDigits;

/// Four digits as a number; anything else as a number that fits nothing.
std::size_t Number(std::string_view digits) {
    std::size_t number = 0;
    for (const char digit : digits)
        number = number * 10 + static_cast<std::size_t>(static_cast<unsigned char>(digit) - '0');
    return number;
}

/// Without an end: to compare a row with one, the engine would read all of it once more.
constexpr std::string_view kReadBlocks =
    "SELECT ownerTableID, block, entries, names FROM tblNameBlock "
    "WHERE (ownerTableID, block) <= (?1, ?2) ORDER BY ownerTableID DESC, block DESC LIMIT ?3";

}  // namespace

NameBlock NameBlock::Read(Database& db, QuickKind kind, std::int32_t block) {
    return std::move(Read(db, kind, block, block).front());
}

std::vector<NameBlock> NameBlock::Read(Database& db, QuickKind kind, std::int32_t newest,
                                       std::int32_t oldest) {
    std::vector<NameBlock> blocks;
    for (std::int32_t block = newest; block >= oldest; --block)
        blocks.push_back(NameBlock(block));
    {
        const auto owner = static_cast<std::int64_t>(LevelOf(kind).owner);
        const auto row = db.GetConnection().OpenCursor(kReadBlocks, owner, std::int64_t{newest},
                                                       std::int64_t{newest - oldest + 1});
        while (row->Next() && row->Number(0) == owner && row->Number(1) >= oldest) {
            NameBlock& block = blocks[static_cast<std::size_t>(newest - row->Number(1))];
            block.packedEntries_ = row->Text(2);
            block.names_ = row->Text(3);
        }
    }
    for (NameBlock& block : blocks) {
        if (!block.IsWhole()) block.ReadTable(db, kind);
    }
    return blocks;
}

/// Where names stand is only worked out for a block in which something was found; but that it can
/// be, has to be known before.
bool NameBlock::IsWhole() const {
    const std::size_t count = packedEntries_.size() / kPackedEntry;
    if (count == 0 || packedEntries_.size() % kPackedEntry != 0) return false;
    // The digits of all lengths by their places: to add them up takes less than to read each
    // number.
    std::array<std::size_t, kDigits> sums{};
    for (std::size_t i = kDigits; i < packedEntries_.size(); i += kPackedEntry) {
        for (std::size_t place = 0; place < kDigits; ++place)
            sums[place] += static_cast<unsigned char>(packedEntries_[i + place]);
    }
    std::size_t bytes = 0;
    for (const std::size_t sum : sums)
        bytes = bytes * 10 + sum - count * '0';
    bytes += count - 1;
    return bytes == names_.size();
}

void NameBlock::ReadTable(Database& db, QuickKind kind) {
    packedEntries_.clear();
    names_.clear();
    const auto row = db.GetConnection().OpenCursor(LevelOf(kind).names, std::int64_t{firstID_},
                                                   std::int64_t{firstID_} + kIDsInBlock - 1);
    while (row->Next()) {
        if (!entries_.empty()) names_ += '\n';
        const std::string_view name = row->Text(1);
        entries_.push_back(
            {static_cast<std::int32_t>(row->Number(0)), {names_.size(), name.size()}});
        names_ += name;
    }
}

const std::vector<NameBlock::Entry>& NameBlock::Entries() {
    if (!entries_.empty() || packedEntries_.empty()) return entries_;
    const std::string_view packed = packedEntries_;
    entries_.reserve(packed.size() / kPackedEntry);
    std::size_t begin = 0;
    for (std::size_t i = 0; i < packed.size(); i += kPackedEntry) {
        const auto place = static_cast<std::int32_t>(Number(packed.substr(i, kDigits)));
        const std::size_t size = Number(packed.substr(i + kDigits, kDigits));
        entries_.push_back({firstID_ + std::min(place, kIDsInBlock - 1), {begin, size}});
        begin += size + 1;
    }
    return entries_;
}

}  // namespace snippetarium
