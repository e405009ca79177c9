#include <algorithm>
#include <utility>

#include "navigator/highlight_engine.h"
#include "navigator/highlight_spans.h"

namespace snippetarium {

// A page is highlighted in layers. Each has a text of the page's length, in which everything that
// belongs to other layers is blanked out, so that its places are those of the page, and the ranges
// in which it counts. Where ranges lie in each other, the later layer is the inner one.

namespace {

/// A part of a page in one language.
struct Layer {
    /// Empty for one whose spans are known beforehand.
    HighlightEngine engine;
    /// In order; of the markup, the whole page.
    std::vector<TextRange> ranges;
    std::vector<HighlightSpan> spans = {};
};

bool IsBefore(const TextRange& a, const TextRange& b) {
    return a.end <= b.begin;
}

/// The spans without what lies in the holes. Both are in order.
std::vector<HighlightSpan> CutHoles(const std::vector<HighlightSpan>& spans,
                                    const std::vector<TextRange>& holes) {
    std::vector<HighlightSpan> rest;
    for (const auto& [range, kind] : spans) {
        std::size_t begin = range.begin;
        for (auto hole = std::ranges::lower_bound(holes, range, IsBefore);
             hole != holes.end() && hole->begin < range.end; ++hole) {
            if (begin < hole->begin) rest.push_back({{begin, hole->begin}, kind});
            begin = std::max(begin, hole->end);
        }
        if (begin < range.end) rest.push_back({{begin, range.end}, kind});
    }
    return rest;
}

/// The parts of the spans that lie in the ranges.
std::vector<HighlightSpan> ClipTo(const std::vector<HighlightSpan>& spans,
                                  const std::vector<TextRange>& ranges) {
    std::vector<HighlightSpan> parts;
    for (const auto& [range, kind] : spans) {
        for (auto part = std::ranges::lower_bound(ranges, range, IsBefore);
             part != ranges.end() && part->begin < range.end; ++part) {
            parts.push_back(
                {{std::max(range.begin, part->begin), std::min(range.end, part->end)}, kind});
        }
    }
    return parts;
}

/// The blocks of a server, with what marks them; what a block only prints is a script too.
struct ServerBlocks {
    std::vector<TextRange> whole;
    std::vector<TextRange> inside;
    std::vector<HighlightSpan> marks;
};

ServerBlocks FindBlocks(std::string_view text) {
    ServerBlocks blocks;
    for (std::size_t begin = text.find("<%"); begin != std::string_view::npos;) {
        std::size_t inside = begin + 2;
        if (inside < text.size() && (text[inside] == '=' || text[inside] == '@')) ++inside;
        const std::size_t close = std::min(text.find("%>", inside), text.size());
        const std::size_t end = std::min(close + 2, text.size());
        blocks.whole.push_back({begin, end});
        blocks.inside.push_back({inside, close});
        blocks.marks.push_back({{begin, inside}, HighlightKind::ScriptMark});
        if (close < end) blocks.marks.push_back({{close, end}, HighlightKind::ScriptMark});
        begin = text.find("<%", end);
    }
    return blocks;
}

class PageHighlighting final : public Highlighter::Engine {
  public:
    PageHighlighting(const std::string& text, PageKind kind) : size_(text.size()) {
        const std::vector<PageRegion> regions = FindPageRegions(text, kind);
        const bool isServerPage = kind == PageKind::ServerPage;
        const std::string markup = isServerPage ? WithoutServerBlocks(text) : text;
        layers_.push_back({HighlightByTree(markup, HighlightGrammar::Html), {{0, size_}}});
        AddScripts(markup, regions, ScriptSide::Browser);
        if (!isServerPage) return;
        ServerBlocks blocks = FindBlocks(text);
        AddScripts(text, Outside(regions, blocks.whole), ScriptSide::Server);
        layers_.push_back({nullptr, std::move(blocks.whole), std::move(blocks.marks)});
        AddLayer(text, std::move(blocks.inside), ServerLanguage(regions));
    }

    bool Work(std::chrono::microseconds time) override {
        const auto start = std::chrono::steady_clock::now();
        for (const Layer& layer : layers_) {
            if (!layer.engine || layer.engine->IsDone()) continue;
            const auto spent = std::chrono::duration_cast<std::chrono::microseconds>(
                std::chrono::steady_clock::now() - start);
            if (spent >= time || !layer.engine->Work(time - spent)) return false;
        }
        return true;
    }
    bool IsDone() const override {
        return std::ranges::all_of(
            layers_, [](const Layer& layer) { return !layer.engine || layer.engine->IsDone(); });
    }
    std::size_t KnownUpTo() const override {
        std::size_t known = size_;
        for (const Layer& layer : layers_) {
            if (layer.engine) known = std::min(known, layer.engine->KnownUpTo());
        }
        return known;
    }

    std::vector<HighlightSpan> Spans(const TextRange& range) const override {
        std::vector<HighlightSpan> spans;
        for (const Layer& layer : layers_) {
            spans = CutHoles(spans, layer.ranges);
            const auto own =
                layer.engine ? layer.engine->Spans(range) : SpansWithin(layer.spans, range);
            std::ranges::copy(ClipTo(own, layer.ranges), std::back_inserter(spans));
            std::ranges::sort(spans, {}, [](const auto& span) { return span.range.begin; });
        }
        return spans;
    }

  private:
    static std::vector<PageRegion> Outside(std::vector<PageRegion> regions,
                                           const std::vector<TextRange>& blocks) {
        std::erase_if(regions, [&](const PageRegion& region) {
            const auto block = std::ranges::lower_bound(blocks, region.range, IsBefore);
            return block != blocks.end() && block->begin < region.range.begin;
        });
        return regions;
    }

    static ScriptLanguage ServerLanguage(const std::vector<PageRegion>& regions) {
        const auto server = std::ranges::find(regions, ScriptSide::Server, &PageRegion::side);
        return server == regions.end() ? ScriptLanguage::VbScript : server->language;
    }

    void AddScripts(const std::string& text, const std::vector<PageRegion>& regions,
                    ScriptSide side) {
        for (const auto language : {ScriptLanguage::JavaScript, ScriptLanguage::VbScript}) {
            std::vector<TextRange> ranges;
            for (const PageRegion& region : regions) {
                if (region.side == side && region.language == language)
                    ranges.push_back(region.range);
            }
            AddLayer(text, std::move(ranges), language);
        }
    }

    void AddLayer(const std::string& text, std::vector<TextRange> ranges, ScriptLanguage language) {
        if (ranges.empty()) return;
        std::string script = OnlyRanges(text, ranges);
        layers_.push_back({language == ScriptLanguage::JavaScript
                               ? HighlightByTree(std::move(script), HighlightGrammar::JavaScript)
                               : HighlightBasic(std::move(script)),
                           std::move(ranges)});
    }

    std::size_t size_;
    std::vector<Layer> layers_;
};

}  // namespace

HighlightEngine HighlightPage(std::string text, PageKind kind) {
    return std::make_unique<PageHighlighting>(text, kind);
}

}  // namespace snippetarium
