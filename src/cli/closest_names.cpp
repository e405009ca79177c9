#include "cli/closest_names.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "support/case_fold.h"

namespace snippetarium {

namespace {

constexpr std::size_t kHintLimit = 5;

std::string SmallLetters(std::string_view text) {
    std::string small(text);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](char letter) { return AsciiLower(letter); });
    return small;
}

/// How many letters must be changed, added or removed to make one text of the other.
std::size_t EditDistance(std::string_view left, std::string_view right) {
    // One row of the usual table: row[j] is the distance of the left text so far to right's first
    // j.
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t changed = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

}  // namespace

std::vector<std::string> ClosestNames(std::string_view typed,
                                      std::span<const std::string_view> names, std::size_t limit) {
    const std::string wanted = SmallLetters(typed);
    if (wanted.empty()) return {};  // nearly like every name of one letter
    const std::size_t tolerance = 1 + wanted.size() / 4;
    std::vector<std::pair<std::size_t, std::string>> close;
    for (const std::string_view name : names) {
        const std::string candidate = SmallLetters(name);
        const std::size_t distance = EditDistance(wanted, candidate);
        // One or two letters are part of almost every name.
        const bool isPart = wanted.size() >= 3 && candidate.find(wanted) != std::string::npos;
        if (distance <= tolerance || isPart) close.emplace_back(distance, name);
    }
    std::stable_sort(close.begin(), close.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    close.resize(std::min(close.size(), limit));
    std::vector<std::string> result;
    for (auto& [distance, name] : close)
        result.push_back(std::move(name));
    return result;
}

std::string ClosestNamesHint(std::string_view typed, std::span<const std::string_view> names) {
    std::string hint;
    for (const std::string& name : ClosestNames(typed, names, kHintLimit)) {
        hint += hint.empty() ? " Did you mean '" : "', '";
        hint += name;
    }
    return hint.empty() ? hint : hint + "'?";
}

}  // namespace snippetarium
