#pragma once

#include <cstddef>
#include <string>

#include "import/text_range.h"

namespace snippetarium {

/// Makes blanks of what stands there, but for line breaks.
inline void BlankOut(std::string& text, const TextRange& range) {
    for (std::size_t i = range.begin; i < range.end; ++i) {
        if (text[i] != '\n' && text[i] != '\r') text[i] = ' ';
    }
}

}  // namespace snippetarium
