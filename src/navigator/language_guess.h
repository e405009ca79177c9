#pragma once

#include <cstdint>
#include <string_view>

namespace snippetarium {

/// Which of the delivered languages a text is in that was pasted into an editor: Visual Basic (1),
/// Java (2), C# (3), C++ (4), C (5), ASP (6), JavaScript (7), VBScript (8) or HTML (9). 0 where the
/// text does not tell: a short text of C may be C++ as well, and is then taken for neither.
std::int32_t GuessedLanguage(std::string_view text);

}  // namespace snippetarium
