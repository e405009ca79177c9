#include "import/syntax_tree.h"

#include <tree_sitter/api.h>

#include <algorithm>
#include <bit>
#include <type_traits>

#include "import/source_words.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

bool IsComment(std::string_view kind) {
    return kind == "comment" || kind == "line_comment" || kind == "block_comment" ||
           kind == "html_comment";
}

/// Where what stands before the blanks in front of this position ends; 0 where nothing does.
std::size_t EndBefore(std::string_view text, std::size_t position) {
    while (position > 0 && IsBlank(text[position - 1]))
        --position;
    return position;
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

std::vector<TextRange> CommentsAbove(const SyntaxTree& tree, std::string_view text,
                                     std::span<const SourceUnit> units) {
    std::vector<TextRange> comments;
    if (tree.Root().IsNull()) return comments;
    const TSNode root = NodeAccess::Raw(tree.Root());
    for (const SourceUnit& unit : units) {
        const std::size_t first = comments.size();
        std::size_t above = EndBefore(text, unit.code.begin);
        while (above > 0) {
            const auto last = static_cast<std::uint32_t>(above - 1);
            const SyntaxNode node =
                NodeAccess::Node(ts_node_descendant_for_byte_range(root, last, last + 1));
            const bool isTaken = first > 0 && last < comments[first - 1].end;
            if (isTaken || !IsComment(node.Kind())) break;
            comments.push_back(node.Range());
            above = EndBefore(text, comments.back().begin);
        }
        std::reverse(comments.begin() + static_cast<std::ptrdiff_t>(first), comments.end());
    }
    return comments;
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
