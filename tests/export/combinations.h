#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace snippetarium::test {

/// Every row of at most `count` pieces, put together.
inline std::vector<std::string> Combinations(const std::vector<std::string>& pieces, int count) {
    std::vector<std::string> all = {""};
    for (std::size_t begin = 0; count > 0; --count) {
        const std::size_t end = all.size();
        for (; begin < end; ++begin) {
            for (const std::string& piece : pieces)
                all.push_back(all[begin] + piece);
        }
    }
    return all;
}

}  // namespace snippetarium::test
