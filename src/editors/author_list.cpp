#include "editors/author_list.h"

#include <algorithm>

#include "editors/author_naming.h"
#include "editors/author_text.h"
#include "editors/field_rules.h"
#include "keywords/words.h"
#include "store/reads_authors_dates.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

constexpr std::string_view kListed = "This author is in the list already.";

AuthorName Trimmed(const AuthorName& name) {
    return {std::string(TrimBlanks(name.first)), std::string(TrimBlanks(name.middle)),
            std::string(TrimBlanks(name.last))};
}

bool IsSame(const AuthorName& a, const AuthorName& b) {
    return EqualFolded(a.first, b.first) && EqualFolded(a.middle, b.middle) &&
           EqualFolded(a.last, b.last);
}

}  // namespace

std::optional<std::size_t> AuthorList::RowOf(const AuthorName& name) const {
    const auto found = std::ranges::find_if(authors_, [&](const LinkedAuthor& author) {
        return IsSame(Trimmed(author.name), Trimmed(name));
    });
    if (found == authors_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - authors_.begin());
}

bool AuthorList::Add(const AuthorName& name) {
    const AuthorName trimmed = Trimmed(name);
    if (!CheckDetailChanges(db_, {.authors = std::vector{trimmed}})) return false;
    if (RowOf(trimmed)) return RefuseEntry(db_, kListed);
    authors_.push_back({AuthorIDByName(db_, trimmed.first, trimmed.middle, trimmed.last), trimmed});
    return true;
}

bool AuthorList::Change(std::size_t row, const AuthorName& name) {
    const AuthorName trimmed = Trimmed(name);
    if (!CheckDetailChanges(db_, {.authors = std::vector{trimmed}})) return false;
    if (RowOf(trimmed).value_or(row) != row) return RefuseEntry(db_, kListed);
    LinkedAuthor& author = authors_.at(row);
    if (author.name == trimmed) return true;
    author.name = trimmed;
    NoteRenaming(author.authorID, trimmed);
    return true;
}

void AuthorList::NoteRenaming(std::int32_t authorID, const AuthorName& name) {
    if (authorID == 0) return;
    // What was only typed on the way to this name was never anybody's.
    if (!renamings_.empty() && renamings_.back().authorID == authorID) renamings_.pop_back();
    renamings_.push_back({authorID, name});
}

void AuthorList::Remove(std::size_t row) {
    std::erase_if(renamings_, [id = authors_.at(row).authorID](const LinkedAuthor& renaming) {
        return renaming.authorID == id;
    });
    authors_.erase(authors_.begin() + static_cast<std::ptrdiff_t>(row));
}

void AuthorList::Store() {
    while (!renamings_.empty()) {
        const LinkedAuthor renaming = renamings_.front();
        const std::int32_t nowID = RenameAuthor(db_, renaming.authorID, renaming.name);
        renamings_.erase(renamings_.begin());
        for (std::vector<LinkedAuthor>* const list : {&authors_, &renamings_}) {
            for (LinkedAuthor& author : *list) {
                if (author.authorID == renaming.authorID) author.authorID = nowID;
            }
        }
    }
}

}  // namespace snippetarium
