#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace snippetarium {

/// How a haystack is read: byte by byte, or 32 bytes at a time with the processor's vectors.
enum class ByteScan { Plain, Sse2, Avx2 };

/// The fastest way that this processor knows. The ways before it in the list work too.
ByteScan FastestByteScan();

// Comparing a needle at every place of a haystack is slow because most comparisons fail. Two bytes
// of the needle that are rare in source text, its anchors, rule out nearly all places, and vectors
// test many places at once for them.
//
// Letters come in several cases. Of an anchor only those bits count that all cases of its character
// share at that byte, so a place that matches in any case is never ruled out; one that is let
// through in vain costs a comparison.

/// Lists the places where a needle may stand.
class AnchorScanner {
  public:
    static constexpr std::size_t kNone = std::string_view::npos;

    /// The needle is folded and not empty.
    AnchorScanner(std::string_view foldedNeedle, ByteScan scan);

    /// The first byte offset, at or behind `from`, where the needle fits into the haystack and both
    /// anchors agree; kNone when there is none. It may lie inside a character. Reads no byte
    /// outside the haystack.
    std::size_t Next(std::string_view haystack, std::size_t from) const;

    /// A byte of the needle: where the needle stands, (byte & mask) == value holds at this offset.
    struct Anchor {
        std::size_t offset = 0;
        std::uint8_t mask = 0xFF;
        std::uint8_t value = 0;

        bool Fits(char byte) const { return (static_cast<std::uint8_t>(byte) & mask) == value; }
    };

  private:
    /// Bit i of the result says whether both anchors agree at block + i, for 32 places.
    using BlockHits = std::uint32_t (*)(const char* block, const Anchor& first,
                                        const Anchor& second);

    static BlockHits ChooseBlockHits(ByteScan scan);
    std::size_t NextByteByByte(std::string_view haystack, std::size_t from, std::size_t last) const;

    std::size_t needleSize_;
    Anchor first_;
    Anchor second_;
    BlockHits blockHits_;
};

}  // namespace snippetarium
