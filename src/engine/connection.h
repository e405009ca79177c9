#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "engine/provider.h"
#include "engine/session.h"

namespace snippetarium {

/// Where a recordset's rows are kept. Only the client side is offered: see Recordset.
enum class CursorLocation : std::uint8_t { Client = 3 };

/// The link to one catalogue file. Set the connection string and the access mode, then open.
///
/// Except for Open and IsOpen, everything throws EngineError (ObjectClosed) while it is closed; the
/// other failures are those of Session.
class Connection {
  public:
    /// The registry is copied.
    explicit Connection(ProviderRegistry providers) : providers_(std::move(providers)) {}

    void SetConnectionString(std::string_view text) { connectionString_ = text; }
    void SetCursorLocation(CursorLocation location) { cursorLocation_ = location; }
    CursorLocation GetCursorLocation() const { return cursorLocation_; }
    void SetMode(AccessMode mode) { mode_ = mode; }
    /// Files of other versions are refused.
    void SetVersions(const FileVersions& versions) { versions_ = versions; }

    /// What the text index knows of, for as long as the connection lives. Without it there is none.
    void SetTextTables(std::span<const IndexedTable> tables) { textTables_ = tables; }

    /// Throws EngineError: ObjectOpen when it is open already, ProviderNotFound, FileNotFound,
    /// UnrecognisedFormat, Corrupted, ReadOnly, CannotLock, CannotOpen. A refused file stays byte
    /// for byte as it was.
    void Open();
    /// Closing what is closed does nothing. At rest the catalogue is one file again.
    void Close() { session_.reset(); }
    bool IsOpen() const { return session_ != nullptr; }

    Recordset Execute(std::string_view text) { return OpenSession().Query(text); }
    Recordset ExecuteNamedQuery(std::string_view name, std::span<const Parameter> parameters) {
        return OpenSession().NamedQuery(name, parameters);
    }
    Recordset ExecuteSearch(std::string_view text) { return OpenSession().Search(text); }
    Recordset ExecuteNamedSearch(std::string_view name, std::span<const Parameter> parameters) {
        return OpenSession().NamedSearch(name, parameters);
    }
    template <typename... Values>
    std::unique_ptr<RowCursor> OpenCursor(std::string_view sql, const Values&... values) {
        const std::array<BoundValue, sizeof...(Values)> bound{BoundValue(values)...};
        return OpenSession().OpenCursor(sql, bound);
    }
    std::int64_t ExecuteAction(std::string_view text) { return OpenSession().Act(text); }
    void RunScript(std::string_view script) { OpenSession().RunScript(script); }
    void RunTransaction(std::span<const BoundStatement> statements) {
        OpenSession().RunTransaction(statements);
    }
    std::int32_t UserVersion() { return OpenSession().UserVersion(); }
    void SetWriteMode(WriteMode mode);
    WriteMode GetWriteMode() const { return writeMode_; }
    bool Advance(TextScan& scan) { return OpenSession().Advance(scan); }
    bool TendTextIndex(TendingPace pace) { return OpenSession().TendTextIndex(pace); }
    void Checkpoint() { OpenSession().Checkpoint(); }
    void SetCancelPoll(const CancelPoll* poll) { OpenSession().SetCancelPoll(poll); }

  private:
    Session& OpenSession() const;

    ProviderRegistry providers_;
    std::string connectionString_;
    CursorLocation cursorLocation_ = CursorLocation::Client;
    AccessMode mode_ = AccessMode::ReadWrite;
    FileVersions versions_;
    std::span<const IndexedTable> textTables_;
    std::unique_ptr<Session> session_;
    WriteMode writeMode_ = WriteMode::EachStatement;
};

/// Bulk writing on a connection. Finish makes safe what was written and goes back to the mode for
/// single edits; where it throws, what was written stands (Session::Checkpoint). An object that
/// dies unfinished, because the job failed, does the same but tells of no failure: what could not
/// be made safe then is so with the next single edit.
///
/// One that is made while another is at work, by a job within a job, leaves all that to the outer
/// one, which must outlive it.
class BulkWriting {
  public:
    explicit BulkWriting(Connection& connection);
    ~BulkWriting();
    BulkWriting(const BulkWriting&) = delete;
    BulkWriting& operator=(const BulkWriting&) = delete;
    void Finish();

  private:
    Connection& connection_;
    /// The job is over, or the mode is another's to end.
    bool isDone_ = false;
};

}  // namespace snippetarium
