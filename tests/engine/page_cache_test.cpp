#include "engine/page_cache.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstring>
#include <map>
#include <random>

#include "engine/sqlite_handle.h"

namespace snippetarium::test {
namespace {

constexpr int kPageSize = 512;
constexpr int kExtraSize = 64;
constexpr unsigned kHighest = 60;
/// What balancing a tree uses for a page that trades places: above every page of the file.
constexpr unsigned kAside = 5'000;

/// The layer's cache of one file beside a list of what must be in it. A page's first byte is its
/// mark, which it keeps under every number.
class CacheBesideList {
  public:
    CacheBesideList()
        : library_(OpenDatabase(":memory:", OpenFlag::Create)),
          cache_(Layer().xCreate(kPageSize, kExtraSize, 0)) {}
    ~CacheBesideList() { Layer().xDestroy(cache_); }
    CacheBesideList(const CacheBesideList&) = delete;
    CacheBesideList& operator=(const CacheBesideList&) = delete;

    bool Has(unsigned number) const { return marks_.contains(number); }

    void Add(unsigned number) {
        sqlite3_pcache_page* const page = Layer().xFetch(cache_, number, 2);
        ASSERT_NE(page, nullptr);
        marks_.try_emplace(number, ++lastMark_);
        std::memcpy(page->pBuf, &marks_[number], sizeof(lastMark_));
        Layer().xUnpin(cache_, page, 0);
    }
    void Renumber(unsigned from, unsigned to) {
        sqlite3_pcache_page* const page = Layer().xFetch(cache_, from, 0);
        ASSERT_NE(page, nullptr);
        Layer().xRekey(cache_, page, from, to);
        Layer().xUnpin(cache_, page, 0);
        marks_[to] = marks_[from];
        marks_.erase(from);
    }
    /// Two pages trade places by way of a number above all.
    void Trade(unsigned one, unsigned other) {
        Renumber(one, kAside);
        Renumber(other, one);
        Renumber(kAside, other);
    }
    void Drop(unsigned number) {
        Layer().xUnpin(cache_, Layer().xFetch(cache_, number, 0), 1);
        marks_.erase(number);
    }
    void Truncate(unsigned first) {
        Layer().xTruncate(cache_, first);
        marks_.erase(marks_.lower_bound(first), marks_.end());
    }

    void Compare() const {
        ASSERT_EQ(Layer().xPagecount(cache_), static_cast<int>(marks_.size()));
        for (const auto& [number, mark] : marks_) {
            sqlite3_pcache_page* const page = Layer().xFetch(cache_, number, 0);
            ASSERT_NE(page, nullptr) << number;
            EXPECT_EQ(std::memcmp(page->pBuf, &mark, sizeof(mark)), 0) << number;
            Layer().xUnpin(cache_, page, 0);
        }
    }

  private:
    static const sqlite3_pcache_methods2& Layer() { return PageCacheLayer(); }

    DatabaseHandle library_;  // in use as long as its cache is
    sqlite3_pcache* cache_;
    std::map<unsigned, int> marks_;
    int lastMark_ = 0;
};

TEST(PageCacheLayerTest, ForgetsExactlyThePagesBehindTheEndOfTheFile) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
        const auto number = [&] { return 1 + below(kHighest); };
        CacheBesideList cache;
        for (int step = 0; step < 400; ++step) {
            const unsigned one = number();
            const unsigned other = number();
            switch (below(6)) {
                case 0:
                case 1:
                    if (!cache.Has(one)) cache.Add(one);
                    break;
                case 2:
                    if (one != other && cache.Has(one) && cache.Has(other)) cache.Trade(one, other);
                    break;
                case 3:  // a page may also stay above the others, or be thrown away there
                    if (!cache.Has(one) || cache.Has(kAside + other)) break;
                    cache.Renumber(one, kAside + other);
                    if (below(2) == 0) cache.Drop(kAside + other);
                    break;
                case 4:
                    if (cache.Has(one)) cache.Drop(one);
                    break;
                default:
                    cache.Truncate(below(8) == 0 ? kAside + other : one + kHighest / 2);
            }
        }
        ASSERT_NO_FATAL_FAILURE(cache.Compare()) << "seed " << seed;
        cache.Truncate(0);
        ASSERT_NO_FATAL_FAILURE(cache.Compare()) << "seed " << seed;
    }
}

}  // namespace
}  // namespace snippetarium::test
