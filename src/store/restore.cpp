#include "store/restore.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "engine/file_version.h"
#include "engine/inspection.h"
#include "engine/integrity.h"
#include "engine/online_copy.h"
#include "store/backup.h"
#include "store/catalogue_content.h"
#include "store/catalogue_exchange.h"
#include "store/job_progress.h"
#include "store/migration.h"
#include "store/names.h"
#include "store/permanent_rows.h"

namespace snippetarium {

namespace {

/// Tables that the first version did not have, by the beginning of their names.
struct LaterTables {
    std::string_view prefix;
    std::int32_t firstVersion = 0;
};

// clang-format off
constexpr LaterTables kLaterTables[] = {
    {"tblTrash", 2},
    {"tblClassesToEmpty", 3},
    {"tblText", 3},
    {"tblNameBlock", 3},
    {"tblDraft", 4},
};
// clang-format on

std::int32_t ReadVersion(const std::string& path) {
    return static_cast<std::int32_t>(Inspection(path).ReadNumber("PRAGMA user_version"));
}

/// A file whose end is missing cannot be opened, but most of its rows can be read all the same.
std::int32_t ReadVersionOfDamaged(const std::string& path) {
    try {
        return ReadVersion(path);
    } catch (const EngineError& error) {
        if (error.Code() != EngineErrorCode::Corrupted) throw;
        return VersionInHeader(path);
    }
}

void RequireCatalogue(const std::string& path) {
    CheckDatabaseFile(path, AccessMode::Read);
    RequireKnownVersion(path, ReadVersion(path), OpenableVersions());
}

void RequireSound(const std::string& copy, const std::string& backup, const CancelPoll& poll) {
    const std::vector<std::string> problems = FindIntegrityProblems(copy, &poll);
    if (problems.empty()) return;
    throw EngineError(EngineErrorCode::Corrupted,
                      "The backup '" + backup + "' is damaged (" + problems.front() +
                          "). The catalogue was left as it was. Choose another backup.");
}

void RequireOtherFile(const std::string& backup, const std::string& catalogue) {
    std::error_code error;
    if (!std::filesystem::equivalent(backup, catalogue, error)) return;
    throw Error(error_number::kInvalidCall,
                "The file '" + backup + "' is the catalogue itself. Choose a backup.");
}

bool IsNewerThan(std::int32_t version, std::string_view table) {
    return std::ranges::any_of(kLaterTables, [&](const LaterTables& later) {
        return version < later.firstVersion && table.starts_with(later.prefix);
    });
}

/// For a damaged file of this version.
SalvagePlan PlanOfSalvage(std::int32_t version) {
    SalvagePlan plan;
    for (const std::string_view table : CatalogueTables()) {
        if (IsNewerThan(version, table)) plan.newerTables.emplace_back(table);
    }
    plan.creationScript = CreationScript();
    // An index of texts that were damaged is worth nothing.
    plan.deliveredTables = {"tblNamedQuery", "tblIDsToDelete", "tblTextIndex", "tblTextSegment",
                            "tblTextBlock",  "tblTextDirty",   "tblNameBlock"};
    for (const PermanentTable& table : TablesWithPermanentRows()) {
        plan.tablesWithPermanentRows.emplace_back(table.name);
    }
    return plan;
}

}  // namespace

std::string RestoreCatalogue(const Host& host, const std::string& programFolder,
                             const std::string& backupPath) {
    JobProgress progress(host, "Snippetarium is restoring the catalogue, please wait...",
                         JobProgress::Cancelling::Impossible);
    CatalogueExchange exchange(host, programFolder);
    RequireOtherFile(backupPath, exchange.OldPath());
    RequireCatalogue(backupPath);
    CopyDatabase(backupPath, exchange.NewPath(), [&](double share) { progress.Show(share); });
    RequireSound(exchange.NewPath(), backupPath, progress);
    std::string kept = exchange.KeepOld(progress);
    exchange.PutNewInPlace();
    RemoveOldBackups(programFolder);
    return kept;
}

SalvageResult SalvageCatalogue(const Host& host, const std::string& programFolder) {
    JobProgress progress(host, "Snippetarium is recovering the catalogue, please wait...",
                         JobProgress::Cancelling::Possible);
    CatalogueExchange exchange(host, programFolder);
    const std::int32_t version = ReadVersionOfDamaged(exchange.OldPath());
    RequireKnownVersion(exchange.OldPath(), version, OpenableVersions());
    SalvageResult result;
    result.report = SalvageDatabase(
        exchange.OldPath(), exchange.NewPath(), PlanOfSalvage(version),
        [&](double share) { progress.Show(share); }, &progress);
    result.keptPath = exchange.SetOldAside(progress);
    exchange.PutNewInPlace();
    return result;
}

}  // namespace snippetarium
