#include "navigator/utf16_map.h"

#include <algorithm>

namespace snippetarium {

namespace {

/// How many units a byte begins: the first of four begins a pair, a continuation byte none.
std::size_t UnitsOf(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    if (value >= 0xF0U) return 2;
    return (value & 0xC0U) == 0x80U ? 0 : 1;
}

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

Utf16Map::Utf16Map(std::string_view text) : text_(text) {
    isAscii_ = std::ranges::none_of(
        text, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80U; });
    if (isAscii_) return;
    units_.reserve(text.size() / kStride + 1);
    std::size_t units = 0;
    for (std::size_t byte = 0; byte < text.size(); ++byte) {
        if (byte % kStride == 0) units_.push_back(units);
        units += UnitsOf(text[byte]);
    }
}

std::size_t Utf16Map::ToUtf16(std::size_t byte) const {
    byte = std::min(byte, text_.size());
    if (isAscii_) return byte;
    while (byte > 0 && byte < text_.size() && IsContinuation(text_[byte]))
        --byte;
    const std::size_t stride = std::min(byte / kStride, units_.size() - 1);
    std::size_t units = units_[stride];
    for (std::size_t at = stride * kStride; at < byte; ++at)
        units += UnitsOf(text_[at]);
    return units;
}

std::size_t Utf16Map::ToByte(std::size_t unit) const {
    if (isAscii_) return std::min(unit, text_.size());
    const auto next = std::ranges::upper_bound(units_, unit);
    const auto stride = static_cast<std::size_t>(next - units_.begin()) - 1;
    std::size_t units = units_[stride];
    std::size_t at = stride * kStride;
    while (at < text_.size() && units + UnitsOf(text_[at]) <= unit)
        units += UnitsOf(text_[at++]);
    return at;
}

}  // namespace snippetarium
