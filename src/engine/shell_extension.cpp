// A module that the sqlite3 shell, Python and others can load, so that they read a catalogue file
// with its own comparison of text: ".load ./catnc".
//
// A module may not link to the library itself: the loading program can contain one of its own, and
// the two would not know of each other. It calls the library through a table that it is handed, to
// which sqlite3ext.h redirects every function. So the comparison is compiled once more here, behind
// that redirection.

#include <sqlite3ext.h>
SQLITE_EXTENSION_INIT1

#include <exception>

#include "engine/collation.cpp"  // NOLINT(bugprone-suspicious-include)

/// The loading program derives this name from the file's name.
extern "C" __attribute__((visibility("default"))) int sqlite3_catnc_init(
    sqlite3* database, char** message, const sqlite3_api_routines* library) {
    SQLITE_EXTENSION_INIT2(library)
    try {
        snippetarium::InstallTextComparison(database, nullptr);
    } catch (const std::exception& error) {
        *message = sqlite3_mprintf("%s", error.what());
        return SQLITE_ERROR;
    }
    return SQLITE_OK;
}
