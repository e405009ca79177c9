#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace snippetarium {

/// IDs are looked at in blocks: block n holds those from n * 1024 on.
inline constexpr std::int32_t kIDsInBlock = 1024;

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
    void Merge(const IdSet& others) {
        for (std::size_t i = 0; i < others.blocks_.size(); ++i) {
            if (others.blocks_[i]) At(static_cast<std::int32_t>(i)) |= *others.blocks_[i];
        }
    }
    void Replace(std::int32_t block, const BlockMask& mask) { At(block) = mask; }
    void KeepCommon(const IdSet& others) {
        for (std::size_t i = 0; i < blocks_.size(); ++i) {
            if (blocks_[i]) *blocks_[i] &= others.Block(static_cast<std::int32_t>(i));
        }
    }

    bool Holds(std::int32_t id) const {
        return Block(BlockOf(id)).test(static_cast<std::size_t>(id % kIDsInBlock));
    }
    const BlockMask& Block(std::int32_t block) const {
        static const BlockMask kNone;
        const auto index = static_cast<std::size_t>(block);
        return index < blocks_.size() && blocks_[index] ? *blocks_[index] : kNone;
    }
    std::size_t Count() const {
        std::size_t count = 0;
        for (const auto& block : blocks_)
            count += block ? block->count() : 0;
        return count;
    }

    /// Calls `visit` with each ID, in ascending order.
    template <typename Visit>
    void ForEach(Visit&& visit) const {
        for (std::size_t block = 0; block < blocks_.size(); ++block) {
            if (!blocks_[block]) continue;
            for (std::size_t place = blocks_[block]->_Find_first(); place < kIDsInBlock;
                 place = blocks_[block]->_Find_next(place))
                visit(static_cast<std::int64_t>(block * kIDsInBlock + place));
        }
    }

    /// The block to write into; it stays where it is.
    BlockMask& At(std::int32_t block) {
        const auto index = static_cast<std::size_t>(block);
        if (index >= blocks_.size()) blocks_.resize(index + 1);
        if (!blocks_[index]) blocks_[index] = std::make_unique<BlockMask>();
        return *blocks_[index];
    }

  private:
    std::vector<std::unique_ptr<BlockMask>> blocks_;
};

}  // namespace snippetarium
