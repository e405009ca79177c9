#include "quick/name_block.h"

#include <algorithm>
#include <cstring>
#include <limits>
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
std::size_t Number(const char* digits) {
    const auto digit = [digits](std::size_t i) {
        return static_cast<std::size_t>(static_cast<unsigned char>(digits[i]) - '0');
    };
    return digit(0) * 1000 + digit(1) * 100 + digit(2) * 10 + digit(3);
}

/// Without an end: to compare a row with one, the engine would read all of it once more.
constexpr std::string_view kReadBlocks =
    "SELECT ownerTableID, block, entries, names FROM tblNameBlock "
    "WHERE (ownerTableID, block) <= (?1, ?2) ORDER BY ownerTableID DESC, block DESC LIMIT ?3";

}  // namespace

void NameBlock::Reset(std::int32_t block) {
    firstID_ = block * kIDsInBlock;
    packedEntries_.clear();
    names_.clear();
    entries_.clear();
}

NameBlock NameBlock::Read(Database& db, QuickKind kind, std::int32_t block) {
    std::vector<NameBlock> blocks;
    Read(db, kind, block, block, blocks);
    return std::move(blocks.front());
}

void NameBlock::Read(Database& db, QuickKind kind, std::int32_t newest, std::int32_t oldest,
                     std::vector<NameBlock>& blocks) {
    blocks.resize(static_cast<std::size_t>(newest - oldest + 1));
    for (std::int32_t block = newest; block >= oldest; --block)
        blocks[static_cast<std::size_t>(newest - block)].Reset(block);
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
}

/// Where names stand is only worked out for a block in which something was found; but that it can
/// be, has to be known before.
bool NameBlock::IsWhole() const {
    const std::size_t count = packedEntries_.size() / kPackedEntry;
    if (count == 0 || count > static_cast<std::size_t>(kIDsInBlock)) return false;
    if (packedEntries_.size() % kPackedEntry != 0) return false;
    // The digits of all lengths by their places, each place in a lane of a vector: to add them up
    // takes less than to read each number.
    using Packed [[gnu::vector_size(kPackedEntry)]] = unsigned char;
    using Sums [[gnu::vector_size(2 * kPackedEntry)]] = std::uint16_t;
    static_assert(kIDsInBlock * '9' <= std::numeric_limits<std::uint16_t>::max());
    Sums sums{};
    for (std::size_t i = 0; i < packedEntries_.size(); i += kPackedEntry) {
        Packed entry;
        std::memcpy(&entry, packedEntries_.data() + i, sizeof entry);
        sums += __builtin_convertvector(entry, Sums);
    }
    std::size_t bytes = 0;
    for (std::size_t place = kDigits; place < kPackedEntry; ++place)
        bytes = bytes * 10 + sums[place] - count * '0';
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
    entries_.reserve(packedEntries_.size() / kPackedEntry);
    std::size_t begin = 0;
    for (std::size_t i = 0; i < packedEntries_.size(); i += kPackedEntry) {
        const char* packed = packedEntries_.data() + i;
        const auto place = static_cast<std::int32_t>(Number(packed));
        const std::size_t size = Number(packed + kDigits);
        entries_.push_back({firstID_ + std::min(place, kIDsInBlock - 1), {begin, size}});
        begin += size + 1;
    }
    return entries_;
}

}  // namespace snippetarium
