#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "navigator/contents_loading.h"
#include "navigator/contents_tree.h"
#include "navigator/node_requests.h"

namespace snippetarium {

class Database;
struct FilteredBranch;

/// The contents pane without its control: the tree, the current selection, and what the user does
/// to nodes. Each operation is guarded and reports its failures.
///
/// While one operation loads nodes and lets events run, those that would change the tree do
/// nothing.
class ContentsPane {
  public:
    explicit ContentsPane(Database& db) : db_(db) {}
    ContentsPane(const ContentsPane&) = delete;
    ContentsPane& operator=(const ContentsPane&) = delete;

    ContentsTree& Tree() { return tree_; }
    const ContentsTree& Tree() const { return tree_; }

    /// The node that was clicked or expanded last, on which the commands act; all 0 for none. A
    /// control that lets its user expand a node without selecting it should select it then, so that
    /// the two do not differ.
    const NodeIDs& Selection() const { return selection_; }

    /// Fills the tree anew. The filter is empty afterwards, and so is the selection.
    void Load(const ContentsLoading& loading);

    /// Selects the node and loads its children, if that was not done yet.
    void Expand(ContentsItem& item);
    void Collapse(ContentsItem& item) { tree_.SetExpanded(item, false); }
    /// Selects the node; null is a click beside all nodes and changes nothing. A placeholder's is
    /// its parent.
    void Click(const ContentsItem* item);
    /// Selects the node and says which editor to open; the user has been told where none may be.
    EditRequest DoubleClick(const ContentsItem& item);

    /// The node's name; of a class from a file also its path, which tells it from one of the same
    /// name.
    std::string Description(const ContentsItem& item) const;

    /// Whether the node's name may be edited in place. Where not, nothing is said: nothing was
    /// entered.
    bool MayEditName(const ContentsItem& item) const;
    /// The end of such an edit. True when the node has the name now, also in the tree, in which it
    /// goes to its new place. A refused name has been explained; an empty one just changes nothing.
    bool Rename(const NodeIDs& node, std::string_view name);

    /// After the catalogue was changed: reads what has been loaded again. What is expanded and
    /// selected stays so; a selected node that is gone is replaced by its parent, if that is there.
    void Refresh();

    /// Before a node is deleted: selects the one that takes its place then, so that one can go on
    /// from there: the next one, the one before the last, or what an only one was in.
    void SelectBeside(const NodeIDs& node);

    /// Loads the node's ancestors and selects it. Null where the catalogue has no such node, or the
    /// filter, which is taken away first, hid it.
    ContentsItem* Select(const NodeIDs& node);
    /// The same for a topic: "f56", "c34", "a12".
    ContentsItem* SelectTopic(std::string_view topicKey);

    /// Shows only nodes whose names hold the text, in any letter case, with what they belong to and
    /// what is below them; an empty text shows all again, as it was. The observer hears a reset.
    void SetFilter(std::string_view text);
    const std::string& Filter() const { return filter_; }
    /// Whether more nodes fit the filter than are shown.
    bool IsFilterCut() const { return isFilterCut_; }

  private:
    class Busy;

    void LoadChildren(ContentsItem& item);
    ContentsItem* FindOrLoad(const NodeIDs& node);
    void RefreshRows(ContentsItem* parent);
    void RefreshBelow(ContentsItem* parent);
    void ShowAll();
    void ShowFiltered();
    void AppendBranches(ContentsItem* parent, const std::vector<FilteredBranch>& branches);
    void SelectWhatIsLeft();

    Database& db_;
    ContentsTree tree_;
    NodeIDs selection_;
    std::string filter_;
    // What the filter has put aside.
    ContentsTree::Items all_;
    NodeIDs selectionOfAll_;
    bool isFilterCut_ = false;
    bool isBusy_ = false;
};

}  // namespace snippetarium
