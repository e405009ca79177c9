#pragma once

#include <cstdint>
#include <string_view>

#include "engine/on_progress.h"

namespace snippetarium {

class Database;

// Deleting an application, a class or a procedure with everything that hangs from it: what is below
// it, keyword strings with the search words that nobody else has, links to authors and dates with
// the rows that nobody else is linked to, languages of procedures, bookmarks.
//
// The undefined application and class (1) are emptied and stay.
//
// A deletion goes in stages, each of statements that commit by themselves. A stage that fails is
// reported and the next one runs, so that a damaged row in one table does not protect all others.
// Only a row under which something is left stays, to be seen in the contents tree and deleted
// again. Nothing is rolled back. What does not exist is not deleted, and nothing is said about it.
//
// DeleteCode, DeleteClass and DeleteApplication are for what a user deletes: they show their
// progress, and everything they did is safe from a power cut when they return.

/// Takes the procedure's marker out of its class's text too, where its language is one of those
/// whose procedures are always marked there.
void DeleteCode(Database& db, std::int32_t codeID);
void DeleteClass(Database& db, std::int32_t classID);
void DeleteApplication(Database& db, std::int32_t appID);

/// As DeleteClass, without showing anything but failures, and in the write mode that is set: for a
/// class that is replaced. False when a stage failed.
bool DeleteClassQuietly(Database& db, std::int32_t classID);
/// The same for a procedure: for a copy that is not finished.
bool DeleteCodeQuietly(Database& db, std::int32_t codeID);

// The rows themselves, each function one stage, which returns whether it was done. The set is what
// stands between the brackets of IN: IDs with commas between them, or a SELECT.

/// Procedures with their languages and bookmarks. `onProgress` may be empty.
bool DeleteCodes(Database& db, std::string_view codeIDs, const OnProgress& onProgress = {});
bool DeleteClasses(Database& db, std::string_view classIDs);
bool DeleteApplications(Database& db, std::string_view appIDs);

}  // namespace snippetarium
