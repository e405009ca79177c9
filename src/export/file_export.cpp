#include <utility>

#include "export/export_job.h"
#include "export/export_path.h"
#include "export/export_questions.h"
#include "export/writer.h"
#include "store/database.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "support/error.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNoExtension = "Please enter a file name with extention.";

/// The place of the file that a class was imported from; empty where that is not known.
std::string SourceOfClass(Database& db, std::int32_t classID) {
    const std::string folder = AppPathByID(db, AppIDByClassID(db, classID));
    const std::string entry = ClassPathInAppByClassID(db, classID);
    return folder.empty() || entry.empty() ? std::string() : JoinPath(folder, entry);
}

/// An export into one file: what class and procedure have in common.
class OneFileExport {
  public:
    OneFileExport(Database& db, FileSystem& files, const FileExport& request)
        : db_(db),
          files_(files),
          request_(request),
          path_(JoinPath(request.destinationFolder, request.fileName)) {}

    /// `kind` is the word of the closing message; `write(path, mode)` gives a WriteResult.
    template <typename Write>
    ExportResult Run(std::string_view kind, std::int32_t classID, Write write) {
        if (FileExtension(request_.fileName).empty()) {
            ShowInformation(Messages(), kNoExtension, kInformationTitle);
            return {.outcome = ExportOutcome::Refused};
        }
        RefuseCatalogueFile(files_, db_.ProgramFolder(), path_);
        switch (Choose(classID)) {
            case FileChoice::Cancel:
                return {.outcome = ExportOutcome::Cancelled};
            case FileChoice::Skip:
                return {.outcome = ExportOutcome::Finished,
                        .problems = {AlreadyExists(request_.fileName)}};
            case FileChoice::Append:
                return Written(kind, write, OutputMode::Append);
            case FileChoice::Replace:
                break;
        }
        return Written(kind, write, OutputMode::Replace);
    }

  private:
    MessageBoxes& Messages() { return db_.GetHost().messages; }

    FileChoice Choose(std::int32_t classID) {
        if (IsSamePlace(files_, path_, SourceOfClass(db_, classID)) &&
            !MayOverwriteSource(Messages(), SourceKind::OneFile)) {
            return FileChoice::Cancel;
        }
        if (!files_.FileExists(path_)) return FileChoice::Replace;
        return ChooseForExisting(Messages(), request_.fileName, request_.existing);
    }

    template <typename Write>
    ExportResult Written(std::string_view kind, Write write, OutputMode mode) {
        if (const auto folder = ParentFolder(path_); !folder.empty()) files_.MakeFolders(folder);
        WriteResult written = write(path_, mode);
        if (written.remarks.empty()) {
            ShowInformation(Messages(),
                            "The " + std::string(kind) + " has been successfully exported.",
                            kInformationTitle);
        }
        return {.outcome = ExportOutcome::Finished,
                .exported = {ToPlatformPath(path_)},
                .problems = std::move(written.remarks)};
    }

    Database& db_;
    FileSystem& files_;
    const FileExport& request_;
    std::string path_;
};

}  // namespace

ExportResult ExportClass(Database& db, FileSystem& files, const FileExport& request) {
    return Guarded(db.Reporter(), Procedure::ExportClass, [&] {
        const ClassFile file = ReadClassFile(db, request.id);
        return OneFileExport(db, files, request)
            .Run("class", file.classID, [&](std::string_view path, OutputMode mode) {
                return WriteClassFile(db, files, path, file, mode);
            });
    });
}

ExportResult ExportProcedure(Database& db, FileSystem& files, const FileExport& request) {
    return Guarded(db.Reporter(), Procedure::ExportProcedure, [&] {
        const Recordset row = AppIDClassIDRSByCodeID(db, request.id);
        if (row.EndOfFile()) throw NoSuchRecord("procedure", request.id);
        return OneFileExport(db, files, request)
            .Run("code", row["classID"].Long(), [&](std::string_view path, OutputMode mode) {
                return WriteProcedureFile(db, files, path, request.id, mode);
            });
    });
}

}  // namespace snippetarium
