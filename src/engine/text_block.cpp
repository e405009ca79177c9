#include "engine/text_block.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "engine/engine_error.h"
#include "engine/posting_list.h"

namespace snippetarium {

namespace {

constexpr std::size_t kChecksumSize = sizeof(std::uint32_t);
/// Goes into the checksums, so that blocks of another layout count as damaged: change it with it.
constexpr std::uint64_t kLayout = 1;

/// Eight bytes at a time, since it is taken of every block that is read.
std::uint32_t Checksum(TextKey firstKey, std::string_view content) {
    constexpr std::uint64_t kOddNumber = 0x9E3779B97F4A7C15U;
    std::uint64_t sum = kLayout << 32U | firstKey;
    const auto mix = [&sum](std::uint64_t word) {
        sum = (sum ^ word) * kOddNumber;
        sum ^= sum >> 29U;
    };
    mix(content.size());
    while (content.size() >= sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, content.data(), sizeof word);
        mix(word);
        content.remove_prefix(sizeof word);
    }
    std::uint64_t rest = 0;
    if (!content.empty()) std::memcpy(&rest, content.data(), content.size());
    mix(rest);
    return static_cast<std::uint32_t>(sum >> 32U);
}

}  // namespace

TextBlockWriter::TextBlockWriter(Sink sink, TextKey firstKey)
    : sink_(std::move(sink)), firstKey_(firstKey), previousKey_(firstKey) {}

void TextBlockWriter::Add(TextKey key, std::string_view postings) {
    constexpr std::size_t kMostForNumbers = 10;
    const bool fits = lists_.size() + postings.size() + kMostForNumbers <= kFullTextBlock;
    if (!lists_.empty() && !fits) Finish(key);
    AppendNumber(lists_, key - previousKey_);
    AppendNumber(lists_, static_cast<std::uint32_t>(postings.size()));
    lists_.append(postings);
    previousKey_ = key;
}

void TextBlockWriter::Finish(TextKey end) {
    std::string block(kChecksumSize, '\0');
    AppendNumber(block, end - firstKey_);
    block.append(lists_);
    const std::uint32_t checksum =
        Checksum(firstKey_, std::string_view(block).substr(kChecksumSize));
    std::memcpy(block.data(), &checksum, kChecksumSize);
    sink_(firstKey_, block);
    firstKey_ = previousKey_ = end;
    lists_.clear();
}

TextBlock::TextBlock(TextKey firstKey, std::string_view bytes) : firstKey_(firstKey) {
    std::uint32_t checksum = 0;
    if (bytes.size() >= kChecksumSize) std::memcpy(&checksum, bytes.data(), kChecksumSize);
    bytes.remove_prefix(std::min(bytes.size(), kChecksumSize));
    if (bytes.empty() || checksum != Checksum(firstKey, bytes)) {
        throw EngineError(EngineErrorCode::Corrupted, "A block of the text index is damaged.");
    }
    NumberReader reader(bytes);
    end_ = firstKey + reader.Next();
    lists_ = reader.Rest();
}

std::optional<std::string_view> TextBlock::Find(TextKey key) const {
    NumberReader reader(lists_);
    for (TextKey found = firstKey_; !reader.IsAtEnd();) {
        found += reader.Next();
        const std::string_view postings = reader.Take(reader.Next());
        if (found == key) return postings;
        if (found > key) break;
    }
    return std::nullopt;
}

void TextBlock::ForEach(
    const std::function<void(TextKey key, std::string_view postings)>& visit) const {
    NumberReader reader(lists_);
    for (TextKey key = firstKey_; !reader.IsAtEnd();) {
        key += reader.Next();
        visit(key, reader.Take(reader.Next()));
    }
}

}  // namespace snippetarium
