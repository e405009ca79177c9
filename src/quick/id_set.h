#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "store/packed_names.h"

namespace snippetarium {

/// IDs are looked at in blocks, those of the packed names: block n holds the IDs from n * 1024 on.
inline constexpr std::int32_t kIDsInBlock = kIDsInNameBlock;

constexpr std::int32_t BlockOf(std::int32_t id) {
    return id / kIDsInBlock;
}

/// Some of the IDs of one block: bit i is the block's ID number i.
using BlockMask = std::bitset<kIDsInBlock>;

/// A set of positive IDs.
class IdSet {
  public:
    void Add(std::int32_t id) { At(BlockOf(id)).set(static_cast<std::size_t>(id % kIDsInBlock)); }
    void Merge(std::int32_t block, const BlockMask& mask) { At(block) |= mask; }

    bool Holds(std::int32_t id) const {
        return Block(BlockOf(id)).test(static_cast<std::size_t>(id % kIDsInBlock));
    }
    const BlockMask& Block(std::int32_t block) const {
        static const BlockMask kNone;
        const auto index = static_cast<std::size_t>(block);
        return index < blocks_.size() && blocks_[index] ? *blocks_[index] : kNone;
    }

  private:
    BlockMask& At(std::int32_t block) {
        const auto index = static_cast<std::size_t>(block);
        if (index >= blocks_.size()) blocks_.resize(index + 1);
        if (!blocks_[index]) blocks_[index] = std::make_unique<BlockMask>();
        return *blocks_[index];
    }

    std::vector<std::unique_ptr<BlockMask>> blocks_;
};

}  // namespace snippetarium
