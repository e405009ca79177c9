#pragma once

#include <string>
#include <string_view>

#include "keywords/noise_words.h"

namespace snippetarium {

/// A keyword string, as typed, without the noise words in it. Words are told apart as the search
/// words are; letter case does not count. With a word go the blanks behind it, and where nothing of
/// its entry between two separators is left, a separator. The rest stays as it was, but for blanks
/// at the ends of the string. Without a noise word in it the string comes back unchanged.
///
///     RemoveWords("The grid, the, Form_Load", ",", noise)    gives    grid, Form_Load
std::string RemoveWords(std::string_view keyword, std::string_view separator,
                        const NoiseWords& noise);

}  // namespace snippetarium
