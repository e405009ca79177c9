#include "cli/text_table.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "cli/console.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::size_t kLongestCell = 40;
constexpr std::string_view kEllipsis = "\u2026";
constexpr std::string_view kLineBreakMark = "\u23ce";
constexpr std::string_view kBetweenColumns = "  ";

std::string Shortened(const std::string& text) {
    if (CharacterCount(text) <= kLongestCell) return text;
    return std::string(CutToCharacters(text, kLongestCell - 1)) + std::string(kEllipsis);
}

}  // namespace

std::string OneLine(std::string_view text) {
    std::string line;
    for (const char character : TerminalText(text)) {
        switch (character) {
            case '\n':
                line += kLineBreakMark;
                break;
            case '\t':
                line += ' ';
                break;
            default:
                line += character;
        }
    }
    return line;
}

TextTable::TextTable(const std::vector<std::string>& headings) : widths_(headings.size()) {
    std::vector<Cell> row;
    for (const std::string& heading : headings)
        row.push_back({heading});
    AddRow(std::move(row));
}

void TextTable::AddRow(std::vector<Cell> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        cells[i].text = Shortened(OneLine(cells[i].text));
        widths_[i] = std::max(widths_[i], CharacterCount(cells[i].text));
    }
    rows_.push_back(std::move(cells));
}

void TextTable::PrintRow(std::ostream& output, const std::vector<Cell>& row) const {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string blanks(widths_[i] - CharacterCount(row[i].text), ' ');
        if (i > 0) line += kBetweenColumns;
        line += row[i].align == Align::Right ? blanks + row[i].text : row[i].text + blanks;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    output << line << '\n';
}

void TextTable::Print(std::ostream& output) const {
    PrintRow(output, rows_.front());
    std::string rule;
    for (const std::size_t width : widths_) {
        if (!rule.empty()) rule += kBetweenColumns;
        rule += std::string(width, '-');
    }
    output << rule << '\n';
    for (auto row = rows_.begin() + 1; row != rows_.end(); ++row)
        PrintRow(output, *row);
}

}  // namespace snippetarium
