#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

class Database;

/// The text of a class, whole: with what its column does not take (kLongTextLimit) and tblOverlong
/// has.
struct ClassText {
    std::int32_t classID = 0;
    std::string text = {};
    /// Some of it is in tblOverlong.
    bool hasRest = false;
};

/// An empty text for a class that does not exist. To be called inside a guard.
ClassText ReadClassText(Database& db, std::int32_t classID);

/// What writes another text in the place of this one, to run in this order: where the program ends
/// between two, characters stand in both tables and not in neither. None where nothing changes.
std::vector<std::string> ClassTextStatements(const ClassText& stored, std::string_view text);

}  // namespace snippetarium
