#pragma once

#include "support/procedure_numbers.h"

namespace snippetarium::editor_procedure {

// The numbers of what the three record editors share.
inline constexpr Procedure OpenEditor{700};
inline constexpr Procedure CheckEditor{701};
inline constexpr Procedure SaveEditor{702};
inline constexpr Procedure SaveDraft{703};
inline constexpr Procedure DropDraft{704};
inline constexpr Procedure DraftsLeft{705};
inline constexpr Procedure OpenDraft{706};
inline constexpr Procedure DeleteDraft{707};

}  // namespace snippetarium::editor_procedure
