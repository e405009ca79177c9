#include "cli/arguments.h"

#include <charconv>
#include <system_error>
#include <utility>

#include "cli/usage_error.h"

namespace snippetarium {

void Arguments::Add(std::string_view name, std::string value) {
    values_[std::string(name)].push_back(std::move(value));
}

std::optional<std::string> Arguments::Value(std::string_view name) const {
    const std::span<const std::string> values = All(name);
    return values.empty() ? std::nullopt : std::optional(values.back());
}

std::span<const std::string> Arguments::All(std::string_view name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? std::span<const std::string>() : found->second;
}

std::optional<std::int32_t> Arguments::Number(std::string_view name, std::int32_t least,
                                              std::int32_t most) const {
    const std::optional<std::string> text = Value(name);
    if (!text) return std::nullopt;
    const std::optional<std::int32_t> number = ReadNumber(*text);
    if (!number || *number < least || *number > most) {
        throw UsageError(std::string(name) + " takes a number from " + std::to_string(least) +
                         " to " + std::to_string(most) + ", not '" + *text + "'.");
    }
    return number;
}

std::optional<std::int32_t> ReadNumber(std::string_view text) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

}  // namespace snippetarium
