#pragma once

#include <string>

#include "quick/work.h"

namespace snippetarium {

class Database;

// What the catalogue's index on the names of procedures knows.

/// Adds the procedures whose names may be the word, a parameter list aside. False where they are
/// too many to be read at once.
bool FindExactNames(Database& db, const std::string& word, FoundRows& found);

/// True where the name of a procedure begins so.
bool HasNameThatBegins(Database& db, const std::string& beginning);

}  // namespace snippetarium
