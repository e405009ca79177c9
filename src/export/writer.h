#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "export/text_output.h"
#include "support/error.h"

namespace snippetarium {

class Database;

// Source files out of the catalogue: a class with its procedures, or one procedure. They come in
// the form (encoding, line ends) of the file that the class was imported from, so that a class that
// nobody has changed comes back byte for byte. A file is written whole or not at all.

/// What of a class's row makes up its file.
struct ClassFile {
    std::int32_t classID = 0;
    std::int32_t languageID = 0;
    /// classDI, with the markers of the procedures.
    std::string classText = {};
    /// classComment; empty where there is none.
    std::string header = {};
};

/// The failure of an operation on a record that has been deleted. `kind` is "class" and the like.
Error NoSuchRecord(std::string_view kind, std::int32_t id);

/// The class as the catalogue has it. Throws Error where there is none.
ClassFile ReadClassFile(Database& db, std::int32_t classID);

struct WriteResult {
    /// False on a failure, which has been reported.
    bool isWritten = false;
    /// What the user should know of a file that was written.
    Remarks remarks = {};
};

/// Writes the class's text with its procedures in it and its header in the place that its language
/// wants (export/class_layout.h). Guarded.
WriteResult WriteClassFile(Database& db, FileSystem& files, std::string_view path,
                           const ClassFile& file, OutputMode mode);
/// The same for the work of a larger job: throws, and returns the remarks.
Remarks PutClassFile(Database& db, FileSystem& files, std::string_view path, const ClassFile& file,
                     OutputMode mode);

/// Writes the procedure's comment, if it has one, and its code, as they stand in a file of its
/// class. Guarded; a procedure that does not exist is a failure.
WriteResult WriteProcedureFile(Database& db, FileSystem& files, std::string_view path,
                               std::int32_t codeID, OutputMode mode);

}  // namespace snippetarium
