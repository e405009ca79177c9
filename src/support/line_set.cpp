#include "support/line_set.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "support/error.h"

namespace snippetarium {

namespace {

/// The number at the start of the text, which then begins behind it.
std::size_t TakeNumber(std::string_view& text) {
    std::size_t number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc() || number == 0) throw std::invalid_argument("no line number");
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

bool TakeCharacter(std::string_view& text, char character) {
    if (!text.starts_with(character)) return false;
    text.remove_prefix(1);
    return true;
}

}  // namespace

LineSet LineSet::Parse(std::string_view text) {
    LineSet lines;
    std::string_view rest = text;
    try {
        while (!rest.empty()) {
            const std::size_t first = TakeNumber(rest);
            const std::size_t last = TakeCharacter(rest, '-') ? TakeNumber(rest) : first;
            const bool rises = lines.runs_.empty() || first > lines.runs_.back().last;
            const bool ends = rest.empty() || (TakeCharacter(rest, ',') && !rest.empty());
            if (!rises || last < first || !ends) throw std::invalid_argument("no rising runs");
            lines.runs_.push_back({first, last});
        }
    } catch (const std::invalid_argument&) {
        throw Error(
            error_number::kInvalidCall,
            "\"" + std::string(text) + "\" is not a list of line numbers such as \"3,7-9\".");
    }
    return lines;
}

std::string LineSet::ToText() const {
    std::string text;
    for (const Run& run : runs_) {
        if (!text.empty()) text += ',';
        text += std::to_string(run.first);
        if (run.last > run.first) text += '-' + std::to_string(run.last);
    }
    return text;
}

void LineSet::Add(std::size_t line) {
    if (!runs_.empty() && line <= runs_.back().last + 1) {
        runs_.back().last = line;
    } else {
        runs_.push_back({line, line});
    }
}

bool LineSet::Contains(std::size_t line) const {
    const auto run =
        std::lower_bound(runs_.begin(), runs_.end(), line,
                         [](const Run& left, std::size_t right) { return left.last < right; });
    return run != runs_.end() && run->first <= line;
}

std::size_t LineSet::Count() const {
    std::size_t count = 0;
    for (const Run& run : runs_)
        count += run.last - run.first + 1;
    return count;
}

}  // namespace snippetarium
