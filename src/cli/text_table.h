#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

/// The text as one line for a person: each line break becomes a mark, a tab becomes a blank, and
/// what could steer the terminal becomes "?".
std::string OneLine(std::string_view text);

/// Rows under headings, the columns aligned. A cell longer than 40 characters is cut, which three
/// dots in one character show.
class TextTable {
  public:
    explicit TextTable(const std::vector<std::string>& headings);

    /// Numbers stand at the right of their column.
    enum class Align { Left, Right };
    struct Cell {
        std::string text;
        Align align = Align::Left;
    };
    /// As many cells as there are headings.
    void AddRow(std::vector<Cell> cells);
    void Print(std::ostream& output) const;

  private:
    void PrintRow(std::ostream& output, const std::vector<Cell>& row) const;

    std::vector<std::vector<Cell>> rows_;
    std::vector<std::size_t> widths_;
};

}  // namespace snippetarium
