#include "engine/text_block.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "engine/engine_error.h"
#include "engine/posting_list.h"
#include "engine/segment_builder.h"
#include "tests/engine/random_text.h"

// A segment is built of random texts and read back, block by block, as a search does.

namespace snippetarium {
namespace {

using Blocks = std::map<TextKey, std::string>;
using Lists = std::map<TextKey, std::set<std::uint32_t>>;

constexpr std::uint32_t kBase = 1000;

/// The list of a key by the slow way; throws what the block throws.
std::set<std::uint32_t> ReadList(const Blocks& blocks, TextKey key) {
    const auto behind = blocks.upper_bound(key);
    if (behind == blocks.begin()) throw EngineError(EngineErrorCode::Corrupted, "none");
    const auto& [firstKey, bytes] = *std::prev(behind);
    const TextBlock block(firstKey, bytes);
    if (!block.Covers(key)) throw EngineError(EngineErrorCode::Corrupted, "not covered");
    const auto postings = block.Find(key);
    std::vector<std::uint32_t> ids;
    if (postings) DecodePostings(*postings, kBase, ids);
    EXPECT_TRUE(std::ranges::is_sorted(ids));
    return {ids.begin(), ids.end()};
}

struct Segment {
    Lists lists;
    Blocks blocks;
};

Segment BuildSegment(int rows) {
    RandomText random(
        {"a", "B", "\xC3\xA9", "\xC3\x89", "\xD0\x96", "x1", " ", "\r\n", "\xFF", "sub"}, 3);
    SegmentBuilder builder;
    Segment segment;
    for (int row = 0; row < rows; ++row) {
        const auto id = static_cast<std::uint32_t>(kBase + 3 * row + random.Below(3));
        for (unsigned column = 0; column < kMostTextColumns; column += 7) {
            const std::string text = random.Pieces(random.Below(40));
            builder.Add(id, column, text);
            ForEachTrigram(text, [&](Trigram trigram) {
                segment.lists[TextKeyOf(column, trigram)].insert(id);
            });
        }
    }
    builder.Write(kBase, [&](TextKey firstKey, std::string_view block) {
        segment.blocks.emplace(firstKey, block);
    });
    return segment;
}

TEST(TextBlock, GivesBackEveryListAndKnowsWhichKeysHaveNone) {
    for (const int rows : {0, 1, 50, 20'000}) {
        const Segment segment = BuildSegment(rows);
        for (const auto& [key, ids] : segment.lists)
            ASSERT_EQ(ReadList(segment.blocks, key), ids) << key;
        for (TextKey key = 0; key < kEndOfTextKeys; key += 9973) {
            if (segment.lists.contains(key)) continue;
            ASSERT_TRUE(ReadList(segment.blocks, key).empty()) << key;
        }
        for (const TextKey key : {TextKey{0}, kEndOfTextKeys - 1})
            EXPECT_NO_THROW(ReadList(segment.blocks, key));
        // Whatever is not a page's worth of one list fits into a page.
        for (const auto& [firstKey, block] : segment.blocks) {
            int lists = 0;
            TextBlock(firstKey, block).ForEach([&](TextKey, std::string_view) { ++lists; });
            EXPECT_TRUE(block.size() <= 4050 || lists == 1) << block.size();
        }
    }
}

TEST(TextBlock, NeverTakesDamageForAKeyWithoutAList) {
    const Segment whole = BuildSegment(300);
    ASSERT_GT(whole.blocks.size(), 2U);
    const auto isNoticed = [&](const Blocks& blocks, TextKey key) {
        try {
            ReadList(blocks, key);
        } catch (const EngineError& error) {
            return error.Code() == EngineErrorCode::Corrupted;
        }
        return false;
    };
    for (const auto& [firstKey, block] : whole.blocks) {
        Blocks damaged = whole.blocks;
        damaged.erase(firstKey);
        EXPECT_TRUE(isNoticed(damaged, firstKey));
        for (std::size_t i = 0; i < block.size(); i += 97) {
            damaged = whole.blocks;
            damaged[firstKey][i] = static_cast<char>(block[i] ^ 0x10);
            EXPECT_TRUE(isNoticed(damaged, firstKey)) << i;
            damaged[firstKey].resize(i);
            EXPECT_TRUE(isNoticed(damaged, firstKey)) << "cut at " << i;
        }
        damaged = whole.blocks;
        damaged[firstKey] = whole.blocks.rbegin()->second;
        if (firstKey != whole.blocks.rbegin()->first) {
            EXPECT_TRUE(isNoticed(damaged, firstKey));
        }
    }
}

TEST(PostingList, BecomesASetOfWhichThatIsKeptWhatIsCommonToBoth) {
    RandomText random({""}, 5);
    for (int round = 0; round < 300; ++round) {
        const auto base = static_cast<std::uint32_t>(random.Below(5'000));
        std::vector<std::uint32_t> lists[2];
        IdSet sets[2];
        for (std::size_t i = 0; i < 2; ++i) {
            std::uint32_t id = base;
            for (std::size_t count = random.Below(60); count > 0; --count) {
                id += static_cast<std::uint32_t>(random.Below(round % 3 == 0 ? 100'000 : 4)) + 1;
                lists[i].push_back(id);
            }
            std::vector<std::uint32_t> distances = lists[i];
            for (std::uint32_t& distance : distances)
                distance -= base;
            AddPostings(EncodePostings(distances), base, sets[i]);
            EXPECT_EQ(sets[i].Count(), lists[i].size());
        }
        std::vector<std::uint32_t> common;
        std::ranges::set_intersection(lists[0], lists[1], std::back_inserter(common));
        sets[0].KeepCommon(sets[1]);
        std::vector<std::uint32_t> kept;
        sets[0].ForEach([&](std::int64_t id) { kept.push_back(static_cast<std::uint32_t>(id)); });
        EXPECT_EQ(kept, common);
    }
}

}  // namespace
}  // namespace snippetarium
