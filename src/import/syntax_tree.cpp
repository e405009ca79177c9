#include "import/syntax_tree.h"

#include <tree_sitter/api.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <limits>
#include <type_traits>

#include "import/parser_limits.h"
#include "support/utf8.h"

extern "C" {
const TSLanguage* tree_sitter_java(void);
const TSLanguage* tree_sitter_c_sharp(void);
const TSLanguage* tree_sitter_javascript(void);
}

namespace snippetarium {

// A parser of this kind reads every text to its end, but a hostile one can make it try so many
// readings at once that it takes minutes and gigabytes. So it works in short turns, and between two
// of them it is looked at how far it has come, what it has taken, and whether the user still wants
// the result. A turn ends between tokens only; what makes a single token expensive is looked at
// before (import/parser_limits.h).

namespace {

constexpr std::chrono::milliseconds kTurn{20};
constexpr std::chrono::seconds kLongestParse{10};
constexpr std::size_t kMostMemory = 120 * 1024 * 1024;
constexpr std::size_t kBytesRead = 4096;

const TSLanguage* LanguageOf(Grammar grammar) {
    switch (grammar) {
        case Grammar::Java:
            return tree_sitter_java();
        case Grammar::CSharp:
            return tree_sitter_c_sharp();
        case Grammar::JavaScript:
            return tree_sitter_javascript();
    }
    return nullptr;
}

/// The text as the parser asks for it.
struct Reading {
    std::string_view text;
    std::size_t reached = 0;
};

const char* Read(void* payload, std::uint32_t offset, TSPoint, std::uint32_t* length) {
    Reading& reading = *static_cast<Reading*>(payload);
    const std::size_t begin = std::min<std::size_t>(offset, reading.text.size());
    const std::size_t end = std::min(begin + kBytesRead, reading.text.size());
    reading.reached = std::max(reading.reached, end);
    *length = static_cast<std::uint32_t>(end - begin);
    return reading.text.data() + begin;
}

class BoundedParser {
  public:
    BoundedParser(std::string_view text, Grammar grammar, LineProgress& progress)
        : reading_{text}, progress_(progress) {
        ts_parser_set_language(parser_.get(), LanguageOf(grammar));
        ts_parser_set_timeout_micros(parser_.get(), std::chrono::microseconds(kTurn).count());
    }

    ParseResult Run() {
        if (HasTooMuchUnfinished(reading_.text)) return TooTangled();
        const auto deadline = std::chrono::steady_clock::now() + kLongestParse;
        const std::size_t memoryBefore = MemoryInUse();
        while (true) {
            const TSInput input{&reading_, Read, TSInputEncodingUTF8};
            if (TSTree* tree = ts_parser_parse(parser_.get(), nullptr, input)) {
                ReportLines();
                return {ParseEnd::Done, SyntaxTree(tree)};
            }
            ReportLines();
            if (progress_.IsCancelled()) return {ParseEnd::Cancelled};
            if (std::chrono::steady_clock::now() > deadline ||
                MemoryInUse() > memoryBefore + kMostMemory) {
                return TooTangled();
            }
        }
    }

  private:
    struct Deleter {
        void operator()(TSParser* parser) const { ts_parser_delete(parser); }
    };

    /// The lines that nobody reads count too.
    ParseResult TooTangled() {
        reading_.reached = reading_.text.size();
        ReportLines();
        return {progress_.IsCancelled() ? ParseEnd::Cancelled : ParseEnd::TooTangled};
    }

    void ReportLines() {
        const std::string_view text = reading_.text;
        while (!progress_.IsCancelled()) {
            const std::size_t end = text.find('\n', reported_);
            if (end >= reading_.reached) return;
            reported_ = end + 1;
            progress_.LineRead();
        }
    }

    std::unique_ptr<TSParser, Deleter> parser_{ts_parser_new()};
    Reading reading_;
    LineProgress& progress_;
    std::size_t reported_ = 0;
};

bool IsComment(std::string_view kind) {
    return kind == "comment" || kind == "line_comment" || kind == "block_comment" ||
           kind == "html_comment";
}

bool IsBlank(char character) {
    return static_cast<unsigned char>(character) <= ' ';
}

}  // namespace

struct NodeAccess {
    static TSNode Raw(const SyntaxNode& node) {
        static_assert(sizeof(SyntaxNode) == sizeof(TSNode) &&
                      std::is_trivially_copyable_v<SyntaxNode>);
        return std::bit_cast<TSNode>(node);
    }
    static SyntaxNode Node(const TSNode& raw) { return std::bit_cast<SyntaxNode>(raw); }
};

namespace {

class Cursor {
  public:
    explicit Cursor(const SyntaxNode& node) : cursor_(ts_tree_cursor_new(NodeAccess::Raw(node))) {}
    ~Cursor() { ts_tree_cursor_delete(&cursor_); }
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    SyntaxNode Node() const { return NodeAccess::Node(ts_tree_cursor_current_node(&cursor_)); }
    bool ToFirstChild() { return ts_tree_cursor_goto_first_child(&cursor_); }
    bool ToNextSibling() { return ts_tree_cursor_goto_next_sibling(&cursor_); }
    /// To the node behind this one and all that is in it.
    bool ToNextBehind() {
        while (!ToNextSibling()) {
            if (!ts_tree_cursor_goto_parent(&cursor_)) return false;
        }
        return true;
    }

  private:
    TSTreeCursor cursor_;
};

/// Puts leaves on one line.
class LineOfLeaves {
    /// In bytes: no character takes more than four.
    static constexpr std::size_t kLongestLine = 4 * kLongestName;

  public:
    explicit LineOfLeaves(std::string_view text) : text_(text) {}

    bool IsFull() const { return line_.size() > kLongestLine; }

    void Add(const TextRange& leaf) {
        if (leaf.begin == leaf.end) return;
        const std::string_view piece = text_.substr(leaf.begin, leaf.end - leaf.begin);
        const bool isJoined = line_.ends_with('(') || piece == "(" || piece == ")" || piece == ",";
        if (!line_.empty() && leaf.begin > end_ && !isJoined) line_ += ' ';
        for (const char character : piece.substr(0, kLongestLine + 1)) {
            if (!IsBlank(character)) {
                line_ += character;
            } else if (line_.empty() || line_.back() != ' ') {
                line_ += ' ';
            }
        }
        end_ = leaf.end;
    }

    std::string Finish() { return std::string(CutToCharacters(line_, kLongestName)); }

  private:
    std::string_view text_;
    std::string line_;
    std::size_t end_ = 0;
};

}  // namespace

std::string_view SyntaxNode::Kind() const {
    return IsNull() ? std::string_view() : ts_node_type(NodeAccess::Raw(*this));
}

TextRange SyntaxNode::Range() const {
    if (IsNull()) return {};
    const TSNode raw = NodeAccess::Raw(*this);
    return {ts_node_start_byte(raw), ts_node_end_byte(raw)};
}

SyntaxNode SyntaxNode::Field(std::string_view name) const {
    if (IsNull()) return {};
    return NodeAccess::Node(ts_node_child_by_field_name(NodeAccess::Raw(*this), name.data(),
                                                        static_cast<std::uint32_t>(name.size())));
}

std::vector<SyntaxNode> SyntaxNode::Children() const {
    std::vector<SyntaxNode> children;
    if (IsNull()) return children;
    Cursor cursor(*this);
    for (bool more = cursor.ToFirstChild(); more; more = cursor.ToNextSibling())
        children.push_back(cursor.Node());
    return children;
}

SyntaxNode SyntaxNode::ChildOfKind(std::string_view kind) const {
    for (const SyntaxNode& child : Children()) {
        if (child.Kind() == kind) return child;
    }
    return {};
}

SyntaxNode SyntaxTree::Root() const {
    return tree_ ? NodeAccess::Node(ts_tree_root_node(tree_.get())) : SyntaxNode();
}

void SyntaxTree::Deleter::operator()(TSTree* tree) const {
    ts_tree_delete(tree);
}

ParseResult ParseSyntax(std::string_view text, Grammar grammar, LineProgress& progress) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) return {ParseEnd::TooTangled};
    return BoundedParser(text, grammar, progress).Run();
}

std::vector<TextRange> FindComments(const SyntaxTree& tree, std::span<const TextRange> skipped) {
    std::vector<TextRange> comments;
    if (tree.Root().IsNull()) return comments;
    Cursor cursor(tree.Root());
    while (true) {
        const SyntaxNode node = cursor.Node();
        const TextRange range = node.Range();
        while (!skipped.empty() && skipped.front().end <= range.begin)
            skipped = skipped.subspan(1);
        const bool isSkipped = !skipped.empty() && skipped.front().begin <= range.begin &&
                               range.end <= skipped.front().end;
        if (!isSkipped && IsComment(node.Kind())) comments.push_back(range);
        if (!isSkipped && cursor.ToFirstChild()) continue;
        if (!cursor.ToNextBehind()) return comments;
    }
}

std::string TextOnOneLine(const SyntaxNode& node, std::string_view text) {
    LineOfLeaves line(text);
    if (node.IsNull()) return {};
    Cursor cursor(node);
    while (!line.IsFull()) {
        const SyntaxNode here = cursor.Node();
        if (!IsComment(here.Kind())) {
            if (cursor.ToFirstChild()) continue;
            line.Add(here.Range());
        }
        if (!cursor.ToNextBehind()) break;
    }
    return line.Finish();
}

}  // namespace snippetarium
