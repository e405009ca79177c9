#pragma once

#include <cstddef>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

/// Makes the same texts in every run, out of a few pieces, so that they often agree in part.
class RandomText {
  public:
    RandomText(std::initializer_list<std::string_view> pieces, unsigned seed)
        : pieces_(pieces), random_(seed) {}

    /// A number below the limit.
    std::size_t Below(std::size_t limit) { return random_() % limit; }

    std::string Pieces(std::size_t count) {
        std::string text;
        while (count-- > 0)
            text += pieces_[Below(pieces_.size())];
        return text;
    }

  private:
    std::vector<std::string_view> pieces_;
    std::mt19937 random_;
};

}  // namespace snippetarium
