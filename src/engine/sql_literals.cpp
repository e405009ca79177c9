#include "engine/sql_literals.h"

#include <charconv>
#include <system_error>

#include "engine/sql_dates.h"

namespace snippetarium {

namespace {

template <typename Number>
std::optional<SqlLiteral> WholeTokenAs(std::string_view text) {
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end) return std::nullopt;
    return number;
}

}  // namespace

std::string TextOfLiteral(const SqlToken& literal) {
    std::string_view rest = literal.text.substr(1, literal.text.size() - 2);
    std::string text;
    text.reserve(rest.size());
    while (true) {
        const std::size_t quote = rest.find('\'');
        if (quote == std::string_view::npos) break;
        text.append(rest, 0, quote + 1);
        rest.remove_prefix(quote + 2);
        // Where there is one there are often more; a step costs less than a search.
        while (rest.starts_with('\'')) {
            text += '\'';
            rest.remove_prefix(2);
        }
    }
    text.append(rest);
    return text;
}

std::string DateTextOfLiteral(const SqlToken& literal) {
    const std::optional<DateTime> date = ParseDateLiteral(literal.Unquoted());
    if (!date) {
        ThrowSyntaxError(
            literal.offset,
            std::string(literal.text.substr(0, 40)) +
                " is no date; write the year, the month and the day, as in #2001-03-14#");
    }
    return IsoText(*date);
}

std::optional<SqlLiteral> NumberOfLiteral(const SqlToken& literal) {
    const bool isWhole = literal.text.find_first_not_of("0123456789") == std::string_view::npos;
    return isWhole ? WholeTokenAs<std::int64_t>(literal.text) : WholeTokenAs<double>(literal.text);
}

}  // namespace snippetarium
