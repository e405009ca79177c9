#pragma once

#include <cstdint>
#include <string>

#include "export/export_result.h"
#include "support/file_system.h"

namespace snippetarium {

class Database;

// Exports as the user asks for them: with the questions before files are replaced, the progress of
// a long one, and the message at the end. Each is guarded. Where there are problems, the message of
// success is left out, and the caller shows the report.
//
// Before anything is written the user is asked whether to overwrite the source that the
// application was imported from, where the destination is that very place. The catalogue's own
// files are never written over.

struct ApplicationExport {
    std::int32_t appID = 0;
    std::string destinationFolder = {};
    ExistingFile existing = ExistingFile::Ask;
};

/// Writes each class that has a path below the folder, under that path; folders are made as needed.
/// A class that cannot be written is a problem of the report, the first one also an error message,
/// and the others are still written.
ExportResult ExportApplication(Database& db, FileSystem& files, const ApplicationExport& request);

/// One class, or one procedure, into one file.
struct FileExport {
    std::int32_t id = 0;
    std::string destinationFolder = {};
    /// Has an extension, or the user is asked for one.
    std::string fileName = {};
    ExistingFile existing = ExistingFile::Ask;
};

ExportResult ExportClass(Database& db, FileSystem& files, const FileExport& request);
ExportResult ExportProcedure(Database& db, FileSystem& files, const FileExport& request);

}  // namespace snippetarium
