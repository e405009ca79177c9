#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "engine/bulk_log.h"
#include "engine/candidate_table.h"
#include "engine/jet_sql.h"
#include "engine/named_queries.h"
#include "engine/session.h"
#include "engine/sqlite_handle.h"
#include "engine/statement_cache.h"
#include "engine/statement_guard.h"
#include "engine/text_index_care.h"
#include "engine/text_lookup.h"

namespace snippetarium {

/// The catalogue's provider: a session on a file, through SQLite.
///
/// The file is in write-ahead mode while it is open. Statements are prepared once for each shape:
/// the translator takes the values out of action texts, and what remains is the key.
class SqliteSession final : public Session {
  public:
    explicit SqliteSession(const SessionOptions& options);
    ~SqliteSession() override;

    Recordset Query(std::string_view text) override;
    Recordset NamedQuery(std::string_view name, std::span<const Parameter> parameters) override;
    Recordset Search(std::string_view text) override;
    Recordset NamedSearch(std::string_view name, std::span<const Parameter> parameters) override;
    std::unique_ptr<RowCursor> OpenCursor(std::string_view sql,
                                          std::span<const BoundValue> values) override;
    std::int64_t Act(std::string_view text) override;
    void RunScript(std::string_view script) override;
    void RunTransaction(std::span<const BoundStatement> statements) override;
    bool Advance(TextScan& scan) override;
    bool TendTextIndex(TendingPace pace) override;
    std::int32_t UserVersion() override;
    void SetWriteMode(WriteMode mode) override;
    void Checkpoint() override;
    void SetCancelPoll(const CancelPoll* poll) override { cancel_.poll = poll; }

  private:
    /// Asks the user's poll only while a search runs: nothing else may be cut in half.
    struct SearchCancel final : CancelPoll {
        bool IsCancelled() const override { return isSearching && poll && poll->IsCancelled(); }
        const CancelPoll* poll = nullptr;
        bool isSearching = false;
    };

    void Open(const SessionOptions& options);
    void PrepareForWriting();
    static Translation TranslateQuery(std::string_view text);
    sqlite3_stmt* PrepareCached(std::string_view sql, StatementPurpose purpose);
    Recordset ReadRows(sqlite3_stmt* statement,
                       std::size_t mostBytes = std::numeric_limits<std::size_t>::max());
    template <typename Find>
    auto Searching(Find&& find);
    StatementHandle PrepareSearch(std::string_view text, std::string_view sql);
    std::int64_t RunAction(sqlite3_stmt* statement);
    template <typename Body>
    void InTransaction(Body&& body);
    void RunBound(const BoundStatement& statement);
    void NoteAction(std::string_view sql);

    std::string path_;
    SearchCancel cancel_;
    StatementGuard guard_;
    CandidateTable candidates_;
    DatabaseHandle database_;  // behind what it calls back, before what is prepared on it
    StatementCache statements_;
    NamedQueries namedQueries_;
    BulkLog bulkLog_;
    std::optional<TextLookup> lookup_;
    std::optional<TextIndexCare> care_;
    WriteMode writeMode_ = WriteMode::EachStatement;
};

}  // namespace snippetarium
