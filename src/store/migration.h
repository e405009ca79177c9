#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "engine/file_version.h"

namespace snippetarium {

class Database;

// A catalogue file has a version. Each program knows one, kCatalogueVersion, and opens files of
// that version and of older ones, which it brings up to date. A change of the tables, indexes or
// triggers under data/ comes with
//
//   - the next kCatalogueVersion,
//   - a script data/migrations/N_to_M.sql, which makes the change in a file already in use, so that
//     the file equals a new one afterwards. It never changes again,
//   - a thought about SalvageCatalogue. It copies the rows of each table, column by column, into a
//     new file, whatever version the damaged one has: right as long as a step only adds. A table
//     that a step adds needs a row in restore.cpp, so that it is not missed in older files.

/// Brings a file of version `from` to the next one. The script is in the engine's own SQL.
struct MigrationStep {
    std::int32_t from = 0;
    std::string_view script;
};

/// The versions of the files that this program opens.
FileVersions OpenableVersions();

/// Makes an open catalogue what this program works with: tables of its version and its own stored
/// queries. An older file is backed up and then changed step by step, each step with its new
/// version number whole or not at all, so that a program that was killed goes on at the next
/// opening where it was. Throws Error; when a step fails, the file is as it was before that step.
///
/// A catalogue that is open for reading only is left alone: an older one is refused, and one of the
/// right version works with the stored queries that it has.
void BringUpToDate(Database& db);

/// The same for a program of another version with other steps: what the tests need.
void BringUpToDate(Database& db, std::int32_t programVersion, std::span<const MigrationStep> steps);

}  // namespace snippetarium
