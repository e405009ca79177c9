#include "store/sql_text.h"

#include <utility>

#include "support/text.h"
#include "support/utf8.h"

namespace snippetarium {

std::string SqlText(std::string_view text) {
    return "'" + DoubleSingleQuotes(text) + "'";
}

std::string SqlText255(std::string_view text) {
    return SqlText(CutToCharacters(text, kNameLimit));
}

std::string SqlText50(std::string_view text) {
    return SqlText(CutToCharacters(text, kShortTextLimit));
}

std::string SqlTextOrNull(std::string_view text) {
    return text.empty() ? " null" : SqlText(text);
}

std::string SqlDate(const DateTime& date) {
    return "#" + IsoText(date) + "#";
}

InsertLists::InsertLists(std::string columns, std::string values)
    : columns_(std::move(columns)), values_(std::move(values)) {}

void InsertLists::AddText(std::string_view column, std::string_view text) {
    if (text.empty()) return;
    columns_.append(", ").append(column);
    values_.append(", ").append(SqlText(text));
}

void InsertLists::AddID(std::string_view column, std::int32_t id) {
    if (id < 1) return;
    columns_.append(", ").append(column);
    values_.append(", ").append(std::to_string(id));
}

}  // namespace snippetarium
