#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

class Database;

// Writes of applications. They write what they are given: whether a name may be used is asked
// before (store/name_rules.h).

struct ApplicationFields {
    /// Cut to 255 characters.
    std::string name = {};
    std::string path = {};
    std::string comment = {};
    std::string version = {};
    /// Replaces the application's dates, unless its first entry is empty (store/date_links.h).
    std::vector<std::string> dates = {};
    /// 0 where the application has no keywords, or keeps those it has.
    std::int32_t keywordID = 0;
};

/// The new application's ID; 0 on a failure.
std::int32_t AddApplication(Database& db, const ApplicationFields& fields);
/// An empty text becomes null. False, with nothing written, where there is no such application; on
/// a failure too.
bool UpdateApplication(Database& db, std::int32_t appID, const ApplicationFields& fields);
/// False where there is no such application, and on a failure.
bool RenameApplication(Database& db, std::int32_t appID, std::string_view name);

}  // namespace snippetarium
