#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace snippetarium {

class Database;

/// An application as an editor shows it and stores it again. Authors, dates and keywords have
/// editors of their own (editors/owner_details.h).
struct ApplicationRecord {
    /// 0: not stored yet.
    std::int32_t appID = 0;
    std::string name = {};
    /// Stored with the catalogue's separators, whichever were typed.
    std::string path = {};
    std::string version = {};
    std::string comment = {};

    bool operator==(const ApplicationRecord&) const = default;
};

/// Nothing where there is no such application, and on a failure.
std::optional<ApplicationRecord> LoadApplicationRecord(Database& db, std::int32_t appID);

/// Whether the record may be stored. Where not, the user has been told why. The name is tested only
/// where it changed.
bool CheckApplicationRecord(Database& db, const ApplicationRecord& record);

/// Adds the application, or writes its fields anew; its authors, dates and keywords stay. To be
/// checked before. Returns its ID; 0 where it is gone, and on a failure.
std::int32_t SaveApplicationRecord(Database& db, const ApplicationRecord& record);

/// The same; false where that gives 0. A new record gets its ID.
bool StoreApplicationRecord(Database& db, ApplicationRecord& record);

}  // namespace snippetarium
