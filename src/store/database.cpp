#include "store/database.h"

#include <utility>

#include "engine/engine_error.h"
#include "store/catalogue_file.h"
#include "store/cut_short_imports.h"
#include "store/emptied_classes.h"
#include "store/migration.h"
#include "store/packed_names.h"
#include "store/text_index.h"
#include "store/trash.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::string_view kProviderMissing =
    "Connection to Snippetarium database failed.\r\n\r\n"
    "MS Access database provider cannot be found.  It may not have been installed or may have been "
    "removed.  Please back up database (QRT_SN.mde in program folder) and re-install MS Access or "
    "Snippetarium.\r\n\r\n"
    "Snippetarium will now shut down.";

constexpr std::string_view kOpenForReadingOnly =
    "The catalogue is in use by another Snippetarium, so it has been opened for reading only: you "
    "can look at it, search it and export from it, but nothing can be changed.\r\n\r\n"
    "To change it, close the other program and start this one again.";

}  // namespace

Database::Database(const Host& host, ProviderRegistry providers, std::string programFolder)
    : host_(host), connection_(std::move(providers)), programFolder_(std::move(programFolder)) {}

std::string Database::FilePath() const {
    return ToPlatformPath(JoinPath(programFolder_, kCatalogueFileName));
}

void Database::SetCurrentStatement(std::string_view sql) {
    currentStatement_ = sql;
    if (observer_) observer_(currentStatement_);
}

void Database::SetStatementObserver(std::function<void(std::string_view)> observer) {
    observer_ = std::move(observer);
}

void Database::EndProgram() const {
    if (endProgram_) endProgram_();
}

/// Decides whether this program may write: the first one may, and keeps the lock until it closes.
void Database::AcquireWriting() {
    mode_ = wantedMode_;
    if (mode_ == AccessMode::Read || writing_) return;
    writing_ = FileLock::TryAcquire(WriterLockPath(programFolder_));
    if (!writing_) mode_ = AccessMode::Read;
}

void Database::Open() {
    connection_.SetConnectionString("Provider=" + std::string(kCatalogueProvider) +
                                    ";Data Source=" + programFolder_ + "\\" +
                                    std::string(kCatalogueFileName));
    connection_.SetCursorLocation(CursorLocation::Client);
    try {
        AcquireWriting();
        connection_.SetMode(mode_);
        connection_.SetVersions(OpenableVersions());
        connection_.SetTextTables(IndexedTexts());
        connection_.Open();
        BringUpToDate(*this);
        if (mode_ == AccessMode::ReadWrite) {
            // A deletion that was killed leaves IDs here, and the next one would take them for its
            // own, as IDs of other things.
            connection_.ExecuteAction("DELETE FROM tblIDsToDelete WHERE true");
            ForgetClassesToEmpty(*this);
            ListCutShortClass(*this);
            PurgeTrash(*this, host_.clock.Now());
            PackNames(*this);
        }
    } catch (...) {
        Close();
        throw;
    }
    command_.SetActiveConnection(&connection_);
    if (wantedMode_ == AccessMode::ReadWrite && mode_ == AccessMode::Read) {
        ShowInformation(host_.messages, kOpenForReadingOnly, kInformationTitle);
    }
}

void Database::Close() {
    lastRecordset_.Close();
    connection_.Close();
    writing_.reset();  // last: until the file is closed nobody else may start writing
}

void OpenCatalogue(Database& db) {
    Guarded(db.Reporter(), Procedure::OpenCatalogue, [&] {
        try {
            db.Open();
        } catch (const EngineError& error) {
            if (error.Code() != EngineErrorCode::ProviderNotFound) throw;
            db.SetShuttingDown();
            ShowErrorMessage(db.GetHost().messages, kProviderMissing, kFatalTitle);
        }
    });
}

void CloseCatalogue(Database& db) {
    Guarded(db.Reporter(), Procedure::CloseCatalogue, [&] { db.Close(); });
}

bool RecordExists(Database& db, std::string_view sql) {
    return Guarded(db.Reporter(), Procedure::RecordExists, [&] {
        db.SetCurrentStatement(sql);
        db.LastRecordset().Close();
        // One row is enough, where a recordset would take all of them.
        return db.GetConnection().OpenCursor(db.CurrentStatement())->Next();
    });
}

std::int32_t ScalarLong(Database& db, std::string_view sql) {
    return Guarded(db.Reporter(), Procedure::ScalarLong, [&] {
        db.SetCurrentStatement(sql);
        Recordset& row = db.LastRecordset() = db.GetConnection().Execute(db.CurrentStatement());
        const std::int32_t value = row.EndOfFile() ? 0 : row[std::size_t{0}].Long();
        row.Close();
        return value;
    });
}

std::int32_t MaxIDValue(Database& db, std::string_view column, std::string_view table) {
    return Guarded(db.Reporter(), Procedure::MaxIDValue, [&] {
        std::string sql = "SELECT max(";
        sql.append(column).append(") FROM ").append(table);
        return ScalarLong(db, sql);
    });
}

void ClearParameters(Database& db) {
    Guarded(db.Reporter(), Procedure::ClearParameters, [&] {
        Command& command = db.SharedCommand();
        while (command.ParameterCount() > 0)
            command.DeleteParameter(command.ParameterCount() - 1);
    });
}

std::int64_t ExecuteSQL(Database& db, std::string_view sql) {
    return Guarded(db.Reporter(), Procedure::ExecuteSQL, [&] {
        db.SetCurrentStatement(sql);
        return db.GetConnection().ExecuteAction(db.CurrentStatement());
    });
}

void FinishWriting(Database& db, BulkWriting& writing) {
    GuardedStage(db.Reporter(), Procedure::FinishWriting, [&] { writing.Finish(); });
}

}  // namespace snippetarium
