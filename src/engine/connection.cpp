#include "engine/connection.h"

#include <utility>

#include "engine/connection_string.h"
#include "engine/engine_error.h"

namespace snippetarium {

void Connection::Open() {
    if (IsOpen()) {
        throw EngineError(EngineErrorCode::ObjectOpen, "The connection is already open.");
    }
    const ConnectionStringParts parts = ParseConnectionString(connectionString_);
    session_ = providers_.Open(parts.provider, {parts.dataSource, mode_, versions_, textTables_});
    writeMode_ = WriteMode::EachStatement;
}

void Connection::SetWriteMode(WriteMode mode) {
    Session& session = OpenSession();
    writeMode_ = mode;
    session.SetWriteMode(mode);
}

Session& Connection::OpenSession() const {
    if (!IsOpen()) {
        throw EngineError(
            EngineErrorCode::ObjectClosed,
            "The catalogue is not open, so nothing can be read from it or saved in it.");
    }
    return *session_;
}

BulkWriting::BulkWriting(Connection& connection)
    : connection_(connection), isDone_(connection.GetWriteMode() == WriteMode::Bulk) {
    if (!isDone_) connection_.SetWriteMode(WriteMode::Bulk);
}

BulkWriting::~BulkWriting() {
    if (isDone_ || !connection_.IsOpen()) return;
    try {
        connection_.SetWriteMode(WriteMode::EachStatement);
    } catch (const EngineError&) {
        // The job that used this object is failing already, and a destructor cannot tell of a
        // second failure. The mode for single edits holds all the same (SetWriteMode).
    }
}

void BulkWriting::Finish() {
    if (std::exchange(isDone_, true)) return;
    connection_.SetWriteMode(WriteMode::EachStatement);
}

}  // namespace snippetarium
