#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace snippetarium {

struct CloseDatabase {
    void operator()(sqlite3* database) const;
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const;
};
using DatabaseHandle = std::unique_ptr<sqlite3, CloseDatabase>;
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

enum class OpenFlag : std::uint8_t {
    Read,
    /// For a file that nobody can change: without locks and side files.
    ReadUnchanging,
    ReadWrite,
    Create,
};

/// Opens a database file with the catalogue's text comparison installed, nothing else set. Throws
/// EngineError.
DatabaseHandle OpenDatabase(const std::string& path, OpenFlag flag);

/// Turns a result code of the library into an EngineError and throws it. The text names the cause
/// in the user's terms; the library's own words follow where they help to find a fault.
[[noreturn]] void ThrowEngineError(sqlite3* database, int resultCode);

/// Prepares one statement; nothing may stand behind it. Throws EngineError.
StatementHandle PrepareStatement(sqlite3* database, std::string_view sql);

/// Runs texts of our own, several statements if need be, and forgets the rows.
void RunStatements(sqlite3* database, const std::string& sql);

/// The first field of a statement's first row as text, empty without one. For texts of our own.
std::string ScalarText(sqlite3* database, std::string_view sql);

}  // namespace snippetarium
