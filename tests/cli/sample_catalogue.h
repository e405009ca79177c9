#pragma once

#include <cstddef>

namespace snippetarium {

class Database;

/// Fills an empty catalogue with a small application: a Visual Basic module and a Java class with
/// their procedures, keywords, authors and dates. Returns the number of statements it ran. Throws
/// ReportedError, inside a guard, when one of them fails.
std::size_t AddSampleCatalogue(Database& db);

}  // namespace snippetarium
