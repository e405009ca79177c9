#pragma once

#include <string>
#include <string_view>

#include "import/procedure_starts.h"

namespace snippetarium {

// The names that the lines of a Visual Basic file give to its procedures and its class. `raw` and
// `key` are those of a logical line (import/logical_line.h).

/// The name of the procedure that the line begins, with its parameters: what stands between the
/// keyword and the last ")", the "_" and line breaks of continued lines left out. Empty when no ")"
/// stands there.
///
///     Private Function Sum(a, _       gives   Sum(a,     b)
///         b) As Long
std::string ProcedureName(std::string_view raw, ProcedureKind kind);

/// The same for VBScript, where a head need not have brackets: "Sub Main 'starts" gives "Main".
std::string VbScriptProcedureName(std::string_view raw, std::string_view key, ProcedureKind kind);

/// The key with "()" behind it, unless a bracket opens in it already.
std::string DisplayName(std::string_view key);

/// The class's name, where the line is the attribute that tells it; empty otherwise.
///
///     Attribute VB_Name="modSort"     gives   modSort
///
/// The attribute is taken to be the whole line.
std::string ClassNameFromAttribute(std::string_view key);

}  // namespace snippetarium
