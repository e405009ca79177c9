#include "support/case_fold.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "support/utf8.h"

namespace snippetarium {

namespace {

struct FoldRun {
    char32_t first;
    char32_t last;
    std::uint32_t step;
    std::int32_t distance;
};

constexpr FoldRun kFoldRuns[] = {
#include "support/case_fold_table.inc"
};

// The runs are compact to read and to search backwards. To fold a character with one look-up, the
// compiler spreads them out into pages of 256 distances. All pages in which nothing folds share
// page 0.
constexpr std::size_t kPageSize = 256;
constexpr std::size_t kPageCount = std::end(kFoldRuns)[-1].last / kPageSize + 1;

using PageNumbers = std::array<std::uint8_t, kPageCount>;
using Page = std::array<std::int32_t, kPageSize>;

constexpr PageNumbers kPageNumbers = [] {
    PageNumbers numbers{};
    std::uint8_t used = 0;
    for (const FoldRun& run : kFoldRuns) {
        for (std::size_t i = run.first / kPageSize; i <= run.last / kPageSize; ++i) {
            if (numbers[i] == 0) numbers[i] = ++used;
        }
    }
    return numbers;
}();

constexpr std::size_t kUsedPages = *std::max_element(kPageNumbers.begin(), kPageNumbers.end()) + 1;

constexpr auto kPages = [] {
    std::array<Page, kUsedPages> pages{};
    for (const FoldRun& run : kFoldRuns) {
        for (char32_t character = run.first; character <= run.last; character += run.step) {
            pages[kPageNumbers[character / kPageSize]][character % kPageSize] = run.distance;
        }
    }
    return pages;
}();

constexpr std::uint64_t kHighBits = 0x8080808080808080U;

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80U;
}

std::uint64_t WordAt(std::string_view text, std::size_t position) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + position, sizeof word);
    return word;
}

/// Folds eight ASCII bytes at a time. Adding to a byte below 128 never carries into the next one,
/// so the high bit of each sum tells whether the byte reaches a bound.
std::uint64_t FoldAsciiWord(std::uint64_t word) {
    constexpr std::uint64_t kEachByte = 0x0101010101010101U;
    const std::uint64_t fromA = word + kEachByte * (0x80U - 'A');
    const std::uint64_t behindZ = word + kEachByte * (0x80U - 'Z' - 1U);
    const std::uint64_t isCapital = fromA & ~behindZ & kHighBits;
    return word | isCapital >> 2U;
}

/// How far both texts, from `position` on, are ASCII and the same but for case, in steps of 8
/// bytes.
std::size_t SkipEqualAscii(std::string_view a, std::string_view b, std::size_t position) {
    const std::size_t common = std::min(a.size(), b.size());
    while (common - position >= sizeof(std::uint64_t)) {
        const std::uint64_t wordOfA = WordAt(a, position);
        const std::uint64_t wordOfB = WordAt(b, position);
        if (((wordOfA | wordOfB) & kHighBits) != 0) break;
        if (FoldAsciiWord(wordOfA) != FoldAsciiWord(wordOfB)) break;
        position += sizeof(std::uint64_t);
    }
    return position;
}

}  // namespace

char32_t FoldCase(char32_t character) {
    const std::size_t page = character / kPageSize;
    if (page >= kPageCount) return character;
    return character + static_cast<char32_t>(kPages[kPageNumbers[page]][character % kPageSize]);
}

std::string FoldCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        if (IsAscii(text[position])) {
            folded += AsciiLower(text[position++]);
        } else {
            AppendUtf8(folded, FoldCase(DecodeUtf8(text, position)));
        }
    }
    return folded;
}

std::u32string OtherCases(char32_t folded) {
    std::u32string others;
    for (const FoldRun& run : kFoldRuns) {
        const char32_t other = folded - static_cast<char32_t>(run.distance);
        if (other < run.first || other > run.last) continue;
        if ((other - run.first) % run.step == 0) others += other;
    }
    return others;
}

int CompareFolded(std::string_view a, std::string_view b) {
    // As long as the texts agree their characters have equal lengths, so one position serves both.
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t position = SkipEqualAscii(a, b, 0); position < common;) {
        std::size_t behindInB = position;
        const char32_t characterOfB = NextFolded(b, behindInB);
        const char32_t characterOfA = NextFolded(a, position);
        if (characterOfA != characterOfB) return characterOfA < characterOfB ? -1 : 1;
        if (characterOfA >= 0x80U) position = SkipEqualAscii(a, b, position);
    }
    if (a.size() == b.size()) return 0;
    return a.size() < b.size() ? -1 : 1;
}

bool EqualFolded(std::string_view a, std::string_view b) {
    return a.size() == b.size() && CompareFolded(a, b) == 0;
}

bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

}  // namespace snippetarium
