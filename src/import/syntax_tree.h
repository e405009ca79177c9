#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "import/source_units.h"
#include "import/text_range.h"

struct TSTree;

namespace snippetarium {

// Syntax trees of source files (import/syntax_parser.h makes them). This and the parser are all
// that the analysers see of the parser library.

/// One node of a syntax tree; lives as long as its tree. A null node has no children, no fields, an
/// empty kind and an empty range.
class SyntaxNode {
  public:
    SyntaxNode() = default;

    bool IsNull() const { return id_ == nullptr; }
    /// As the grammar calls it: "method_declaration"; a keyword or punctuation is its own kind.
    std::string_view Kind() const;
    TextRange Range() const;
    /// The child that has this role in the grammar; null where there is none.
    SyntaxNode Field(std::string_view name) const;
    /// In the order of the text, comments and punctuation too.
    std::vector<SyntaxNode> Children() const;
    /// The first child of this kind; null where there is none.
    SyntaxNode ChildOfKind(std::string_view kind) const;

  private:
    friend class SyntaxTree;
    friend struct NodeAccess;

    // The library's own node, which no other file needs to know.
    std::array<std::uint32_t, 4> context_ = {};
    const void* id_ = nullptr;
    const void* tree_ = nullptr;
};

class SyntaxTree {
  public:
    SyntaxTree() = default;
    explicit SyntaxTree(TSTree* tree) : tree_(tree) {}

    SyntaxNode Root() const;

  private:
    struct Deleter {
        void operator()(TSTree* tree) const;
    };
    std::unique_ptr<TSTree, Deleter> tree_;
};

/// The comments that stand above the units with nothing but blanks between: of each unit the
/// nearest one, what stands above that, and so on. In the order of the text, which the units have
/// too.
std::vector<TextRange> CommentsAbove(const SyntaxTree& tree, std::string_view text,
                                     std::span<const SourceUnit> units);

/// A name in characters: what is longer is not stored.
inline constexpr std::size_t kLongestName = 255;

/// What a node says, on one line and without comments, with one blank where the text has any gap;
/// a gap beside a round bracket or before a comma says nothing. Ends after kLongestName characters.
/// `text` is the text that was parsed, or one in which everything has the same place.
std::string TextOnOneLine(const SyntaxNode& node, std::string_view text);

}  // namespace snippetarium
