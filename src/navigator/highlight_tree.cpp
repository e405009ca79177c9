#include <tree_sitter/api.h>

#include <algorithm>
#include <tuple>
#include <utility>

#include "import/memory_in_use.h"
#include "import/unfinished_text.h"
#include "navigator/highlight_engine.h"
#include "navigator/highlight_query.h"

namespace snippetarium {

namespace {

// As the import does, the text is looked at before it is parsed, and between two turns of the
// parser it is looked at what it has taken (import/syntax_parser.cpp says why). What takes too much
// stays plain.

constexpr std::chrono::seconds kLongestParse{2};
constexpr std::size_t kMostMemory = 120 * 1024 * 1024;
constexpr std::chrono::microseconds kShortestTurn{500};
/// Elements of a page that are open at once.
constexpr std::ptrdiff_t kMostOpenElements = 8'000;

/// From above: an element that is never closed counts to the end.
bool HasTooManyOpenElements(std::string_view text) {
    std::ptrdiff_t open = 0;
    for (std::size_t at = text.find('<'); at + 1 < text.size(); at = text.find('<', at + 1)) {
        if (at == std::string_view::npos) return false;
        open += text[at + 1] == '/' ? -1 : 1;
        if (open > kMostOpenElements) return true;
    }
    return false;
}

/// A node that a query has caught.
struct Capture {
    TextRange range;
    std::uint32_t pattern = 0;
    /// Nothing: shown as plain text.
    std::optional<HighlightKind> kind;
};

/// Turns captures, which lie in each other as the nodes of a tree do, into spans that do not
/// overlap: the innermost node counts, and of one node the last pattern.
class Flattening {
  public:
    std::vector<HighlightSpan> Run(std::vector<Capture> captures) {
        std::ranges::sort(captures, [](const Capture& a, const Capture& b) {
            return std::tie(a.range.begin, b.range.end, a.pattern) <
                   std::tie(b.range.begin, a.range.end, b.pattern);
        });
        for (const Capture& capture : captures) {
            if (!open_.empty() && open_.back().range == capture.range) {
                open_.back().kind = capture.kind;
                continue;
            }
            CloseUntil(capture.range.begin);
            EmitUntil(capture.range.begin);
            open_.push_back(capture);
        }
        CloseUntil(std::string::npos);
        return std::move(spans_);
    }

  private:
    void CloseUntil(std::size_t place) {
        while (!open_.empty() && open_.back().range.end <= place) {
            EmitUntil(open_.back().range.end);
            open_.pop_back();
        }
    }
    void EmitUntil(std::size_t place) {
        if (!open_.empty() && open_.back().kind && done_ < place)
            spans_.push_back(
                {{std::max(done_, open_.back().range.begin), place}, *open_.back().kind});
        done_ = std::max(done_, place);
    }

    std::vector<Capture> open_;
    std::vector<HighlightSpan> spans_;
    std::size_t done_ = 0;
};

class TreeHighlighting final : public Highlighter::Engine {
  public:
    TreeHighlighting(std::string text, HighlightGrammar grammar)
        : text_(std::move(text)), grammar_(grammar) {}

    bool Work(std::chrono::microseconds time) override {
        if (isDone_) return true;
        if (query_ == nullptr) query_ = HighlightQuery::Of(grammar_, time);
        if (query_ == nullptr) return false;
        const auto start = std::chrono::steady_clock::now();
        if (!parser_ && !Begin()) return isDone_ = true;
        const auto turn = std::max(time, kShortestTurn);
        ts_parser_set_timeout_micros(parser_.get(), static_cast<std::uint64_t>(turn.count()));
        tree_.reset(ts_parser_parse_string(parser_.get(), nullptr, text_.data(),
                                           static_cast<std::uint32_t>(text_.size())));
        spent_ += std::chrono::steady_clock::now() - start;
        const bool takesTooMuch =
            spent_ > kLongestParse || MemoryInUse() > memoryBefore_ + kMostMemory;
        if (!tree_ && !takesTooMuch) return false;
        parser_.reset();
        return isDone_ = true;
    }

    bool IsDone() const override { return isDone_; }
    std::size_t KnownUpTo() const override { return isDone_ ? text_.size() : 0; }

    std::vector<HighlightSpan> Spans(const TextRange& range) const override {
        const TextRange within{range.begin, std::min(range.end, text_.size())};
        if (!tree_ || within.begin >= within.end) return {};
        return Flattening().Run(Captures(within));
    }

  private:
    struct Deleter {
        void operator()(TSParser* parser) const { ts_parser_delete(parser); }
        void operator()(TSTree* tree) const { ts_tree_delete(tree); }
        void operator()(TSQueryCursor* cursor) const { ts_query_cursor_delete(cursor); }
    };

    /// False for a text that is better left alone.
    bool Begin() {
        const bool isTangled = grammar_ == HighlightGrammar::Html ? HasTooManyOpenElements(text_)
                                                                  : IsTooUnfinished(text_, {});
        if (isTangled) return false;
        parser_.reset(ts_parser_new());
        memoryBefore_ = MemoryInUse();
        return ts_parser_set_language(parser_.get(), query_->Language());
    }

    std::vector<Capture> Captures(const TextRange& range) const {
        const std::unique_ptr<TSQueryCursor, Deleter> cursor(ts_query_cursor_new());
        ts_query_cursor_set_byte_range(cursor.get(), static_cast<std::uint32_t>(range.begin),
                                       static_cast<std::uint32_t>(range.end));
        ts_query_cursor_exec(cursor.get(), query_->Get(), ts_tree_root_node(tree_.get()));
        std::vector<Capture> captures;
        TSQueryMatch match;
        while (ts_query_cursor_next_match(cursor.get(), &match)) {
            if (!query_->Holds(match, text_)) continue;
            for (std::uint32_t i = 0; i < match.capture_count; ++i) {
                const TSQueryCapture& capture = match.captures[i];
                const TextRange node{ts_node_start_byte(capture.node),
                                     ts_node_end_byte(capture.node)};
                if (node.end <= range.begin || node.begin >= range.end) continue;
                captures.push_back({node, match.pattern_index, query_->KindOf(capture)});
            }
        }
        return captures;
    }

    std::string text_;
    HighlightGrammar grammar_;
    const HighlightQuery* query_ = nullptr;
    std::unique_ptr<TSParser, Deleter> parser_;
    std::unique_ptr<TSTree, Deleter> tree_;
    std::chrono::steady_clock::duration spent_{};
    std::size_t memoryBefore_ = 0;
    bool isDone_ = false;
};

}  // namespace

HighlightEngine HighlightByTree(std::string text, HighlightGrammar grammar) {
    return std::make_unique<TreeHighlighting>(std::move(text), grammar);
}

}  // namespace snippetarium
