#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace snippetarium {

// Arrays that grow by one element at a time and mark in element 0 that nothing is in them yet: an
// empty string, or -1. Callers that pass such an array on hand over the marker too, and tell an
// array without entries from its first entry. So a fresh array has one element. One without any
// elements is taken as empty too.

std::vector<std::string> FreshStringArray();
std::vector<std::int32_t> FreshIntegerArray();

/// True when element 0 is an empty string.
bool IsEmptyStringArray(std::span<const std::string> array);

/// Stores the value in element 0 of an empty array, else in a new last element. An empty value put
/// into an empty array leaves it empty.
void AppendString(std::vector<std::string>& array, std::string value);

/// Appends each element of `other`, which may be the same array. The marker is an element like any
/// other: an empty `other` adds an empty string to an array that is not empty.
void AppendStringArray(std::vector<std::string>& array, const std::vector<std::string>& other);

/// As AppendString. The array counts as empty while element 0 is below 0.
void AppendInteger(std::vector<std::int32_t>& array, std::int32_t value);

/// The smallest element; 0 when there are no elements.
std::int32_t MinOfArray(std::span<const std::int32_t> array);

/// The largest element; 0 when there are no elements.
std::int32_t MaxOfArray(std::span<const std::int32_t> array);

}  // namespace snippetarium
