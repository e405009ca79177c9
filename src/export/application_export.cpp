#include <map>

#include "export/export_job.h"
#include "export/export_path.h"
#include "export/export_questions.h"
#include "export/writer.h"
#include "store/database.h"
#include "store/job_progress.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "support/error.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::string_view kCaption = "Exporting application";
constexpr std::string_view kWithoutPath =
    "The classes listed below are not exported, because they do not have path.";
constexpr std::string_view kExported = "The application has been successfully exported.";
constexpr std::string_view kNothingToExport = "The application has no classes to export.";
constexpr std::string_view kNotCompleted = "Code export was not completed.";

class ApplicationJob {
  public:
    ApplicationJob(Database& db, FileSystem& files, const ApplicationExport& request)
        : db_(db),
          files_(files),
          request_(request),
          existing_(db.GetHost().messages, request.existing) {}

    ExportResult Run() {
        const Recordset application = ApplicationRSByID(db_, request_.appID);
        if (application.EndOfFile()) throw NoSuchRecord("application", request_.appID);
        result_.outcome = ExportOutcome::Cancelled;
        if (IsSamePlace(files_, request_.destinationFolder, application["appPath"].Text()) &&
            !MayOverwriteSource(Messages(), SourceKind::Application)) {
            return result_;
        }
        if (ExportClasses()) result_.outcome = ExportOutcome::Finished;
        ShowClosingMessages();
        return result_;
    }

  private:
    MessageBoxes& Messages() { return db_.GetHost().messages; }

    /// False when the user stopped it.
    bool ExportClasses() {
        JobProgress progress(db_.GetHost(), kCaption, JobProgress::Cancelling::Possible);
        Recordset row = ClassIDNameRSByAppID(db_, request_.appID);
        const auto count = static_cast<double>(row.RowCount());
        // Where this fails, every class would fail in the same words.
        if (!row.EndOfFile()) files_.MakeFolders(request_.destinationFolder);
        for (double done = 1; !row.EndOfFile(); row.MoveNext(), ++done) {
            progress.SetStage(row["className"].Text());
            if (!TryToExport(row["classID"].Long(), row["className"].Text())) return false;
            progress.Show(done / count);
            if (progress.IsCancelled()) return false;
        }
        return true;
    }

    /// A class that fails does not stop the others. One error message is enough: the report names
    /// them all. False when the user stopped the export.
    bool TryToExport(std::int32_t classID, const std::string& className) {
        try {
            return Export(classID, className);
        } catch (...) {
            const ErrorDetails failure = CurrentError();
            if (!hasReported_) db_.Reporter().ReportCurrent(Procedure::ExportApplication);
            hasReported_ = true;
            AddProblem(className, failure.description);
            return true;
        }
    }

    bool Export(std::int32_t classID, const std::string& className) {
        const std::string storedPath = ClassPathInAppByClassID(db_, classID);
        if (storedPath.empty()) {
            result_.classesWithoutPath.push_back(className);
            return true;
        }
        const ClassDestination target = TargetBelow(files_, request_.destinationFolder, storedPath);
        if (const std::string refusal = RefusalOf(target); !refusal.empty()) {
            AddProblem(className, "Its path '" + storedPath + "' " + refusal + ".");
            return true;
        }
        RefuseCatalogueFile(files_, db_.ProgramFolder(), target.path);
        const FileChoice choice = Choose(target.path, storedPath);
        if (choice == FileChoice::Cancel) return false;
        if (choice == FileChoice::Skip) {
            result_.problems.push_back(AlreadyExists(storedPath));
            return true;
        }
        Put(classID, target.path,
            choice == FileChoice::Append ? OutputMode::Append : OutputMode::Replace);
        writtenBy_.emplace(files_.RealPath(target.path), className);
        result_.exported.push_back(storedPath);
        return true;
    }

    /// What is wrong with the path of a class; empty for nothing. Two classes may have the same
    /// one, and the second must not undo the first.
    std::string RefusalOf(const ClassDestination& target) const {
        if (!target.refusal.empty()) return target.refusal;
        const auto other = writtenBy_.find(files_.RealPath(target.path));
        if (other == writtenBy_.end()) return {};
        return "is also that of the class '" + other->second + "', which has been written";
    }

    FileChoice Choose(const std::string& path, const std::string& storedPath) {
        return files_.FileExists(path) ? existing_.Choose(storedPath) : FileChoice::Replace;
    }

    void Put(std::int32_t classID, const std::string& path, OutputMode mode) {
        const ClassFile file = ReadClassFile(db_, classID);
        files_.MakeFolders(ParentFolder(path));
        for (const std::string& remark : PutClassFile(db_, files_, path, file, mode))
            result_.problems.push_back(remark);
    }

    void AddProblem(const std::string& className, const std::string& why) {
        ++result_.failures;
        result_.problems.push_back("The class '" + className + "' was not exported. " + why);
    }

    void ShowClosingMessages() {
        if (result_.outcome == ExportOutcome::Cancelled) return Show(kNotCompleted);
        if (!result_.classesWithoutPath.empty()) {
            std::string message(kWithoutPath);
            for (const std::string& name : result_.classesWithoutPath)
                message += "\r\n" + name;
            Show(message);
        }
        if (!result_.problems.empty()) return;
        if (!result_.exported.empty()) return Show(kExported);
        if (result_.classesWithoutPath.empty()) Show(kNothingToExport);
    }

    void Show(std::string_view message) { ShowInformation(Messages(), message, kInformationTitle); }

    Database& db_;
    FileSystem& files_;
    const ApplicationExport& request_;
    ExistingFilesChoice existing_;
    std::map<std::string, std::string> writtenBy_;  // the class of each file that was written
    bool hasReported_ = false;
    ExportResult result_;
};

}  // namespace

ExportResult ExportApplication(Database& db, FileSystem& files, const ApplicationExport& request) {
    return Guarded(db.Reporter(), Procedure::ExportApplication,
                   [&] { return ApplicationJob(db, files, request).Run(); });
}

}  // namespace snippetarium
