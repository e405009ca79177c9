#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace snippetarium {

class Database;

// An import stores a class statement by statement. What kills the program in the midst of it leaves
// a class with a part of its procedures, which looks like any other, and whose export would be a
// part of its file. So does a user who cancels there. So the catalogue notes, among its settings,
// that a class is under way: not which one, since it has no ID yet, but the greatest ID that there
// is before. IDs of classes are never used again, so the next one is the class.
//
// An import that is cancelled puts the class's ID on a list, else the first program that opens the
// catalogue for writing after that. There it stays until the class is gone: overwritten by the next
// import of its file, or deleted.

/// Call them before the row of a class is added, and when all of it is stored. They throw.
void NoteClassUnderWay(Database& db);
void NoteClassComplete(Database& db);

/// What is noted as under way was cut short: puts it on the list. Throws.
void ListCutShortClass(Database& db);

struct CutShortClass {
    std::int32_t classID = 0;
    std::string name = {};
    std::string pathInApp = {};
    std::string application = {};
    bool isTold = false;
};

/// The classes of the list that are still there. Throws.
std::vector<CutShortClass> CutShortClasses(Database& db);

/// Tells the user, once for each class, which were cut short and what to do. Does nothing in a
/// catalogue that is open for reading only.
void TellOfCutShortImports(Database& db);

}  // namespace snippetarium
