#include "engine/inspection.h"

#include <sqlite3.h>

#include <utility>

#include "engine/fetch_rows.h"
#include "engine/open_for_reading.h"

namespace snippetarium {

namespace {

constexpr int kStepsBetweenPolls = 20'000;

int IsCancelled(void* poll) {
    return static_cast<const CancelPoll*>(poll)->IsCancelled() ? 1 : 0;
}

DatabaseHandle FillInMemory(const std::string& script) {
    DatabaseHandle database = OpenDatabase(":memory:", OpenFlag::Create);
    RunStatements(database.get(), script);
    return database;
}

}  // namespace

Inspection::Inspection(DatabaseHandle database, const CancelPoll* poll)
    : database_(std::move(database)) {
    RunStatements(database_.get(), "PRAGMA cache_size = -65536; PRAGMA temp_store = MEMORY");
    snapshot_ = std::make_unique<ReadSnapshot>(database_.get());
    if (poll == nullptr) return;
    // The poll is only read; the library's interface merely has no const pointer for it.
    sqlite3_progress_handler(database_.get(), kStepsBetweenPolls, IsCancelled,
                             const_cast<CancelPoll*>(poll));
}

Inspection::Inspection(const std::string& path, const CancelPoll* poll)
    : Inspection(OpenForReading(path), poll) {}

Inspection Inspection::OfScript(const std::string& script) {
    return Inspection(FillInMemory(script), nullptr);
}

Recordset Inspection::Read(std::string_view sql) const {
    const StatementHandle statement = PrepareStatement(database_.get(), sql);
    return FetchRows(database_.get(), statement.get());
}

std::int64_t Inspection::ReadNumber(std::string_view sql) const {
    const Recordset rows = Read(sql);
    return rows.EndOfFile() ? 0 : rows[std::size_t{0}].Integer64();
}

}  // namespace snippetarium
