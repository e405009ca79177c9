#include "engine/page_cache.h"

#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <new>

namespace snippetarium {

namespace {

/// What the library would use by itself.
const sqlite3_pcache_methods2& LibraryCache() {
    static const sqlite3_pcache_methods2 methods = [] {
        sqlite3_pcache_methods2 found = {};
        sqlite3_config(SQLITE_CONFIG_GETPCACHE2, &found);
        return found;
    }();
    return methods;
}

/// The pages of one file, in the library's own cache, and the numbers that they may have.
class PageCache {
  public:
    explicit PageCache(sqlite3_pcache* pages) : pages_(pages) {}
    ~PageCache() { LibraryCache().xDestroy(pages_); }
    PageCache(const PageCache&) = delete;
    PageCache& operator=(const PageCache&) = delete;

    static PageCache& Of(sqlite3_pcache* cache) { return *reinterpret_cast<PageCache*>(cache); }
    sqlite3_pcache* Handle() { return reinterpret_cast<sqlite3_pcache*>(this); }
    sqlite3_pcache* Pages() { return pages_; }

    sqlite3_pcache_page* Fetch(unsigned number, int create) {
        sqlite3_pcache_page* const page = LibraryCache().xFetch(pages_, number, create);
        if (page != nullptr && number != aside_) highest_ = std::max(highest_, number);
        return page;
    }

    void Renumber(sqlite3_pcache_page* page, unsigned from, unsigned to) {
        LibraryCache().xRekey(pages_, page, from, to);
        if (from == aside_) aside_ = 0;
        if (to <= highest_) return;
        if (aside_ == 0) {
            aside_ = to;
        } else {
            highest_ = to;
        }
    }

    /// Forgets the pages from this number on.
    void Truncate(unsigned first) {
        if (first > std::max(highest_, aside_)) return;
        LibraryCache().xTruncate(pages_, first);
        if (aside_ >= first) aside_ = 0;
        if (highest_ >= first) highest_ = first == 0 ? 0 : first - 1;
    }

  private:
    sqlite3_pcache* pages_;
    unsigned highest_ = 0;  // no page has a higher number, but for the one put aside
    unsigned aside_ = 0;    // the number above of a page that soon gets another; pages begin at 1
};

sqlite3_pcache* Create(int pageSize, int extraSize, int isPurgeable) {
    sqlite3_pcache* const pages = LibraryCache().xCreate(pageSize, extraSize, isPurgeable);
    if (pages == nullptr) return nullptr;
    auto* const cache = new (std::nothrow) PageCache(pages);
    if (cache == nullptr) {
        LibraryCache().xDestroy(pages);
        return nullptr;
    }
    return cache->Handle();
}

void Destroy(sqlite3_pcache* cache) {
    const std::unique_ptr<PageCache> gone(&PageCache::Of(cache));
}

sqlite3_pcache_page* Fetch(sqlite3_pcache* cache, unsigned number, int create) {
    return PageCache::Of(cache).Fetch(number, create);
}

void Renumber(sqlite3_pcache* cache, sqlite3_pcache_page* page, unsigned from, unsigned to) {
    PageCache::Of(cache).Renumber(page, from, to);
}

void Truncate(sqlite3_pcache* cache, unsigned first) {
    PageCache::Of(cache).Truncate(first);
}

/// A method of the library's cache that needs no numbers.
template <auto Method, typename... Arguments>
auto Forward(sqlite3_pcache* cache, Arguments... arguments) {
    return (LibraryCache().*Method)(PageCache::Of(cache).Pages(), arguments...);
}

}  // namespace

const sqlite3_pcache_methods2& PageCacheLayer() {
    static const sqlite3_pcache_methods2 layer = [] {
        using Methods = sqlite3_pcache_methods2;
        Methods methods = LibraryCache();
        methods.xCreate = Create;
        methods.xCachesize = Forward<&Methods::xCachesize, int>;
        methods.xPagecount = Forward<&Methods::xPagecount>;
        methods.xFetch = Fetch;
        methods.xUnpin = Forward<&Methods::xUnpin, sqlite3_pcache_page*, int>;
        methods.xRekey = Renumber;
        methods.xTruncate = Truncate;
        methods.xDestroy = Destroy;
        methods.xShrink = Forward<&Methods::xShrink>;
        return methods;
    }();
    return layer;
}

void InstallPageCacheLayer() {
    // A refusal means that somebody uses the library already, and costs nothing but time.
    [[maybe_unused]] static const int result =
        sqlite3_config(SQLITE_CONFIG_PCACHE2, &PageCacheLayer());
}

}  // namespace snippetarium
