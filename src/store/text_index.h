#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/text_index.h"
#include "engine/text_scan.h"

namespace snippetarium {

class Database;

/// The texts that the index knows.
enum class TextKind : std::uint8_t {
    ApplicationName,
    ApplicationComment,
    ClassName,
    ClassText,
    ClassComment,
    CodeName,
    Code,
    CodeComment,
    Keyword,
};

/// The tables and columns of the index, for the connection.
std::span<const IndexedTable> IndexedTexts();

/// A script in the engine's own SQL that leaves an index with nothing in it.
std::string TextIndexResetScript();

/// A scan for the IDs of the applications, classes or procedures whose text of this kind may hold
/// the literal, without regard to case. See TextScan for what is promised.
TextScan ScanFor(TextKind kind, std::string_view literal, ShortTexts shortTexts);

/// Does a little of what the index has to do: takes in rows that wait, merges segments. Call it
/// again and again while the program has nothing else to do; one call takes some 10 milliseconds.
/// Returns whether there is more to do. A failure is reported.
bool TendTextIndex(Database& db);

/// Does all of it, with a progress window where that takes long. The user can cancel it, and what
/// was done stays. Returns whether it was done to its end; a failure is reported.
bool CompleteTextIndex(Database& db);

/// Throws the index away and makes it anew. As CompleteTextIndex.
bool RebuildTextIndex(Database& db);

/// Throws the index away; none is made until RebuildTextIndex. Searches read the texts themselves.
bool DropTextIndex(Database& db);

/// For each indexed table, in the order of IndexedTexts(); empty where the catalogue has no index.
std::vector<TextIndexState> ReadTextIndexState(Database& db);

}  // namespace snippetarium
