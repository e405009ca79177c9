#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/sqlite_handle.h"

namespace snippetarium::bench {

/// A statement that writes, prepared once and run with other values each time:
///
///     word.Number(7).Text("grid").Run();
class PreparedWrite {
  public:
    PreparedWrite(sqlite3* database, std::string_view sql)
        : statement_(PrepareStatement(database, sql)) {}

    PreparedWrite& Number(std::int64_t number) {
        sqlite3_bind_int64(statement_.get(), ++bound_, number);
        return *this;
    }
    PreparedWrite& NumberOrNull(std::int64_t number) {
        if (number != 0) return Number(number);
        sqlite3_bind_null(statement_.get(), ++bound_);
        return *this;
    }
    PreparedWrite& Text(const std::string& text) {
        sqlite3_bind_text64(statement_.get(), ++bound_, text.data(), text.size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8);
        return *this;
    }
    void Run() {
        const int result = sqlite3_step(statement_.get());
        if (result != SQLITE_DONE) ThrowEngineError(sqlite3_db_handle(statement_.get()), result);
        sqlite3_reset(statement_.get());
        bound_ = 0;
    }

  private:
    StatementHandle statement_;
    int bound_ = 0;
};

}  // namespace snippetarium::bench
