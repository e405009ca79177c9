#include "engine/anchor_scan.h"

#include <algorithm>
#include <bit>
#include <string>
#include <vector>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

#include "support/case_fold.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

using Anchor = AnchorScanner::Anchor;

constexpr std::size_t kBlockSize = 32;

/// How seldom a byte of a folded needle occurs in source text: 0 for the most frequent.
std::size_t Rarity(char byte) {
    // Counted over 130 MB of programs in several languages.
    constexpr std::string_view kByFrequency =
        " _etsinarolc\ndpufvm)(,bgh*x1k2y06;=/#834.w5-'9z:\"\\\tq";
    const auto code = static_cast<unsigned char>(byte);
    // In a text of another script each character has one of a few lead bytes; the bytes behind them
    // vary as letters do.
    if (code >= 0xC0U) return 5;
    if (code >= 0x80U) return kByFrequency.size() / 2;
    return std::min(kByFrequency.find(byte), kByFrequency.size());
}

/// Of every byte of the needle, what is the same in all cases of its character.
std::vector<Anchor> AnchorsOf(std::string_view needle) {
    std::vector<Anchor> anchors;
    for (std::size_t position = 0; position < needle.size();) {
        const std::size_t start = position;
        const std::u32string others = OtherCases(DecodeUtf8(needle, position));
        for (std::size_t offset = start; offset < position; ++offset) {
            unsigned differingBits = 0;
            for (const char32_t other : others) {
                std::string bytes;
                AppendUtf8(bytes, other);
                differingBits |= static_cast<unsigned char>(bytes[offset - start] ^ needle[offset]);
            }
            const auto mask = static_cast<std::uint8_t>(~differingBits);
            const auto value = static_cast<std::uint8_t>(needle[offset] & mask);
            anchors.push_back({offset, mask, value});
        }
    }
    return anchors;
}

#if defined(__x86_64__)

std::uint32_t HalfBlockHitsSse2(const char* block, const Anchor& first, const Anchor& second) {
    const auto fit = [block](const Anchor& anchor) {
        const auto* place = reinterpret_cast<const __m128i*>(block + anchor.offset);
        const __m128i mask = _mm_set1_epi8(static_cast<char>(anchor.mask));
        const __m128i value = _mm_set1_epi8(static_cast<char>(anchor.value));
        return _mm_cmpeq_epi8(_mm_and_si128(_mm_loadu_si128(place), mask), value);
    };
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_and_si128(fit(first), fit(second))));
}

std::uint32_t BlockHitsSse2(const char* block, const Anchor& first, const Anchor& second) {
    constexpr std::size_t kHalf = kBlockSize / 2;
    return HalfBlockHitsSse2(block, first, second) | HalfBlockHitsSse2(block + kHalf, first, second)
                                                         << kHalf;
}

// A lambda does not inherit the target of its function, hence the spelling out.
[[gnu::target("avx2")]] std::uint32_t BlockHitsAvx2(const char* block, const Anchor& first,
                                                    const Anchor& second) {
    const auto* firstPlace = reinterpret_cast<const __m256i*>(block + first.offset);
    const auto* secondPlace = reinterpret_cast<const __m256i*>(block + second.offset);
    const __m256i firstMask = _mm256_set1_epi8(static_cast<char>(first.mask));
    const __m256i firstValue = _mm256_set1_epi8(static_cast<char>(first.value));
    const __m256i secondMask = _mm256_set1_epi8(static_cast<char>(second.mask));
    const __m256i secondValue = _mm256_set1_epi8(static_cast<char>(second.value));
    const __m256i firstFits =
        _mm256_cmpeq_epi8(_mm256_and_si256(_mm256_loadu_si256(firstPlace), firstMask), firstValue);
    const __m256i secondFits = _mm256_cmpeq_epi8(
        _mm256_and_si256(_mm256_loadu_si256(secondPlace), secondMask), secondValue);
    return static_cast<std::uint32_t>(
        _mm256_movemask_epi8(_mm256_and_si256(firstFits, secondFits)));
}

#endif

}  // namespace

ByteScan FastestByteScan() {
#if defined(__x86_64__)
    return __builtin_cpu_supports("avx2") ? ByteScan::Avx2 : ByteScan::Sse2;
#else
    return ByteScan::Plain;
#endif
}

AnchorScanner::AnchorScanner(std::string_view foldedNeedle, ByteScan scan)
    : needleSize_(foldedNeedle.size()), blockHits_(ChooseBlockHits(scan)) {
    std::vector<Anchor> anchors = AnchorsOf(foldedNeedle);
    const auto rarestFirst = [foldedNeedle](const Anchor& a, const Anchor& b) {
        return Rarity(foldedNeedle[a.offset]) > Rarity(foldedNeedle[b.offset]);
    };
    const std::size_t wanted = std::min<std::size_t>(2, anchors.size());
    std::partial_sort(anchors.begin(), anchors.begin() + static_cast<std::ptrdiff_t>(wanted),
                      anchors.end(), rarestFirst);
    first_ = anchors.front();
    second_ = anchors[wanted - 1];
}

AnchorScanner::BlockHits AnchorScanner::ChooseBlockHits(ByteScan scan) {
#if defined(__x86_64__)
    if (scan == ByteScan::Avx2) return BlockHitsAvx2;
    if (scan == ByteScan::Sse2) return BlockHitsSse2;
#else
    (void)scan;
#endif
    return nullptr;
}

std::size_t AnchorScanner::Next(std::string_view haystack, std::size_t from) const {
    if (haystack.size() < needleSize_) return kNone;
    const std::size_t last = haystack.size() - needleSize_;
    const std::size_t reach = std::max(first_.offset, second_.offset) + kBlockSize;
    if (blockHits_ == nullptr || haystack.size() < reach) {
        return NextByteByByte(haystack, from, last);
    }
    const std::size_t lastBlock = haystack.size() - reach;
    for (std::size_t place = from; place <= last; place += kBlockSize) {
        // The last block ends with the haystack; of its places some have been looked at before.
        const std::size_t block = std::min(place, lastBlock);
        const std::uint32_t hits =
            blockHits_(haystack.data() + block, first_, second_) >> (place - block);
        if (hits == 0) continue;
        const std::size_t hit = place + static_cast<std::size_t>(std::countr_zero(hits));
        return hit <= last ? hit : kNone;
    }
    return kNone;
}

std::size_t AnchorScanner::NextByteByByte(std::string_view haystack, std::size_t from,
                                          std::size_t last) const {
    for (std::size_t place = from; place <= last; ++place) {
        if (first_.Fits(haystack[place + first_.offset]) &&
            second_.Fits(haystack[place + second_.offset])) {
            return place;
        }
    }
    return kNone;
}

}  // namespace snippetarium
