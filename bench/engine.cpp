// What the engine's layer costs: named queries by ID, and the inserts of an import beside the same
// inserts through the bare library, in one run on one disk.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <string>

#include "tests/engine/test_catalogue.h"

namespace snippetarium::test {
namespace {

constexpr int kRows = 100'000;
const std::string kOneKilobyte(1024, 'x');

void FillWithCodes(Connection& connection) {
    connection.RunScript(
        "WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < " +
        std::to_string(kRows) +
        ") INSERT INTO tblCode SELECT i, 'Procedure ' || i, 'Sub P()', i / 20 FROM n;");
}

void NamedQueryById(benchmark::State& state) {
    TestCatalogue catalogue;
    FillWithCodes(catalogue.connection);
    Command command;
    command.SetActiveConnection(&catalogue.connection);
    std::int32_t id = 1;
    for (auto _ : state) {
        id = (id * 7919) % kRows + 1;
        command.SetText("qryCodeNameByID");
        command.Append(Parameter::Long("codeID", id));
        const Recordset row = command.Execute();
        benchmark::DoNotOptimize(row[std::size_t{0}].TextView());
        command.DeleteParameter(0);
    }
}
BENCHMARK(NamedQueryById)->Unit(benchmark::kMicrosecond);

void InsertThroughTheConnection(benchmark::State& state, WriteMode mode) {
    TestCatalogue catalogue;
    catalogue.connection.SetWriteMode(mode);
    int i = 0;
    for (auto _ : state) {
        ++i;
        catalogue.connection.ExecuteAction(
            "INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('P" + std::to_string(i) +
            "', '" + kOneKilobyte + "', " + std::to_string(i / 20) + ")");
    }
    state.SetItemsProcessed(state.iterations());
}

/// The same file, settings and rows; the statement prepared once, the values bound.
void InsertThroughTheLibrary(benchmark::State& state, WriteMode mode) {
    TestCatalogue catalogue;
    catalogue.connection.Close();
    const DatabaseHandle database = OpenDatabase(catalogue.Path(), OpenFlag::ReadWrite);
    RunStatements(database.get(),
                  "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 1000; "
                  "PRAGMA secure_delete = OFF; PRAGMA cache_size = -65536");
    RunStatements(database.get(), mode == WriteMode::Bulk ? "PRAGMA synchronous = NORMAL"
                                                          : "PRAGMA synchronous = FULL");
    const StatementHandle insert = PrepareStatement(
        database.get(), "INSERT INTO tblCode (codeName, code, classID) VALUES (?1, ?2, ?3)");
    int i = 0;
    for (auto _ : state) {
        const std::string name = "P" + std::to_string(++i);
        sqlite3_bind_text(insert.get(), 1, name.data(), static_cast<int>(name.size()),
                          SQLITE_STATIC);
        sqlite3_bind_text(insert.get(), 2, kOneKilobyte.data(),
                          static_cast<int>(kOneKilobyte.size()), SQLITE_STATIC);
        sqlite3_bind_int(insert.get(), 3, i / 20);
        if (sqlite3_step(insert.get()) != SQLITE_DONE) state.SkipWithError("insert failed");
        sqlite3_reset(insert.get());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(InsertThroughTheLibrary, Bulk, WriteMode::Bulk)->Iterations(50'000);
BENCHMARK_CAPTURE(InsertThroughTheConnection, Bulk, WriteMode::Bulk)->Iterations(50'000);
BENCHMARK_CAPTURE(InsertThroughTheLibrary, EachStatement, WriteMode::EachStatement)
    ->Iterations(5'000);
BENCHMARK_CAPTURE(InsertThroughTheConnection, EachStatement, WriteMode::EachStatement)
    ->Iterations(5'000);

}  // namespace
}  // namespace snippetarium::test

BENCHMARK_MAIN();
