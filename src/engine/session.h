#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/cancel_poll.h"
#include "engine/command.h"
#include "engine/file_version.h"
#include "engine/recordset.h"
#include "engine/row_cursor.h"
#include "engine/text_index.h"

namespace snippetarium {

class TextScan;

/// A statement of the program's own, in the engine's own SQL, with its values.
struct BoundStatement {
    std::string_view sql;
    std::vector<BoundValue> values = {};
};

enum class AccessMode : std::uint8_t { ReadWrite, Read };

/// How soon a change is safe from a power cut. Killing the program loses nothing in either mode.
enum class WriteMode : std::uint8_t {
    /// When the statement has returned. For what a person saves.
    EachStatement,
    /// At the next checkpoint, every few seconds. For imports and large deletions.
    Bulk,
};

/// What a connection string and the connection's properties say, in one place.
struct SessionOptions {
    /// The file; catalogue or platform separators.
    std::string dataSource;
    AccessMode mode = AccessMode::ReadWrite;
    /// Any other file is refused before a byte of it changes.
    FileVersions versions;
    /// What the text index knows of; must live as long as the session.
    std::span<const IndexedTable> textTables;
};

/// An open data source, as a provider offers it to a Connection. Every operation throws
/// EngineError. Statement texts are in the catalogue's dialect (engine/jet_sql.h), one statement a
/// text.
class Session {
  public:
    virtual ~Session() = default;

    /// Runs a SELECT, or a named query that takes no parameters.
    virtual Recordset Query(std::string_view text) = 0;
    virtual Recordset NamedQuery(std::string_view name, std::span<const Parameter> parameters) = 0;
    /// Runs a SELECT in which texts stand that a user typed: see engine/statement_guard.h for what
    /// it may do. Polls the cancel poll; throws Cancelled when that says so.
    virtual Recordset Search(std::string_view text) = 0;
    /// A named query that looks for a text: cancelled like Search.
    virtual Recordset NamedSearch(std::string_view name, std::span<const Parameter> parameters) = 0;
    /// Runs a SELECT of the program's own, in the engine's own SQL, and reads its rows as they
    /// come.
    virtual std::unique_ptr<RowCursor> OpenCursor(std::string_view sql,
                                                  std::span<const BoundValue> values) = 0;
    /// Runs an INSERT, UPDATE, DELETE or ALTER TABLE; returns the number of rows it changed.
    virtual std::int64_t Act(std::string_view text) = 0;
    /// Runs statements in the engine's own SQL, as they stand and as one transaction: all or
    /// nothing. For the program's own texts only: schema and migrations.
    virtual void RunScript(std::string_view script) = 0;
    /// Runs statements that change rows, as one transaction: all or nothing. Other than a script
    /// they cannot change the tables themselves, so what is prepared stays prepared: for what is
    /// written while a user works.
    virtual void RunTransaction(std::span<const BoundStatement> statements) = 0;
    /// Does a piece of a look-up in the text index: see TextScan.
    virtual bool Advance(TextScan& scan) = 0;
    /// Does some milliseconds of what the text index has to do, or as much as makes sense at once.
    /// Returns whether there is more to do. Once it has failed, there is not until the next
    /// opening.
    virtual bool TendTextIndex(TendingPace pace) = 0;
    /// The file's version.
    virtual std::int32_t UserVersion() = 0;

    /// Going back to EachStatement also makes safe what was written so far. Where that fails, the
    /// mode is set all the same.
    virtual void SetWriteMode(WriteMode mode) = 0;
    /// Makes everything written so far safe, and the file at hand the only one that matters. Where
    /// that fails nothing is lost: what was written is in the log beside the file, and the error
    /// says so.
    virtual void Checkpoint() = 0;
    /// Null: searches cannot be cancelled. The poll must live as long as it is set.
    virtual void SetCancelPoll(const CancelPoll* poll) = 0;
};

}  // namespace snippetarium
