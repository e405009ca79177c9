#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

class Database;

// Writes of classes: modules, forms and pages among them. They write what they are given: whether a
// name may be used is asked before (store/name_rules.h).

struct ClassFields {
    /// Cut to 255 characters.
    std::string name = {};
    /// 0 puts the class under the undefined application.
    std::int32_t appID = 0;
    std::string pathInApp = {};
    /// The class's own text, in which a marker line stands for each procedure.
    std::string declarations = {};
    std::string comment = {};
    /// Replaces the class's dates, unless its first entry is empty (store/date_links.h).
    std::vector<std::string> dates = {};
    std::int32_t languageID = 0;
    /// 0 where the class has no keywords, or keeps those it has.
    std::int32_t keywordID = 0;
};

/// The new class's ID; 0 on a failure.
std::int32_t AddClass(Database& db, const ClassFields& fields);
/// An empty text becomes null. False, with nothing written, where there is no such class; on a
/// failure too.
bool UpdateClass(Database& db, std::int32_t classID, const ClassFields& fields);
/// False where there is no such class, and on a failure.
bool RenameClass(Database& db, std::int32_t classID, std::string_view name);

}  // namespace snippetarium
