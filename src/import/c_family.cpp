#include "import/c_family.h"

#include "import/c_conditionals.h"
#include "import/c_definitions.h"
#include "import/c_macros.h"
#include "import/c_old_style.h"

namespace snippetarium {

CutFile CutCFamily(std::string_view text, CDialect dialect, UnitPlacement placement) {
    CTokens tokens = TokeniseC(text, dialect);
    MaskBrokenBranches(tokens);
    MaskDeclarationMacros(tokens);
    if (dialect == CDialect::C) MaskOldStyleParameters(tokens);
    return CutUnits(text, FindCDefinitions(tokens), tokens.comments, placement);
}

}  // namespace snippetarium
