#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/query_texts.h"

namespace snippetarium {

// What a new catalogue file holds. It is written in the files under data/, which are a part of the
// program. All scripts are in the engine's own SQL, for CreateDatabase and Connection::RunScript.

/// The version of the file's tables, kept in its user_version. It goes up with every change that a
/// file already in use must be migrated to.
inline constexpr int kCatalogueVersion = 5;

/// The tables with their indexes, triggers and fixed statistics, and nothing in them.
std::string SchemaScript();

/// The rows that every catalogue is delivered with, stored queries aside.
std::string SeedScript();

/// The text of one of the files, named below the folder data. Throws Error where there is none.
std::string_view DataFile(std::string_view path);

/// The script that brings a file of this version to the next one. Throws Error where there is none.
std::string_view MigrationScript(std::int32_t from);

/// Every stored query. Throws Error, naming the file and the line, when a file is malformed.
std::vector<QueryText> StoredQueryTexts();

/// Replaces whatever stored queries a file has by those of this program. Two of the same name make
/// it fail where it is run.
std::string StoredQueriesScript();

/// A whole new catalogue: all of the above and the version.
std::string CreationScript();

}  // namespace snippetarium
