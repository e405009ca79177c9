#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace snippetarium {

// The words with which a procedure of Visual Basic or VBScript begins and ends.

enum class ProcedureKind : std::int8_t { Sub = 1, Function = 2, Property = 3 };

/// The kind of the procedure that a line begins, nothing where it begins none. `key` is the key of
/// a logical line (import/logical_line.h). "Static Property" begins none.
std::optional<ProcedureKind> IsProcedureStart(std::string_view key);

/// True for the line that ends a procedure of this kind. White space around the words does not
/// count, but anything else does: "End Sub ' done" ends nothing.
bool IsProcedureEnd(std::string_view line, ProcedureKind kind);

/// True for the kinds that VBScript knows the end of.
bool IsVbScriptProcedure(ProcedureKind kind);

/// "Sub ", "Function " or "Property ", with the blank that follows it.
std::string_view ProcedureKeyword(ProcedureKind kind);

}  // namespace snippetarium
