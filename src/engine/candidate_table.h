#pragma once

#include <cstdint>
#include <deque>
#include <vector>

struct sqlite3;

namespace snippetarium {

/// Lists of IDs that statements read as a table: tblTextCandidates(0) is the first of them, with
/// one column, id.
///
///     FROM tblCode cd, tblTextCandidates(0) AS list WHERE list.id = cd.codeID
///
/// Must live as long as the database.
class CandidateTable {
  public:
    using IDs = std::vector<std::int64_t>;

    CandidateTable() = default;
    CandidateTable(const CandidateTable&) = delete;
    CandidateTable& operator=(const CandidateTable&) = delete;

    void Install(sqlite3* database);

    /// Takes IDs in ascending order, each once. Returns the list's number.
    std::size_t Add(IDs ids) {
        lists_.push_back(std::move(ids));
        return lists_.size() - 1;
    }
    /// Forgets the lists. No statement may be reading them.
    void Clear() { lists_.clear(); }
    /// Null for a number that no list has.
    const IDs* Find(std::int64_t number) const {
        const bool isThere = number >= 0 && number < static_cast<std::int64_t>(lists_.size());
        return isThere ? &lists_[static_cast<std::size_t>(number)] : nullptr;
    }

  private:
    std::deque<IDs> lists_;  // lists that are being read stay where they are when one is added
};

}  // namespace snippetarium
