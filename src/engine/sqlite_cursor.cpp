#include "engine/sqlite_cursor.h"

#include <sqlite3.h>

#include "engine/engine_error.h"
#include "engine/sqlite_handle.h"

namespace snippetarium {

namespace {

int BindValue(sqlite3_stmt* statement, int index, const BoundValue& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return sqlite3_bind_int64(statement, index, *number);
    const auto* text = std::get_if<std::string_view>(&value);
    if (text == nullptr) return sqlite3_bind_null(statement, index);
    // A text without an address would be taken for null.
    const char* const bytes = text->data() == nullptr ? "" : text->data();
    return sqlite3_bind_text64(statement, index, bytes, text->size(), SQLITE_STATIC, SQLITE_UTF8);
}

}  // namespace

void BindValues(sqlite3* database, sqlite3_stmt* statement, std::span<const BoundValue> values) {
    int index = 0;
    for (const BoundValue& value : values) {
        const int result = BindValue(statement, ++index, value);
        if (result != SQLITE_OK) ThrowEngineError(database, result);
    }
}

SqliteCursor::SqliteCursor(sqlite3* database, sqlite3_stmt* statement,
                           std::span<const BoundValue> values)
    : database_(database), statement_(statement), run_(statement) {
    if (sqlite3_stmt_readonly(statement) == 0) {
        throw EngineError(EngineErrorCode::NotAllowed, "A read must not change the catalogue.");
    }
    BindValues(database, statement, values);
}

bool SqliteCursor::Next() {
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW) return true;
    if (result != SQLITE_DONE) ThrowEngineError(database_, result);
    return false;
}

std::int64_t SqliteCursor::Number(std::size_t column) const {
    return sqlite3_column_int64(statement_, static_cast<int>(column));
}

std::string_view SqliteCursor::Text(std::size_t column) const {
    const void* bytes = sqlite3_column_blob(statement_, static_cast<int>(column));
    if (bytes == nullptr) return {};
    const int size = sqlite3_column_bytes(statement_, static_cast<int>(column));
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

}  // namespace snippetarium
