#pragma once

#include <cstddef>

namespace snippetarium {

/// A part of a text: `size` bytes from the offset `begin` on.
struct ByteRange {
    std::size_t begin = 0;
    std::size_t size = 0;

    std::size_t End() const { return begin + size; }
    bool operator==(const ByteRange&) const = default;
};

}  // namespace snippetarium
