#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/node_key.h"

namespace snippetarium {

// The contents tree without a screen: the nodes that have been loaded, in the order in which they
// are shown, and an observer that hears of each change. It fits a tree control's item model: items
// keep their address while they are in the tree and know their row.

/// The text of the child that stands for the children of a node that was not expanded yet.
inline constexpr std::string_view kPlaceholderText = "Loading...";

/// A node, or a placeholder.
class ContentsItem {
  public:
    NodeKind Kind() const;
    /// Of a placeholder those of its parent.
    const NodeIDs& IDs() const { return ids_; }
    std::string Key() const;
    const std::string& Text() const { return text_; }

    /// Null for an application.
    ContentsItem* Parent() const { return isTop_ ? nullptr : parent_; }
    /// Its place among its parent's children, from 0.
    std::size_t Row() const { return row_; }
    std::size_t ChildCount() const { return children_.size(); }
    ContentsItem& Child(std::size_t row) const { return *children_.at(row); }
    /// Whether its only child is a placeholder.
    bool IsUnloaded() const;
    /// Whether a view shows its children. After a reset the view expands the items of which this
    /// holds.
    bool IsExpanded() const { return isExpanded_; }

  private:
    friend class ContentsTree;

    ContentsItem* parent_ = nullptr;
    std::size_t row_ = 0;
    NodeIDs ids_;
    bool isPlaceholder_ = false;
    bool isTop_ = false;
    bool isExpanded_ = false;
    std::string text_;
    std::vector<std::unique_ptr<ContentsItem>> children_;
};

/// Hears of changes, each between a "will" and a "did" as item models want it. A null parent is the
/// top of the tree; rows count from 0, both ends included.
class ContentsObserver {
  public:
    virtual ~ContentsObserver() = default;
    virtual void WillReset() = 0;
    virtual void DidReset() = 0;
    virtual void WillInsert(const ContentsItem* parent, std::size_t first, std::size_t last) = 0;
    virtual void DidInsert() = 0;
    virtual void WillRemove(const ContentsItem* parent, std::size_t first, std::size_t last) = 0;
    virtual void DidRemove() = 0;
    /// The item at `from` comes to stand at `to`, which is a smaller row.
    virtual void WillMove(const ContentsItem* parent, std::size_t from, std::size_t to) = 0;
    virtual void DidMove() = 0;
    virtual void TextChanged(const ContentsItem& item) = 0;
};

/// A node as it is read from the catalogue.
struct ContentsRow {
    NodeIDs ids;
    std::string text = {};
    /// Classes of an application, procedures of a class.
    std::int32_t childCount = 0;

    bool operator==(const ContentsRow&) const = default;
};

class ContentsTree {
  public:
    ContentsTree() = default;
    ContentsTree(const ContentsTree&) = delete;
    ContentsTree& operator=(const ContentsTree&) = delete;

    /// One at most; null takes it away. It outlives this or takes itself away.
    void SetObserver(ContentsObserver* observer) { observer_ = observer; }

    std::size_t TopCount() const { return root_.ChildCount(); }
    ContentsItem& Top(std::size_t row) const { return root_.Child(row); }
    /// Null where it was not loaded; for no node too.
    ContentsItem* Find(const NodeIDs& node) const;

    void SetExpanded(ContentsItem& item, bool isExpanded) const { item.isExpanded_ = isExpanded; }

    /// All applications with what was loaded below them.
    using Items = std::vector<std::unique_ptr<ContentsItem>>;
    /// Puts `items`, which were taken out of this tree so before, in the place of those that are
    /// there, and these into `items`. The observer hears a reset.
    void Exchange(Items& items);

    // Null as a parent is the top.

    void Clear();
    /// Adds the rows behind the parent's children, each with a placeholder where it has children.
    void Append(ContentsItem* parent, std::vector<ContentsRow> rows);
    void RemovePlaceholder(ContentsItem& parent);
    void Remove(ContentsItem& item);
    void SetText(ContentsItem& item, std::string_view text);
    /// Makes the parent's children those of the rows, in their order. Items that are there already
    /// stay, with what was loaded below them.
    void Merge(ContentsItem* parent, std::vector<ContentsRow> rows);

  private:
    template <typename Will, typename Did>
    class Telling;

    ContentsItem& OrRoot(ContentsItem* parent) { return parent ? *parent : root_; }
    const ContentsItem* ForObserver(const ContentsItem& parent) const;
    std::unique_ptr<ContentsItem> MakeItem(ContentsItem& parent, ContentsRow row) const;
    static std::unique_ptr<ContentsItem> MakePlaceholder(ContentsItem& parent);
    void Insert(ContentsItem& parent, std::size_t at, std::vector<ContentsRow> rows);
    void RemoveRows(ContentsItem& parent, std::size_t first, std::size_t end);
    void RemoveUnwanted(ContentsItem& parent, const std::vector<ContentsRow>& rows);
    void Move(ContentsItem& parent, std::size_t from, std::size_t to);
    void UpdateItem(ContentsItem& item, const ContentsRow& row);
    static void Number(ContentsItem& parent, std::size_t first);

    ContentsItem root_;
    ContentsObserver* observer_ = nullptr;
};

}  // namespace snippetarium
