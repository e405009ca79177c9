#include "engine/substring_search.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/case_fold.h"
#include "tests/engine/random_text.h"

namespace snippetarium {
namespace {

using namespace std::string_literals;

/// The meaning of Find, place by place and character by character.
std::size_t FindSlowly(std::string_view haystack, std::string_view needle, std::size_t from) {
    std::u32string wanted;
    for (std::size_t i = 0; i < needle.size();) {
        wanted += NextFolded(needle, i);
    }
    for (std::size_t start = from;;) {
        std::u32string found;
        for (std::size_t i = start; i < haystack.size() && found.size() < wanted.size();) {
            found += NextFolded(haystack, i);
        }
        if (found == wanted) return start;
        if (start >= haystack.size()) return FoldedNeedle::kNotFound;
        NextFolded(haystack, start);
    }
}

std::vector<ByteScan> AvailableScans() {
    std::vector<ByteScan> scans;
    for (const ByteScan scan : {ByteScan::Plain, ByteScan::Sse2, ByteScan::Avx2}) {
        if (scan <= FastestByteScan()) scans.push_back(scan);
    }
    return scans;
}

/// One page of memory between two that end the program when they are touched.
class FencedPage {
  public:
    FencedPage() : size_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
        void* pages = mmap(nullptr, 3 * size_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (pages == MAP_FAILED) throw std::runtime_error("mmap failed");
        pages_ = static_cast<char*>(pages);
        if (mprotect(pages_ + size_, size_, PROT_READ | PROT_WRITE) != 0) {
            throw std::runtime_error("mprotect failed");
        }
    }
    ~FencedPage() { munmap(pages_, 3 * size_); }
    FencedPage(const FencedPage&) = delete;
    FencedPage& operator=(const FencedPage&) = delete;

    std::string_view PutAtStart(std::string_view text) { return PutAt(0, text); }
    std::string_view PutAtEnd(std::string_view text) { return PutAt(size_ - text.size(), text); }

  private:
    std::string_view PutAt(std::size_t offset, std::string_view text) {
        char* place = pages_ + size_ + offset;
        text.copy(place, text.size());
        return {place, text.size()};
    }

    std::size_t size_;
    char* pages_ = nullptr;
};

class SubstringSearch : public testing::TestWithParam<ByteScan> {};

std::string ScanName(const testing::TestParamInfo<ByteScan>& scan) {
    constexpr const char* kNames[] = {"Plain", "Sse2", "Avx2"};
    return kNames[static_cast<int>(scan.param)];
}

INSTANTIATE_TEST_SUITE_P(Scans, SubstringSearch, testing::ValuesIn(AvailableScans()), ScanName);

TEST_P(SubstringSearch, FindsTheFirstPlaceWithoutRegardToCase) {
    const std::string padding(100, '.');
    const std::size_t none = FoldedNeedle::kNotFound;
    const struct {
        std::string haystack;
        std::string needle;
        std::size_t position;
    } cases[] = {
        {"", "", 0},
        {"abc", "", 0},
        {"", "a", none},
        {"ab", "abc", none},
        {"Dim x", "X", 4},
        {"Option Explicit", "EXPLICIT", 7},
        {"@[`{", "`", 2},
        {"@[`{", "{", 3},
        {padding + "GetName(" + padding + "getname(", "getName(", 100},
        {padding + "Straße ÄRGER", "ärger", 108},
        {padding + "СТРОКА", "строка", 100},
        {padding + "ΣΊΣΥΦΟΣ", "σίσυφος", 100},
        {padding + "漢字", "字", 103},
        {padding + "\U00010400", "\U00010428", 100},
        // Letters of different lengths are no pair.
        {padding + "\u212A \u017F", "k", none},
        {padding + "\u212A \u017F", "s", none},
        {padding + "k s", "\u212A", none},
        // Malformed bytes are themselves, and no part of a character.
        {padding + "é\xA9", "\xA9", 102},
        {padding + "é\xC3", "\xC3", 102},
        {padding + "é", "\xC3", none},
        {padding + "É", "\x89", none},
        {padding + "x\xC3\xC3\xA9", "X\xC3É", 100},
        {"a\0b"s, "\0B"s, 1},
    };
    for (const auto& [haystack, needle, position] : cases) {
        EXPECT_EQ(FoldedNeedle(needle, GetParam()).Find(haystack), position)
            << haystack << " / " << needle;
        EXPECT_EQ(FindSlowly(haystack, needle, 0), position) << haystack << " / " << needle;
    }
}

TEST_P(SubstringSearch, FindsWhatTheSlowSearchFindsAndReadsNothingOutsideTheHaystack) {
    FencedPage page;
    RandomText random({"a", "A", "b", "B", "é", "É", "Ж", "ж", "漢", "\xC3", "\xA9"}, 1);
    for (std::size_t length = 0; length <= 200; ++length) {
        for (int round = 0; round < 40; ++round) {
            const std::string text = random.Pieces(length).substr(0, length);
            const std::string needle = random.Pieces(random.Below(5));
            const FoldedNeedle compiled(needle, GetParam());
            const std::size_t expected = FindSlowly(text, needle, 0);
            ASSERT_EQ(compiled.Find(page.PutAtEnd(text)), expected) << text << " / " << needle;
            ASSERT_EQ(compiled.Find(page.PutAtStart(text)), expected) << text << " / " << needle;
        }
    }
}

TEST_P(SubstringSearch, FindsEveryPlaceFromEveryStart) {
    RandomText random({"a", "b", "é"}, 2);
    for (int round = 0; round < 200; ++round) {
        const std::string text = random.Pieces(100);
        const std::string needle = random.Pieces(1 + random.Below(6));
        const FoldedNeedle compiled(needle, GetParam());
        for (std::size_t from = 0;; NextFolded(text, from)) {
            ASSERT_EQ(compiled.Find(text, from), FindSlowly(text, needle, from));
            if (from == text.size()) break;
        }
    }
}

TEST_P(SubstringSearch, FindsTheNeedleAtEveryDistanceFromTheEnd) {
    FencedPage page;
    for (const std::string needle : {"q", "Zq", "procedure", "ЖУК"}) {
        const FoldedNeedle compiled(FoldCase(needle), GetParam());
        for (std::size_t before = 0; before < 80; ++before) {
            for (std::size_t behind = 0; behind < 80; ++behind) {
                const std::string text =
                    std::string(before, '-') + needle + std::string(behind, '-');
                ASSERT_EQ(compiled.Find(page.PutAtEnd(text)), before) << behind;
            }
        }
    }
}

TEST_P(SubstringSearch, FindsNeedlesOfStrayBytesThatRepeatThemselves) {
    RandomText random({"\xA9", "a"}, 4);
    for (int round = 0; round < 2000; ++round) {
        const std::string text = random.Pieces(60);
        std::string needle = "\xA9";
        needle += random.Pieces(random.Below(8));
        ASSERT_EQ(FoldedNeedle(needle, GetParam()).Find(text), FindSlowly(text, needle, 0));
    }
}

// A search that compares afresh at each place would take 10 to the 10th steps here.
TEST_P(SubstringSearch, TakesLinearTimeOnTextsThatRepeatThemselves) {
    const std::size_t count = 200'000;
    const struct {
        std::string haystack;
        std::string needle;
        std::size_t position;
    } cases[] = {
        {std::string(count, 'a'), std::string(count / 2, 'A') + "b", FoldedNeedle::kNotFound},
        {std::string(count, 'a') + "b", std::string(count / 2, 'A') + "B", count / 2},
        {std::string(count, 'a') + "ä", std::string(count / 2, 'A') + "Ä", count / 2},
        {std::string(count, 'a'), "b" + std::string(count / 2, 'A'), FoldedNeedle::kNotFound},
    };
    for (const auto& [haystack, needle, position] : cases) {
        EXPECT_EQ(FoldedNeedle(needle, GetParam()).Find(haystack), position);
    }
}

TEST_P(SubstringSearch, LongNeedlesThatRepeatThemselvesAreFoundWhereTheyStand) {
    RandomText random({"a", "A"}, 3);
    for (int round = 0; round < 300; ++round) {
        std::string haystack = random.Pieces(5000);
        for (int spots = 0; spots < 4; ++spots)
            haystack[random.Below(haystack.size())] = 'b';
        const std::string needle =
            random.Pieces(random.Below(600)) + "b" + random.Pieces(random.Below(600));
        ASSERT_EQ(FoldedNeedle(needle, GetParam()).Find(haystack),
                  FoldCase(haystack).find(FoldCase(needle)));
    }
}

}  // namespace
}  // namespace snippetarium
