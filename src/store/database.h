#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "engine/command.h"
#include "engine/connection.h"
#include "engine/provider.h"
#include "engine/recordset.h"
#include "support/error_reporter.h"
#include "support/file_lock.h"
#include "support/host.h"

namespace snippetarium {

/// The catalogue's file and, beside it, the one that a compaction writes.
inline constexpr std::string_view kCatalogueFileName = "QRT_SN.mde";
inline constexpr std::string_view kCompactionFileName = "Q1R1T_SN1.mde";
/// Held, beside the catalogue, by the program that may write (store/catalogue_file.h).
inline constexpr std::string_view kWriterLockFileName = "QRT_SN.lock";

/// The catalogue as the program has it open for one run: the connection, the command that all named
/// queries share, the statement that ran last, and the world it reports to. Everything that reads
/// or changes the catalogue is a free function that takes it; nothing else opens a connection.
class Database {
  public:
    /// `programFolder`: a platform path, as the platform reports it. The host must outlive this.
    Database(const Host& host, ProviderRegistry providers, std::string programFolder);
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const Host& GetHost() const { return host_; }
    ErrorReporter& Reporter() { return host_.reporter; }
    Connection& GetConnection() { return connection_; }
    Command& SharedCommand() { return command_; }
    const std::string& ProgramFolder() const { return programFolder_; }
    /// The catalogue file's path, in the platform's form.
    std::string FilePath() const;

    /// The text of the statement that was executed last, or is being executed.
    const std::string& CurrentStatement() const { return currentStatement_; }
    void SetCurrentStatement(std::string_view sql);
    /// The text of the last search that was run, or is being run; reads in between leave it alone.
    const std::string& LastSearchStatement() const { return lastSearchStatement_; }
    void SetLastSearchStatement(std::string_view sql) { lastSearchStatement_ = sql; }
    /// Told of every statement before it runs. For tests and for tracing.
    void SetStatementObserver(std::function<void(std::string_view)> observer);

    /// What the last existence test or scalar read used; closed again afterwards.
    Recordset& LastRecordset() { return lastRecordset_; }

    /// Set when the program cannot go on because the database provider is missing; never cleared.
    bool IsShuttingDown() const { return isShuttingDown_; }
    void SetShuttingDown() { isShuttingDown_ = true; }
    /// What RunCompaction calls to end the program when that flag is set: closing the main window.
    void SetEndProgram(std::function<void()> endProgram) { endProgram_ = std::move(endProgram); }
    void EndProgram() const;

    /// True when another program was first and this one can only read.
    bool IsReadOnly() const { return mode_ == AccessMode::Read; }
    /// Asked for before opening: read only, whoever else is there.
    void SetMode(AccessMode mode) { wantedMode_ = mode; }

    /// The steps behind OpenCatalogue and CloseCatalogue; they throw.
    void Open();
    void Close();

    /// The right to write, taken out so that closing does not let go of it, and put back. A
    /// compaction keeps it while the catalogue is closed.
    std::optional<FileLock> TakeWriting() { return std::exchange(writing_, std::nullopt); }
    void PutWriting(std::optional<FileLock> writing) { writing_ = std::move(writing); }

  private:
    void AcquireWriting();

    Host host_;
    Connection connection_;
    Command command_;
    Recordset lastRecordset_;
    std::string programFolder_;
    std::string currentStatement_;
    std::string lastSearchStatement_;
    std::function<void(std::string_view)> observer_;
    std::function<void()> endProgram_;
    AccessMode wantedMode_ = AccessMode::ReadWrite;
    AccessMode mode_ = AccessMode::ReadWrite;
    std::optional<FileLock> writing_;
    bool isShuttingDown_ = false;
};

/// Opens the catalogue of the program folder. A missing provider is fatal: its message is shown and
/// the database told to shut down. Everything else that fails is reported, and the catalogue is not
/// open: a file that is missing, foreign, damaged, or of a newer version of the program.
///
/// Where another program has the catalogue open for writing, it is opened for reading only, and the
/// user is told: new IDs are read back as maxima, which only holds with one writer.
void OpenCatalogue(Database& db);
void CloseCatalogue(Database& db);

/// True when the statement yields at least one row, also one of nulls only. False on a failure.
bool RecordExists(Database& db, std::string_view sql);
/// The first field of the statement's first row; 0 without a row, for null, and on a failure.
std::int32_t ScalarLong(Database& db, std::string_view sql);
/// The largest value of a column; 0 for an empty table. Names go into the statement as they are.
std::int32_t MaxIDValue(Database& db, std::string_view column, std::string_view table);
/// Removes every parameter of the shared command, the last one first.
void ClearParameters(Database& db);
/// Executes an INSERT, UPDATE, DELETE or ALTER TABLE; returns the number of rows it changed.
std::int64_t ExecuteSQL(Database& db, std::string_view sql);
/// Ends the bulk writing of an operation that has done its work. What it wrote stands, also where
/// it could not be made safe: that is reported, and the operation goes on.
void FinishWriting(Database& db, BulkWriting& writing);

}  // namespace snippetarium
