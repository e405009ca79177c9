#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "engine/trigrams.h"

namespace snippetarium {

// A segment of the text index is one long run of lists, ascending by their keys, cut into blocks
// that fit a page of the file. A list that is longer than a page has a block of its own.
//
//     block: checksum (4 bytes), number of the keys it covers, then for each list
//            distance of its key from the one before (at first: from the block's), size, list
//
// A block covers the keys from its own up to the next block's, so all blocks of a segment together
// cover every key there is. A key whose block is missing is thus never taken for one that has no
// list, and the checksum tells of damage.

/// What fits into a leaf page of the file beside its own bookkeeping.
inline constexpr std::size_t kFullTextBlock = 4'000;
/// A block that is longer has one list. It begins with the list's key, unless it is a segment's
/// first.
inline constexpr std::size_t kLargestSharedTextBlock = kFullTextBlock + 16;

/// A trigram in one of the columns of a table.
using TextKey = std::uint32_t;
inline constexpr unsigned kMostTextColumns = 8;
inline constexpr TextKey kEndOfTextKeys = kMostTextColumns << kTrigramBits;

constexpr TextKey TextKeyOf(unsigned column, Trigram trigram) {
    return column << kTrigramBits | trigram;
}

/// Cuts lists into blocks.
class TextBlockWriter {
  public:
    /// Takes a finished block and the key that it begins with.
    using Sink = std::function<void(TextKey firstKey, std::string_view block)>;

    /// `firstKey`: where the block before, if any, ended.
    explicit TextBlockWriter(Sink sink, TextKey firstKey = 0);

    /// The list of the next key, which is above the one before.
    void Add(TextKey key, std::string_view postings);
    /// Writes what is there as a block that reaches up to this key; with the default, the last.
    void Finish(TextKey end = kEndOfTextKeys);

  private:
    Sink sink_;
    TextKey firstKey_ = 0;
    TextKey previousKey_ = 0;
    std::string lists_;
};

/// A block as it was read. The bytes must outlive it.
class TextBlock {
  public:
    /// Throws EngineError Corrupted where it is not as it was written.
    TextBlock(TextKey firstKey, std::string_view bytes);

    /// The key that the next block begins with.
    TextKey End() const { return end_; }
    bool Covers(TextKey key) const { return key >= firstKey_ && key < end_; }
    /// The key's list, nothing where it has none.
    std::optional<std::string_view> Find(TextKey key) const;
    /// Calls `visit` with each key and its list.
    void ForEach(const std::function<void(TextKey key, std::string_view postings)>& visit) const;

  private:
    TextKey firstKey_;
    TextKey end_ = 0;
    std::string_view lists_;
};

}  // namespace snippetarium
