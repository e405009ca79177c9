#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

/// A set of line numbers (from 1), kept as runs, since lines that differ from the rest of a file
/// mostly stand together. Its text names the runs in rising order:
///
///     3,7-9,120
class LineSet {
  public:
    /// Reads what ToText wrote. Throws Error when the text is anything else.
    static LineSet Parse(std::string_view text);
    std::string ToText() const;

    /// Adds a line that is not before the last one added.
    void Add(std::size_t line);
    bool Contains(std::size_t line) const;
    bool Empty() const { return runs_.empty(); }
    /// The number of lines in the set.
    std::size_t Count() const;

    friend bool operator==(const LineSet&, const LineSet&) = default;

  private:
    struct Run {
        std::size_t first;
        std::size_t last;
        friend bool operator==(const Run&, const Run&) = default;
    };
    std::vector<Run> runs_;
};

}  // namespace snippetarium
