#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace snippetarium {

class Database;

/// A procedure as an editor shows it and stores it again. Authors, dates and keywords have editors
/// of their own (editors/owner_details.h).
struct CodeRecord {
    /// 0: not stored yet.
    std::int32_t codeID = 0;
    std::string name = {};
    /// 0: the undefined class.
    std::int32_t classID = 0;
    /// The procedure's own. 0 where it has none; saved so, it gets its class's.
    std::int32_t languageID = 0;
    std::string code = {};
    std::string comment = {};

    bool operator==(const CodeRecord&) const = default;
};

/// Nothing where there is no such procedure, and on a failure.
std::optional<CodeRecord> LoadCodeRecord(Database& db, std::int32_t codeID);

/// Whether the record may be stored. Where not, the user has been told why. The name is tested only
/// where it, or the class, changed.
bool CheckCodeRecord(Database& db, const CodeRecord& record);

/// Adds the procedure, or writes its fields anew; its authors, dates and keywords stay. To be
/// checked before. Returns its ID; 0 where it is gone, and on a failure.
///
/// A comment that changed is framed as the class's language wants it (export/comment_header.h). The
/// marker in the class's text follows the name, and the procedure into another class.
std::int32_t SaveCodeRecord(Database& db, const CodeRecord& record);

/// The same; false where that gives 0. The record gets its ID with its row, also where a statement
/// behind that fails, as on a full disk: saved again, it goes on with that row.
bool StoreCodeRecord(Database& db, CodeRecord& record);

}  // namespace snippetarium
