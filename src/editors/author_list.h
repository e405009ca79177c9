#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "editors/owner_details.h"

namespace snippetarium {

class Database;

/// The authors of one owner while they are edited. What is refused has been explained to the user
/// and changes nothing. Until Store the catalogue stays as it is.
class AuthorList {
  public:
    AuthorList(Database& db, std::vector<LinkedAuthor> authors)
        : db_(db), authors_(std::move(authors)) {}

    const std::vector<LinkedAuthor>& Authors() const { return authors_; }
    /// Blanks around the parts of a name and letter case do not count.
    std::optional<std::size_t> RowOf(const AuthorName& name) const;

    /// Puts an author behind the others. Each is listed once.
    bool Add(const AuthorName& name);
    /// Another name for the author of a row, which none of the others may have.
    bool Change(std::size_t row, const AuthorName& name);
    void Remove(std::size_t row);

    /// Writes the changed names of authors whom the catalogue has, one after the other. Throws; the
    /// next call goes on with the one that failed.
    void Store();

  private:
    void NoteRenaming(std::int32_t authorID, const AuthorName& name);

    Database& db_;
    std::vector<LinkedAuthor> authors_;
    /// In the order in which they were made: one may take the name that another has given up.
    std::vector<LinkedAuthor> renamings_;
};

}  // namespace snippetarium
