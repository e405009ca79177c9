#include "navigator/contents_pane.h"

#include <utility>

#include "editors/renaming.h"
#include "navigator/contents_filter.h"
#include "navigator/node.h"
#include "navigator/shown_path.h"
#include "search/topic_list.h"
#include "store/database.h"
#include "store/reads_classes.h"
#include "store/sql_text.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNameTooLong =
    "The name you specified is too long (over 255 characters).";

}  // namespace

/// Held while nodes are loaded, when events may run.
class ContentsPane::Busy {
  public:
    explicit Busy(ContentsPane& pane) : pane_(pane) { pane_.isBusy_ = true; }
    ~Busy() { pane_.isBusy_ = false; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    ContentsPane& pane_;
};

void ContentsPane::Load(const ContentsLoading& loading) {
    if (isBusy_) return;
    const Busy busy(*this);
    selection_ = {};
    all_.clear();
    filter_.clear();
    isFilterCut_ = false;
    LoadContents(db_, tree_, loading);
}

void ContentsPane::Expand(ContentsItem& item) {
    if (isBusy_ || item.Kind() == NodeKind::Placeholder) return;
    selection_ = ParseNodeKey(item.Key());
    tree_.SetExpanded(item, true);
    if (!item.IsUnloaded()) return;
    Guarded(db_.Reporter(), Procedure::ExpandNode, [&] {
        const Busy busy(*this);
        LoadChildren(item);
    });
}

void ContentsPane::LoadChildren(ContentsItem& item) {
    const NodeIDs node = item.IDs();
    tree_.RemovePlaceholder(item);
    if (node.classID == 0) {
        LoadClasses(db_, tree_, node.appID);
    } else {
        LoadProcedures(db_, tree_, node.appID, node.classID);
    }
}

void ContentsPane::Click(const ContentsItem* item) {
    if (item) selection_ = ParseNodeKey(item->Key());
}

EditRequest ContentsPane::DoubleClick(const ContentsItem& item) {
    if (item.Kind() == NodeKind::Placeholder) return std::nullopt;
    Click(&item);
    return EditNode(db_, selection_);
}

std::string ContentsPane::Description(const ContentsItem& item) const {
    if (item.Kind() != NodeKind::Class) return item.Text();
    const std::string path = ShownPath(ClassPathInAppByClassID(db_, item.IDs().classID));
    return path.empty() || path == item.Text() ? item.Text() : item.Text() + "\n" + path;
}

bool ContentsPane::MayEditName(const ContentsItem& item) const {
    return !db_.IsReadOnly() && item.Kind() != NodeKind::Placeholder &&
           item.Text() != kUndefinedApplicationText && item.Text() != kUndefinedClassText;
}

bool ContentsPane::Rename(const NodeIDs& node, std::string_view name) {
    if (isBusy_ || name.empty()) return false;
    if (CharacterCount(name) > kNameLimit) {
        ShowErrorMessage(db_.GetHost().messages, kNameTooLong, kInformationTitle);
        return false;
    }
    return Guarded(db_.Reporter(), Procedure::RenameInTree, [&] {
        if (name == NameOfNode(db_, node)) return true;
        if (!RenameNode(db_, node, name)) return false;
        if (filter_.empty()) {
            RefreshRows(tree_.Find(ParentOf(node)));
        } else if (ContentsItem* const item = tree_.Find(node)) {
            tree_.SetText(*item, name);
        }
        return true;
    });
}

void ContentsPane::Refresh() {
    if (isBusy_) return;
    Guarded(db_.Reporter(), Procedure::RefreshContents, [&] {
        const Busy busy(*this);
        if (filter_.empty()) {
            RefreshBelow(nullptr);
        } else {
            ShowFiltered();
        }
        SelectWhatIsLeft();
    });
}

void ContentsPane::RefreshRows(ContentsItem* parent) {
    if (!parent) return tree_.Merge(nullptr, ReadApplicationRows(db_));
    const NodeIDs& node = parent->IDs();
    tree_.Merge(parent,
                node.classID == 0 ? ReadClassRows(db_, node.appID) : ReadProcedureRows(db_, node));
}

void ContentsPane::RefreshBelow(ContentsItem* parent) {
    RefreshRows(parent);
    const std::size_t count = parent ? parent->ChildCount() : tree_.TopCount();
    for (std::size_t row = 0; row < count; ++row) {
        ContentsItem& child = parent ? parent->Child(row) : tree_.Top(row);
        if (child.ChildCount() > 0 && !child.IsUnloaded()) RefreshBelow(&child);
    }
}

void ContentsPane::SelectWhatIsLeft() {
    while (selection_ != NodeIDs{} && !tree_.Find(selection_))
        selection_ = ParentOf(selection_);
}

void ContentsPane::SelectBeside(const NodeIDs& node) {
    selection_ = ParentOf(node);
    const ContentsItem* const item = tree_.Find(node);
    if (!item) return;
    const ContentsItem* const parent = item->Parent();
    const std::size_t count = parent ? parent->ChildCount() : tree_.TopCount();
    if (count == 1) return;
    const std::size_t row = item->Row() + 1 < count ? item->Row() + 1 : item->Row() - 1;
    selection_ = (parent ? parent->Child(row) : tree_.Top(row)).IDs();
}

ContentsItem* ContentsPane::Select(const NodeIDs& node) {
    if (isBusy_ || node == NodeIDs{}) return nullptr;
    return Guarded(db_.Reporter(), Procedure::SelectNode, [&]() -> ContentsItem* {
        const Busy busy(*this);
        ContentsItem* item = FindOrLoad(node);
        if (!item) {
            // It may be newer than what the tree has, or the filter may hide it.
            ShowAll();
            item = FindOrLoad(node);
        }
        if (item) selection_ = node;
        return item;
    });
}

ContentsItem* ContentsPane::FindOrLoad(const NodeIDs& node) {
    if (const NodeIDs above = ParentOf(node); above != NodeIDs{}) {
        ContentsItem* const parent = FindOrLoad(above);
        if (parent && parent->IsUnloaded()) LoadChildren(*parent);
    }
    return tree_.Find(node);
}

ContentsItem* ContentsPane::SelectTopic(std::string_view topicKey) {
    return Select(TopicNode(db_, topicKey));
}

void ContentsPane::SetFilter(std::string_view text) {
    if (isBusy_ || text == filter_) return;
    Guarded(db_.Reporter(), Procedure::FilterContents, [&] {
        const Busy busy(*this);
        if (text.empty()) return ShowAll();
        if (filter_.empty()) {
            selectionOfAll_ = selection_;
            tree_.Exchange(all_);
        }
        filter_ = text;
        ShowFiltered();
        SelectWhatIsLeft();
    });
}

void ContentsPane::ShowAll() {
    if (!filter_.empty()) {
        tree_.Clear();
        tree_.Exchange(all_);
        filter_.clear();
        isFilterCut_ = false;
        if (selection_ == NodeIDs{}) selection_ = selectionOfAll_;
    }
    RefreshBelow(nullptr);
    FindOrLoad(selection_);
    SelectWhatIsLeft();
}

void ContentsPane::ShowFiltered() {
    const FilteredContents contents = ReadFiltered(db_, filter_);
    isFilterCut_ = contents.isCut;
    tree_.Clear();
    AppendBranches(nullptr, contents.applications);
}

void ContentsPane::AppendBranches(ContentsItem* parent,
                                  const std::vector<FilteredBranch>& branches) {
    std::vector<ContentsRow> rows;
    rows.reserve(branches.size());
    for (const FilteredBranch& branch : branches)
        rows.push_back(branch.row);
    tree_.Append(parent, std::move(rows));
    for (const FilteredBranch& branch : branches) {
        if (branch.children.empty()) continue;
        ContentsItem& item = *tree_.Find(branch.row.ids);
        AppendBranches(&item, branch.children);
        tree_.SetExpanded(item, true);
    }
}

}  // namespace snippetarium
