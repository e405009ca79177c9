#include "navigator/page_history.h"

#include <algorithm>

#include "navigator/node.h"

namespace snippetarium {

void PageHistory::Visit(const NodeIDs& node) {
    if (node == NodeIDs{} || node == Current()) return;
    pages_.resize(current_);
    pages_.push_back(node);
    if (pages_.size() > kMostPages) pages_.erase(pages_.begin());
    current_ = pages_.size();
}

NodeIDs PageHistory::Current() const {
    return current_ == 0 ? NodeIDs{} : pages_[current_ - 1];
}

NodeIDs PageHistory::Back() {
    if (CanGoBack()) --current_;
    return Current();
}

NodeIDs PageHistory::Forward() {
    if (CanGoForward()) ++current_;
    return Current();
}

void PageHistory::Forget(const NodeIDs& top) {
    for (std::size_t at = pages_.size(); at-- > 0;) {
        if (!IsWithin(pages_[at], top)) continue;
        pages_.erase(pages_.begin() + static_cast<std::ptrdiff_t>(at));
        if (at < current_) --current_;
    }
    RemoveRepeats();
}

void PageHistory::Replace(const NodeIDs& before, const NodeIDs& now) {
    std::ranges::replace(pages_, before, now);
    RemoveRepeats();
}

/// A way from a page to itself would look like a key that does nothing.
void PageHistory::RemoveRepeats() {
    for (std::size_t at = pages_.size(); at-- > 1;) {
        if (pages_[at] != pages_[at - 1]) continue;
        pages_.erase(pages_.begin() + static_cast<std::ptrdiff_t>(at));
        if (at < current_) --current_;
    }
    if (current_ == 0 && !pages_.empty()) current_ = 1;
}

}  // namespace snippetarium
