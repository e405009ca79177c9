#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/text_block.h"

namespace snippetarium {

/// Collects the trigrams of rows and turns them into the blocks of a segment. A megabyte of text
/// takes some 7 MB of memory until then.
class SegmentBuilder {
  public:
    /// Rows come with ascending IDs, each with its columns in any order.
    void Add(std::uint32_t id, unsigned column, std::string_view text);
    /// The bytes of all texts since the last segment.
    std::size_t TextSize() const { return textSize_; }

    /// Writes all blocks, with IDs as their distances from `base`, and begins anew.
    void Write(std::uint32_t base, const TextBlockWriter::Sink& sink);

  private:
    /// A key in the upper half and an ID in the lower.
    using Posting = std::uint64_t;

    void SortByKey();

    std::vector<Posting> postings_;
    std::vector<Posting> spare_;
    DistinctTrigrams distinct_;
    std::size_t textSize_ = 0;
};

}  // namespace snippetarium
