#include "engine/substring_search.h"

#include <algorithm>
#include <vector>

#include "support/case_fold.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80U;
}

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::u32string Decode(std::string_view text) {
    std::u32string characters;
    for (std::size_t position = 0; position < text.size();) {
        characters += DecodeUtf8(text, position);
    }
    return characters;
}

/// For each beginning of the text, the length of its longest proper beginning that is also its end.
std::vector<std::size_t> Borders(const std::u32string& text) {
    std::vector<std::size_t> borders(text.size(), 0);
    for (std::size_t i = 1, length = 0; i < text.size(); ++i) {
        while (length > 0 && text[i] != text[length])
            length = borders[length - 1];
        if (text[i] == text[length]) ++length;
        borders[i] = length;
    }
    return borders;
}

}  // namespace

FoldedNeedle::FoldedNeedle(std::string_view needle, ByteScan scan)
    : folded_(FoldCase(needle)), isAscii_(std::all_of(folded_.begin(), folded_.end(), IsAscii)) {
    // A needle that begins with a stray continuation byte would be found inside characters. Any
    // other first byte starts a character wherever it stands.
    if (!folded_.empty() && !IsContinuation(folded_.front())) scanner_.emplace(folded_, scan);
}

std::size_t FoldedNeedle::Find(std::string_view haystack, std::size_t from) const {
    if (folded_.empty()) return from;
    if (!scanner_) return FindByCharacters(haystack, from);
    // Texts that repeat themselves make the comparison fail late at place after place. Once that
    // has cost more than reading the haystack does, the slower search that never looks back takes
    // over.
    constexpr std::size_t kPatience = 1024;
    std::size_t bytesInVain = 0;
    for (std::size_t place = scanner_->Next(haystack, from); place != AnchorScanner::kNone;
         place = scanner_->Next(haystack, place + 1)) {
        const std::size_t agreeing = AgreeingBytes(haystack, place);
        if (agreeing == folded_.size()) return place;
        bytesInVain += agreeing;
        const bool isPatient = bytesInVain <= kPatience + 4 * (place - from);
        if (agreeing > 0 && !isPatient) return FindByCharacters(haystack, place);
    }
    return kNotFound;
}

/// How many bytes of the needle the haystack agrees with from `place` on.
std::size_t FoldedNeedle::AgreeingBytes(std::string_view haystack, std::size_t place) const {
    if (isAscii_) {
        std::size_t count = 0;
        while (count < folded_.size() && AsciiLower(haystack[place + count]) == folded_[count]) {
            ++count;
        }
        return count;
    }
    // Equal characters have equal lengths, so `place` stays in step with the needle.
    for (std::size_t position = 0; position < folded_.size();) {
        const std::size_t start = position;
        const char32_t character = DecodeUtf8(folded_, position);
        if (NextFolded(haystack, place) != character) return start;
    }
    return folded_.size();
}

/// The search of Knuth, Morris and Pratt: each character of the haystack is read once.
std::size_t FoldedNeedle::FindByCharacters(std::string_view haystack, std::size_t from) const {
    const std::u32string needle = Decode(folded_);
    const std::vector<std::size_t> borders = Borders(needle);
    std::size_t agreeing = 0;
    for (std::size_t position = from; position < haystack.size();) {
        const char32_t character = NextFolded(haystack, position);
        while (agreeing > 0 && character != needle[agreeing])
            agreeing = borders[agreeing - 1];
        if (character == needle[agreeing]) ++agreeing;
        if (agreeing == needle.size()) return position - folded_.size();
    }
    return kNotFound;
}

}  // namespace snippetarium
