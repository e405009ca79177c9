#include "quick/name_block.h"

#include <algorithm>

#include "quick/levels.h"
#include "store/database.h"
#include "store/packed_names.h"

namespace snippetarium {

namespace {

constexpr std::size_t kDigits = 4;
constexpr std::size_t kPackedEntry = 2 * kDigits;

/// Four digits as a number; anything else as a number that fits nothing.
std::size_t Number(std::string_view digits) {
    std::size_t number = 0;
    for (const char digit : digits)
        number = number * 10 + static_cast<std::size_t>(static_cast<unsigned char>(digit) - '0');
    return number;
}

constexpr std::string_view kReadBlock =
    "SELECT entries, names FROM tblNameBlock WHERE ownerTableID = ?1 AND block = ?2";

}  // namespace

NameBlock NameBlock::Read(Database& db, QuickKind kind, std::int32_t block) {
    NameBlock result;
    result.firstID_ = block * kIDsInNameBlock;
    const auto row = db.GetConnection().OpenCursor(
        kReadBlock, static_cast<std::int64_t>(LevelOf(kind).owner), std::int64_t{block});
    if (row->Next()) {
        result.packedEntries_ = row->Text(0);
        result.names_ = row->Text(1);
        // Where names stand is only worked out for a block in which something was found; but that
        // it can be, has to be known now.
        const std::size_t count = result.packedEntries_.size() / kPackedEntry;
        if (count > 0 && result.packedEntries_.size() % kPackedEntry == 0) {
            std::size_t bytes = count - 1;
            for (std::size_t i = 0; i < count; ++i) {
                bytes += Number(std::string_view(result.packedEntries_)
                                    .substr(i * kPackedEntry + kDigits, kDigits));
            }
            if (bytes == result.names_.size()) return result;
        }
    }
    result.ReadTable(db, kind, block);
    return result;
}

void NameBlock::ReadTable(Database& db, QuickKind kind, std::int32_t block) {
    packedEntries_.clear();
    names_.clear();
    const std::int64_t first = std::int64_t{block} * kIDsInNameBlock;
    const auto row =
        db.GetConnection().OpenCursor(LevelOf(kind).names, first, first + kIDsInNameBlock - 1);
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
        entries_.push_back({firstID_ + std::min(place, kIDsInNameBlock - 1), {begin, size}});
        begin += size + 1;
    }
    return entries_;
}

}  // namespace snippetarium
