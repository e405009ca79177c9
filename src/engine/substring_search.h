#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "engine/anchor_scan.h"

namespace snippetarium {

/// A text to look for in many others, without regard to case. Compiled once, then used any number
/// of times, also by several threads at once.
///
///     FoldedNeedle("dim").Find("  DIM x")  ->  2
class FoldedNeedle {
  public:
    static constexpr std::size_t kNotFound = std::string_view::npos;

    explicit FoldedNeedle(std::string_view needle, ByteScan scan = FastestByteScan());

    /// The byte offset, at or behind `from`, of the first place where the haystack's characters,
    /// folded, are the needle's, folded; kNotFound when there is none. `from` is where a character
    /// of the haystack starts, or the haystack's size. An empty needle is found at `from`. A
    /// malformed byte of the needle stands for the same malformed byte, never for a part of a
    /// well-formed character.
    ///
    /// Takes time in proportion to the two sizes, whatever the texts are, and reads no byte outside
    /// the haystack.
    std::size_t Find(std::string_view haystack, std::size_t from = 0) const;

    /// The length in bytes of the needle and of every place where it is found.
    std::size_t Size() const { return folded_.size(); }

  private:
    std::size_t AgreeingBytes(std::string_view haystack, std::size_t place) const;
    std::size_t FindByCharacters(std::string_view haystack, std::size_t from) const;

    std::string folded_;
    bool isAscii_;
    /// Nothing where anchors cannot find the needle.
    std::optional<AnchorScanner> scanner_;
};

}  // namespace snippetarium
