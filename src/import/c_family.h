#pragma once

#include <string_view>

#include "import/c_tokens.h"
#include "import/source_units.h"

namespace snippetarium {

/// Cuts a file in C or C++ into its functions. Text: UTF-8 with CR LF between lines. The result
/// names no class: such a file is a class by its file name.
///
/// No grammar is behind it: unknown macros, which a file is full of when it is read alone, make a
/// grammar lose thousands of lines. Instead, three passes over the tokens mask what upsets the
/// brackets or hides a declaration (branches of #if, macros, old parameter declarations), and a
/// scanner then finds the heads in front of the braces.
CutFile CutCFamily(std::string_view text, CDialect dialect, UnitPlacement placement);

}  // namespace snippetarium
