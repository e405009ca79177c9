#include "support/arrays.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace snippetarium {

namespace {

template <typename Element>
void Append(std::vector<Element>& array, bool isEmpty, Element value) {
    if (isEmpty && !array.empty()) {
        array.front() = std::move(value);
    } else {
        array.push_back(std::move(value));
    }
}

}  // namespace

std::vector<std::string> FreshStringArray() {
    return {std::string()};
}

std::vector<std::int32_t> FreshIntegerArray() {
    return {-1};
}

bool IsEmptyStringArray(std::span<const std::string> array) {
    return array.empty() || array.front().empty();
}

void AppendString(std::vector<std::string>& array, std::string value) {
    Append(array, IsEmptyStringArray(array), std::move(value));
}

void AppendStringArray(std::vector<std::string>& array, const std::vector<std::string>& other) {
    const std::size_t count = other.size();  // before `other`, which may be `array`, grows
    for (std::size_t i = 0; i < count; ++i)
        AppendString(array, other[i]);
}

void AppendInteger(std::vector<std::int32_t>& array, std::int32_t value) {
    Append(array, array.empty() || array.front() < 0, value);
}

std::int32_t MinOfArray(std::span<const std::int32_t> array) {
    return array.empty() ? 0 : std::ranges::min(array);
}

std::int32_t MaxOfArray(std::span<const std::int32_t> array) {
    return array.empty() ? 0 : std::ranges::max(array);
}

}  // namespace snippetarium
