#pragma once

#include <cstddef>

namespace snippetarium {

/// A stretch of a text: the bytes from `begin` up to, not including, `end`, counted from 0.
struct TextRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool operator==(const TextRange&) const = default;
};

}  // namespace snippetarium
