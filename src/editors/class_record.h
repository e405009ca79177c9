#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace snippetarium {

class Database;

/// A class (a module, a form or a page) as an editor shows it and stores it again. Authors, dates
/// and keywords have editors of their own (editors/owner_details.h).
struct ClassRecord {
    /// 0: not stored yet.
    std::int32_t classID = 0;
    std::string name = {};
    /// 0: the undefined application.
    std::int32_t appID = 0;
    std::int32_t languageID = 0;
    /// Stored with the catalogue's separators, whichever were typed.
    std::string pathInApp = {};
    /// The class's own text, in which a marker stands for each procedure (export/markers.h).
    std::string declarations = {};
    std::string comment = {};

    bool operator==(const ClassRecord&) const = default;
};

/// Nothing where there is no such class, and on a failure.
std::optional<ClassRecord> LoadClassRecord(Database& db, std::int32_t classID);

/// Whether the record may be stored. Where not, the user has been told why. The name is tested only
/// where it, or the application, changed.
bool CheckClassRecord(Database& db, const ClassRecord& record);

/// Adds the class, or writes its fields anew; its authors, dates and keywords stay. To be checked
/// before. Returns its ID; 0 where it is gone, and on a failure.
///
/// A comment that changed is framed as the language wants it (export/comment_header.h). Where
/// another language changes what markers look like, those in the text are written anew; a text of
/// which an import had to cut off the end cannot get such a language.
std::int32_t SaveClassRecord(Database& db, const ClassRecord& record);

/// The same; false where that gives 0. The record gets its ID with its row, also where a statement
/// behind that fails, as on a full disk: saved again, it goes on with that row.
bool StoreClassRecord(Database& db, ClassRecord& record);

/// The procedures that export will leave out, because the class's text has no marker of them.
/// Editing the text by hand is how that comes about.
std::vector<std::string> ProceduresWithoutMarker(Database& db, std::int32_t classID);

}  // namespace snippetarium
