#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "import/line_progress.h"
#include "import/text_range.h"

struct TSTree;

namespace snippetarium {

// Syntax trees of source files. This is all that the analysers see of the parser library.

enum class Grammar : std::uint8_t { Java, CSharp, JavaScript };

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

enum class ParseEnd : std::uint8_t {
    Done,
    /// The user cancelled the import.
    Cancelled,
    /// More brackets within brackets, more time or more memory than any sensible file takes.
    TooTangled,
};

struct ParseResult {
    ParseEnd end = ParseEnd::Done;
    /// Empty (a null root) unless Done.
    SyntaxTree tree = {};
};

/// Parses any text; what is no source of that language becomes error nodes. Moves `progress` on
/// with the lines that were read, which lets the user cancel.
ParseResult ParseSyntax(std::string_view text, Grammar grammar, LineProgress& progress);

/// The comments of the text, in its order. Those inside the `skipped` ranges, which stand in the
/// order of the text, may be left out.
std::vector<TextRange> FindComments(const SyntaxTree& tree, std::span<const TextRange> skipped);

/// A name in characters: what is longer is not stored.
inline constexpr std::size_t kLongestName = 255;

/// What a node says, on one line and without comments, with one blank where the text has any gap;
/// a gap beside a round bracket or before a comma says nothing. Ends after kLongestName characters.
/// `text` is the text that was parsed, or one in which everything has the same place.
std::string TextOnOneLine(const SyntaxNode& node, std::string_view text);

}  // namespace snippetarium
