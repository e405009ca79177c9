#include "cli/text_layout.h"

namespace snippetarium {

namespace {

constexpr std::string_view kTermIndent = "  ";

/// Appends a text word by word. `column` is where the last line of the result stands.
void AppendWrapped(std::string& result, std::string_view text, std::size_t indent,
                   std::size_t column) {
    bool startsLine = true;
    for (std::size_t start = text.find_first_not_of(" \n"); start != std::string_view::npos;) {
        const std::string_view word = text.substr(start, text.find_first_of(" \n", start) - start);
        if (!startsLine && column + 1 + word.size() > kLineWidth) {
            result += "\n" + std::string(indent, ' ');
            column = indent;
            startsLine = true;
        }
        if (!startsLine) {
            result += ' ';
            ++column;
        }
        result += word;
        column += word.size();
        startsLine = false;
        start = text.find_first_not_of(" \n", start + word.size());
    }
    result += '\n';
}

}  // namespace

std::string WrapParagraphs(std::string_view text, std::size_t indent) {
    std::string result;
    while (!text.empty()) {
        const std::size_t end = text.find("\n\n");
        if (!result.empty()) result += '\n';
        result += std::string(indent, ' ');
        AppendWrapped(result, text.substr(0, end), indent, indent);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 2);
    }
    return result;
}

std::string DefinitionRow(std::string_view term, std::string_view help, std::size_t helpColumn) {
    std::string row(kTermIndent);
    row += term;
    if (row.size() + 2 > helpColumn) {
        row += "\n" + std::string(helpColumn, ' ');
    } else {
        row.resize(helpColumn, ' ');
    }
    AppendWrapped(row, help, helpColumn, helpColumn);
    return row;
}

}  // namespace snippetarium
