#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// Reads of procedures.
// Each operation runs the named query of its name; store/named_query.h says how.

/// All columns of one procedure.
Recordset CodeByID(Database& db, std::int32_t codeID);
std::string CodeNameByID(Database& db, std::int32_t codeID);
/// The procedures of that name, in whatever class.
Recordset CodeIDByName(Database& db, std::string_view codeName);
/// The procedure of that name in a class.
std::int32_t CodeIDByCodeNameClassID(Database& db, std::string_view codeName, std::int32_t classID);
/// True when a procedure of the class has that name.
bool IsCodeNameTaken(Database& db, std::string_view codeName, std::int32_t classID);
/// A procedure's comment and source.
Recordset CodeCommentCodeByID(Database& db, std::int32_t codeID);
/// Comments and sources of the procedures of a class.
Recordset CodeCommentCodeByClassID(Database& db, std::int32_t classID);
/// The same with the names.
Recordset CodeNameCommentCodeByClassID(Database& db, std::int32_t classID);
/// A procedure with its class, application and language.
Recordset CodeClassAppLanRSByCodeID(Database& db, std::int32_t codeID);
/// A procedure without its long texts.
Recordset MiniCodeRSByCodeID(Database& db, std::int32_t codeID);
/// The IDs of the class and the application that hold a procedure.
Recordset AppIDClassIDRSByCodeID(Database& db, std::int32_t codeID);
/// The procedures of a class, as the contents tree lists them.
Recordset CodeIDCodeNameByClassID(Database& db, std::int32_t classID);
/// A procedure with its class.
Recordset ClassCodeRSByCodeID(Database& db, std::int32_t codeID);
/// For a class that was copied, the pairs of a procedure and its copy.
Recordset OldNewCodeIDRSByClassID(Database& db, std::int32_t oldClassID, std::int32_t newClassID);
Recordset CodeCommentRSByID(Database& db, std::int32_t codeID);

}  // namespace snippetarium
