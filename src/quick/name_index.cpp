#include "quick/name_index.h"

#include <string_view>

#include "store/database.h"

namespace snippetarium {

namespace {

/// The text behind every name that begins with this one.
std::string Behind(const std::string& beginning) {
    return beginning + "\U0010FFFF";
}

}  // namespace

bool FindExactNames(Database& db, const std::string& word, FoundRows& found) {
    constexpr std::size_t kMostRows = 1000;
    constexpr std::string_view kEqual = "SELECT codeID, codeName FROM tblCode WHERE codeName = ?1";
    constexpr std::string_view kBetween =
        "SELECT codeID, codeName FROM tblCode WHERE codeName >= ?1 AND codeName < ?2";
    const auto take = [&](RowCursor& row) {
        while (found.size() <= kMostRows && row.Next()) {
            found.push_back({QuickKind::Procedure, QuickTier::ExactName,
                             static_cast<std::int32_t>(row.Number(0)),
                             static_cast<std::uint32_t>(row.Text(1).size())});
        }
        return found.size() <= kMostRows;
    };
    if (!take(*db.GetConnection().OpenCursor(kEqual, std::string_view(word)))) return false;
    for (const std::string_view mark : {"(", " ", "\t"}) {
        const std::string first = word + std::string(mark);
        const std::string behind = Behind(first);
        const auto row = db.GetConnection().OpenCursor(kBetween, std::string_view(first),
                                                       std::string_view(behind));
        if (!take(*row)) return false;
    }
    return true;
}

bool HasNameThatBegins(Database& db, const std::string& beginning) {
    constexpr std::string_view kAny =
        "SELECT 1 FROM tblCode WHERE codeName >= ?1 AND codeName < ?2 LIMIT 1";
    const std::string behind = Behind(beginning);
    return db.GetConnection()
        .OpenCursor(kAny, std::string_view(beginning), std::string_view(behind))
        ->Next();
}

}  // namespace snippetarium
