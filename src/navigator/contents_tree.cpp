#include "navigator/contents_tree.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "navigator/node.h"

namespace snippetarium {

namespace {

/// The ID that tells a node from its siblings.
std::int32_t OwnID(const NodeIDs& ids) {
    if (ids.codeID != 0) return ids.codeID;
    return ids.classID != 0 ? ids.classID : ids.appID;
}

}  // namespace

NodeKind ContentsItem::Kind() const {
    return isPlaceholder_ ? NodeKind::Placeholder : KindOf(ids_);
}

std::string ContentsItem::Key() const {
    return isPlaceholder_ ? PlaceholderNodeKey(KeyOf(ids_)) : KeyOf(ids_);
}

bool ContentsItem::IsUnloaded() const {
    return !children_.empty() && children_.front()->isPlaceholder_;
}

/// Tells the observer before and after a change.
template <typename Will, typename Did>
class ContentsTree::Telling {
  public:
    Telling(ContentsObserver* observer, Will will, Did did) : observer_(observer), did_(did) {
        if (observer_) will(*observer_);
    }
    ~Telling() {
        if (observer_) (observer_->*did_)();
    }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;

  private:
    ContentsObserver* observer_;
    Did did_;
};

ContentsItem* ContentsTree::Find(const NodeIDs& node) const {
    const ContentsItem* parent = &root_;
    if (const NodeIDs above = ParentOf(node); above != NodeIDs{}) parent = Find(above);
    if (!parent || parent->IsUnloaded()) return nullptr;
    const auto found = std::ranges::find_if(parent->children_,
                                            [&](const auto& child) { return child->ids_ == node; });
    return found == parent->children_.end() ? nullptr : found->get();
}

void ContentsTree::Clear() {
    const Telling telling(
        observer_, [](ContentsObserver& observer) { observer.WillReset(); },
        &ContentsObserver::DidReset);
    root_.children_.clear();
}

void ContentsTree::Exchange(Items& items) {
    const Telling telling(
        observer_, [](ContentsObserver& observer) { observer.WillReset(); },
        &ContentsObserver::DidReset);
    root_.children_.swap(items);
}

void ContentsTree::Append(ContentsItem* parent, std::vector<ContentsRow> rows) {
    ContentsItem& items = OrRoot(parent);
    Insert(items, items.ChildCount(), std::move(rows));
}

void ContentsTree::RemovePlaceholder(ContentsItem& parent) {
    if (parent.IsUnloaded()) RemoveRows(parent, 0, 1);
}

void ContentsTree::Remove(ContentsItem& item) {
    RemoveRows(*item.parent_, item.row_, item.row_ + 1);
}

void ContentsTree::SetText(ContentsItem& item, std::string_view text) {
    if (item.text_ == text) return;
    item.text_ = text;
    if (observer_) observer_->TextChanged(item);
}

const ContentsItem* ContentsTree::ForObserver(const ContentsItem& parent) const {
    return &parent == &root_ ? nullptr : &parent;
}

std::unique_ptr<ContentsItem> ContentsTree::MakeItem(ContentsItem& parent, ContentsRow row) const {
    auto item = std::make_unique<ContentsItem>();
    item->parent_ = &parent;
    item->isTop_ = &parent == &root_;
    item->ids_ = row.ids;
    item->text_ = std::move(row.text);
    if (row.childCount > 0) item->children_.push_back(MakePlaceholder(*item));
    return item;
}

std::unique_ptr<ContentsItem> ContentsTree::MakePlaceholder(ContentsItem& parent) {
    auto placeholder = std::make_unique<ContentsItem>();
    placeholder->parent_ = &parent;
    placeholder->ids_ = parent.ids_;
    placeholder->isPlaceholder_ = true;
    placeholder->text_ = kPlaceholderText;
    return placeholder;
}

void ContentsTree::Insert(ContentsItem& parent, std::size_t at, std::vector<ContentsRow> rows) {
    if (rows.empty()) return;
    const Telling telling(
        observer_,
        [&](ContentsObserver& observer) {
            observer.WillInsert(ForObserver(parent), at, at + rows.size() - 1);
        },
        &ContentsObserver::DidInsert);
    std::vector<std::unique_ptr<ContentsItem>> items;
    items.reserve(rows.size());
    for (ContentsRow& row : rows)
        items.push_back(MakeItem(parent, std::move(row)));
    parent.children_.insert(parent.children_.begin() + static_cast<std::ptrdiff_t>(at),
                            std::make_move_iterator(items.begin()),
                            std::make_move_iterator(items.end()));
    Number(parent, at);
}

void ContentsTree::RemoveRows(ContentsItem& parent, std::size_t first, std::size_t end) {
    if (first == end) return;
    const Telling telling(
        observer_,
        [&](ContentsObserver& observer) {
            observer.WillRemove(ForObserver(parent), first, end - 1);
        },
        &ContentsObserver::DidRemove);
    const auto begin = parent.children_.begin();
    parent.children_.erase(begin + static_cast<std::ptrdiff_t>(first),
                           begin + static_cast<std::ptrdiff_t>(end));
    Number(parent, first);
}

void ContentsTree::Move(ContentsItem& parent, std::size_t from, std::size_t to) {
    const Telling telling(
        observer_,
        [&](ContentsObserver& observer) { observer.WillMove(ForObserver(parent), from, to); },
        &ContentsObserver::DidMove);
    const auto begin = parent.children_.begin();
    std::rotate(begin + static_cast<std::ptrdiff_t>(to), begin + static_cast<std::ptrdiff_t>(from),
                begin + static_cast<std::ptrdiff_t>(from) + 1);
    Number(parent, to);
}

void ContentsTree::Number(ContentsItem& parent, std::size_t first) {
    for (std::size_t row = first; row < parent.children_.size(); ++row)
        parent.children_[row]->row_ = row;
}

void ContentsTree::UpdateItem(ContentsItem& item, const ContentsRow& row) {
    SetText(item, row.text);
    if ((row.childCount > 0) == (item.ChildCount() > 0)) return;
    if (row.childCount == 0) return RemoveRows(item, 0, item.ChildCount());
    const Telling telling(
        observer_,
        [&](ContentsObserver& observer) { observer.WillInsert(ForObserver(item), 0, 0); },
        &ContentsObserver::DidInsert);
    item.children_.push_back(MakePlaceholder(item));
}

// A merge walks the wanted rows and the children side by side. A child that is not wanted goes, a
// run of new rows is put in at once, and a child that stands further down is moved up to its place,
// which happens to the few that were renamed.
void ContentsTree::Merge(ContentsItem* parent, std::vector<ContentsRow> rows) {
    ContentsItem& items = OrRoot(parent);
    RemoveUnwanted(items, rows);
    std::unordered_set<std::int32_t> present;
    for (const auto& child : items.children_)
        present.insert(OwnID(child->ids_));
    std::vector<ContentsRow> added;
    std::size_t place = 0;
    for (ContentsRow& row : rows) {
        if (!present.contains(OwnID(row.ids))) {
            added.push_back(std::move(row));
            continue;
        }
        const std::size_t count = added.size();
        Insert(items, place, std::exchange(added, {}));
        place += count;
        std::size_t from = place;
        while (items.children_[from]->ids_ != row.ids)
            ++from;
        if (from != place) Move(items, from, place);
        UpdateItem(*items.children_[place], row);
        ++place;
    }
    Insert(items, place, std::move(added));
}

void ContentsTree::RemoveUnwanted(ContentsItem& parent, const std::vector<ContentsRow>& rows) {
    std::unordered_set<std::int32_t> wanted;
    for (const ContentsRow& row : rows)
        wanted.insert(OwnID(row.ids));
    const auto isUnwanted = [&](std::size_t at) {
        const ContentsItem& child = *parent.children_[at];
        return child.isPlaceholder_ || !wanted.contains(OwnID(child.ids_));
    };
    for (std::size_t end = parent.children_.size(); end > 0;) {
        std::size_t first = end;
        while (first > 0 && isUnwanted(first - 1))
            --first;
        RemoveRows(parent, first, end);
        end = first == end ? end - 1 : first;
    }
}

}  // namespace snippetarium
