#include "store/migration.h"

#include <algorithm>
#include <string>
#include <vector>

#include "engine/engine_error.h"
#include "store/backup.h"
#include "store/catalogue_content.h"
#include "store/database.h"

namespace snippetarium {

namespace {

constexpr std::int32_t kFirstVersion = 1;

/// One step for each version before this program's.
std::vector<MigrationStep> Steps() {
    std::vector<MigrationStep> steps;
    for (std::int32_t from = kFirstVersion; from < kCatalogueVersion; ++from)
        steps.push_back({from, MigrationScript(from)});
    return steps;
}

[[noreturn]] void RefuseReadOnly(const Database& db, std::int32_t version,
                                 std::int32_t programVersion) {
    throw EngineError(
        EngineErrorCode::ReadOnly,
        "The catalogue '" + db.FilePath() + "' was made by an older Snippetarium (file version " +
            std::to_string(version) + ", this program works with " +
            std::to_string(programVersion) +
            "). It must be opened for writing once, so that it is brought up to date: "
            "close other programs that use it and open it where it can be written.");
}

const MigrationStep& FindStep(std::span<const MigrationStep> steps, std::int32_t from) {
    const auto step = std::find_if(steps.begin(), steps.end(), [&](const MigrationStep& candidate) {
        return candidate.from == from;
    });
    if (step != steps.end()) return *step;
    throw EngineError(EngineErrorCode::UnrecognisedFormat,
                      "The catalogue has the file version " + std::to_string(from) +
                          ", which this program cannot bring up to date.");
}

std::string BackUpBefore(Database& db) {
    try {
        return WriteBackup(db, BackupReason::Migration);
    } catch (const Error& error) {
        throw Error(error.Number(),
                    "The catalogue is of an older version. It was not brought up to date, because "
                    "the backup that is made before failed: " +
                        error.Description());
    }
}

void RunStep(Database& db, const MigrationStep& step, const std::string& backup) {
    const std::string next = std::to_string(step.from + 1);
    try {
        db.GetConnection().RunScript(std::string(step.script) + "\n;PRAGMA user_version = " + next);
    } catch (const Error& error) {
        throw Error(error.Number(),
                    "The catalogue could not be brought from file version " +
                        std::to_string(step.from) + " to " + next + ": " + error.Description() +
                        " It stays at the older version. A backup is in '" + backup + "'.");
    }
}

void RunSteps(Database& db, std::int32_t version, std::int32_t programVersion,
              std::span<const MigrationStep> steps) {
    for (std::int32_t from = version; from < programVersion; ++from)
        FindStep(steps, from);  // all of them are there, or nothing is begun
    const std::string backup = BackUpBefore(db);
    for (std::int32_t from = version; from < programVersion; ++from)
        RunStep(db, FindStep(steps, from), backup);
}

bool HasThisProgramsQueries(Connection& connection) {
    std::vector<QueryText> stored;
    Recordset row = connection.Execute("SELECT name, parameters, body FROM tblNamedQuery");
    for (; !row.EndOfFile(); row.MoveNext()) {
        stored.push_back({row["name"].Text(), row["parameters"].Text(), row["body"].Text()});
    }
    std::vector<QueryText> queries = StoredQueryTexts();
    std::ranges::sort(stored, {}, &QueryText::name);
    std::ranges::sort(queries, {}, &QueryText::name);
    return stored == queries;
}

}  // namespace

FileVersions OpenableVersions() {
    return {kFirstVersion, kCatalogueVersion};
}

void BringUpToDate(Database& db) {
    BringUpToDate(db, kCatalogueVersion, Steps());
}

void BringUpToDate(Database& db, std::int32_t programVersion,
                   std::span<const MigrationStep> steps) {
    const std::int32_t version = db.GetConnection().UserVersion();
    if (version < programVersion) {
        if (db.IsReadOnly()) RefuseReadOnly(db, version, programVersion);
        RunSteps(db, version, programVersion, steps);
    }
    if (db.IsReadOnly() || HasThisProgramsQueries(db.GetConnection())) return;
    db.GetConnection().RunScript(StoredQueriesScript());
}

}  // namespace snippetarium
