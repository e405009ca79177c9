#include "engine/segment_builder.h"

#include <array>

#include "engine/posting_list.h"

namespace snippetarium {

namespace {

constexpr unsigned kIDBits = 32;

TextKey KeyOf(std::uint64_t posting) {
    return static_cast<TextKey>(posting >> kIDBits);
}

}  // namespace

void SegmentBuilder::Add(std::uint32_t id, unsigned column, std::string_view text) {
    for (const Trigram trigram : distinct_.Of(text))
        postings_.push_back(Posting{TextKeyOf(column, trigram)} << kIDBits | id);
    textSize_ += text.size();
}

/// By digits, the lowest first. Each pass keeps the order of what is equal to it, so that the IDs
/// of a key stay ascending.
void SegmentBuilder::SortByKey() {
    constexpr unsigned kKeyBits = kTrigramBits + 3;
    constexpr unsigned kDigitBits = 9;
    constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
    spare_.resize(postings_.size());
    for (unsigned shift = kIDBits; shift < kIDBits + kKeyBits; shift += kDigitBits) {
        const auto digit = [shift](Posting posting) { return posting >> shift & (kDigits - 1); };
        std::array<std::size_t, kDigits> places{};
        for (const Posting posting : postings_)
            ++places[digit(posting)];
        std::size_t place = 0;
        for (std::size_t& first : places) {
            const std::size_t count = first;
            first = place;
            place += count;
        }
        for (const Posting posting : postings_)
            spare_[places[digit(posting)]++] = posting;
        postings_.swap(spare_);
    }
}

void SegmentBuilder::Write(std::uint32_t base, const TextBlockWriter::Sink& sink) {
    SortByKey();
    TextBlockWriter writer(sink);
    std::vector<std::uint32_t> ids;
    for (std::size_t i = 0; i < postings_.size();) {
        const TextKey key = KeyOf(postings_[i]);
        ids.clear();
        for (; i < postings_.size() && KeyOf(postings_[i]) == key; ++i)
            ids.push_back(static_cast<std::uint32_t>(postings_[i]) - base);
        writer.Add(key, EncodePostings(ids));
    }
    writer.Finish();
    postings_.clear();
    textSize_ = 0;
}

}  // namespace snippetarium
