#pragma once

#include <bitset>
#include <string_view>
#include <vector>

namespace snippetarium {

/// The few regular expressions that highlighting queries have about names: "^", "$", characters,
/// classes of them with ranges and "\d", each perhaps with "*" or "+", and words in one group.
///
///     ^_*[A-Z][A-Z\d_]+$        ^(console|window)$
///
/// Letters are those of ASCII; a match may begin anywhere where there is no "^".
class NamePattern {
  public:
    /// Throws Error for an expression of another kind.
    explicit NamePattern(std::string_view expression);

    bool Matches(std::string_view name) const;

  private:
    /// One place of the name, or several.
    struct Part {
        std::bitset<256> bytes;
        bool mayBeMissing = false;
        bool mayRepeat = false;
    };
    using Sequence = std::vector<Part>;

    static Sequence ReadSequence(std::string_view expression);
    bool MatchesFrom(const Sequence& sequence, std::size_t part, std::string_view rest) const;

    std::vector<Sequence> alternatives_;
    bool isAtStart_ = false;
    bool isAtEnd_ = false;
};

}  // namespace snippetarium
