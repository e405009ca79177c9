#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

class Database;

// Writes of procedures and of their languages. They write what they are given: whether a name may
// be used is asked before (store/name_rules.h).

struct CodeFields {
    /// Cut to 255 characters.
    std::string name = {};
    /// The source text.
    std::string code = {};
    /// 0 puts the procedure under the undefined class.
    std::int32_t classID = 0;
    std::string comment = {};
    /// Replaces the procedure's dates, unless its first entry is empty (store/date_links.h).
    std::vector<std::string> dates = {};
    /// 0 where the procedure has no keywords, or keeps those it has.
    std::int32_t keywordID = 0;
};

/// The new procedure's ID; 0 on a failure.
std::int32_t AddCode(Database& db, const CodeFields& fields);
/// An empty comment becomes null. False, with nothing written, where there is no such procedure; on
/// a failure too.
bool UpdateCode(Database& db, std::int32_t codeID, const CodeFields& fields);
/// False where there is no such procedure, and on a failure.
bool RenameCode(Database& db, std::int32_t codeID, std::string_view name);
/// False where there is no such procedure, and on a failure.
bool SetCodeComment(Database& db, std::int32_t codeID, std::string_view comment);

/// Gives a procedure its language, in place of the one it has. A failure is reported, and the
/// language stays as it was.
void SetCodeLanguage(Database& db, std::int32_t codeID, std::int32_t languageID);
/// For a procedure just added, which has no language yet.
void AddCodeLanguage(Database& db, std::int32_t codeID, std::int32_t languageID);

}  // namespace snippetarium
