#include "navigator/find_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "navigator/utf16_map.h"
#include "support/case_fold.h"

namespace snippetarium::test {
namespace {

/// The matches by trying every place.
std::vector<TextRange> SlowMatches(const std::string& page, const FindRequest& request) {
    const auto isWord = [&](std::size_t at) {
        return at < page.size() && (page[at] == '_' || page[at] == 'a' || page[at] == 'A');
    };
    std::vector<TextRange> matches;
    const std::size_t length = request.text.size();
    for (std::size_t at = 0; length > 0 && at + length <= page.size(); ++at) {
        const std::string part = page.substr(at, length);
        const bool isEqual =
            request.matchCase ? part == request.text : EqualFolded(part, request.text);
        if (!isEqual) continue;
        if (request.wholeWord && ((at > 0 && isWord(at - 1)) || isWord(at + length))) continue;
        matches.push_back({at, at + length});
        at += length - 1;
    }
    return matches;
}

TEST(FindText, FindsWhatASlowSearchFinds) {
    std::mt19937 random(1);
    const auto text = [&](std::size_t most) {
        std::string letters;
        for (std::size_t i = random() % (most + 1); i > 0; --i)
            letters += "aA_ ."[random() % 5];
        return letters;
    };
    for (int round = 0; round < 5'000; ++round) {
        const std::string page = text(12);
        const FindRequest request{
            .text = text(2), .matchCase = random() % 2 == 0, .wholeWord = random() % 2 == 0};
        const std::vector<TextRange> matches = SlowMatches(page, request);
        SCOPED_TRACE("'" + request.text + "' in '" + page + "'");
        ASSERT_EQ(FindAll(page, request), matches);
        const std::optional<FoundText> first = FindNext(page, request, 0);
        ASSERT_EQ(first.has_value(), !matches.empty());
        if (matches.empty()) continue;
        EXPECT_EQ(*first, (FoundText{matches.front(), false}));
        EXPECT_EQ(FindNext(page, request, matches.back().begin + 1).value().hasWrapped,
                  FindAll(page.substr(matches.back().begin + 1), request).empty())
            << "behind the last match";
    }
}

TEST(FindText, KnowsLettersOfEveryLanguage) {
    EXPECT_EQ(FindAll("Größe GRÖSSE gRÖßE", {.text = "größe"}).size(), 2U);
    EXPECT_TRUE(FindAll("Größe", {.text = "Gr", .wholeWord = true}).empty());
}

/// Every text of up to four characters of one to four bytes, place by place.
TEST(Utf16Map, TurnsEveryPlaceAndBack) {
    const std::string characters[] = {"a", "é", "€", "😀"};
    for (int number = 0; number < 5 * 5 * 5 * 5; ++number) {
        std::string text = number % 2 == 0 ? std::string(255, 'x') : std::string();
        for (int rest = number; rest > 0; rest /= 5)
            if (rest % 5 > 0) text += characters[rest % 5 - 1];
        const Utf16Map map(text);
        std::size_t unit = 0;
        for (std::size_t byte = 0; byte < text.size();) {
            const auto lead = static_cast<unsigned char>(text[byte]);
            const std::size_t bytes = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
            const std::size_t units = bytes == 4 ? 2 : 1;
            for (std::size_t i = 0; i < bytes; ++i)
                ASSERT_EQ(map.ToUtf16(byte + i), unit) << text;
            for (std::size_t i = 0; i < units; ++i)
                ASSERT_EQ(map.ToByte(unit + i), byte) << text;
            byte += bytes;
            unit += units;
        }
        EXPECT_EQ(map.ToUtf16(text.size() + 5), unit);
        EXPECT_EQ(map.ToByte(unit + 5), text.size());
    }
}

}  // namespace
}  // namespace snippetarium::test
