#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editors/owner_details.h"

namespace snippetarium {

class Database;

/// An author whom the catalogue has, and in how many places.
struct KnownAuthor {
    std::int32_t authorID = 0;
    AuthorName name = {};
    std::int32_t ownerCount = 0;
};

/// By last name; none on a failure.
std::vector<KnownAuthor> KnownAuthors(Database& db);

/// The authors of one owner while they are edited. What is refused has been explained to the user
/// and changes nothing. Until Store the catalogue stays as it is.
class AuthorList {
  public:
    AuthorList(Database& db, std::vector<LinkedAuthor> authors)
        : db_(db), authors_(std::move(authors)) {}

    const std::vector<LinkedAuthor>& Authors() const { return authors_; }

    /// An author is listed once: of a name that is there already, nothing is added. Returns the row;
    /// nothing where the name is refused.
    std::optional<std::size_t> Add(const AuthorName& name);
    /// Another name for an author who is in the list. Refused where another in the list has it.
    bool Change(std::size_t row, const AuthorName& name);
    void Remove(std::size_t row);

    /// Writes the changed names of authors whom the catalogue has.
    void Store();

  private:
    struct NewName {
        std::int32_t authorID = 0;
        AuthorName name;
    };

    std::optional<std::size_t> RowOf(const AuthorName& name) const;

    Database& db_;
    std::vector<LinkedAuthor> authors_;
    std::vector<NewName> newNames_;
};

}  // namespace snippetarium
