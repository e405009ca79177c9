#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

/// A keyword string, as typed, with another word in the place of one, wherever it stands. Words are
/// told apart as the search words are; letter case does not count. The rest stays as it is, but for
/// blanks at the ends of the string.
///
///     ReplaceWord("grid3, Form_Load", "form", "Window")    gives    grid3, Window_Load
std::string ReplaceWord(std::string_view keyword, std::string_view word, std::string_view newWord);

}  // namespace snippetarium
