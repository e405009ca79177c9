#pragma once

#include <cstdint>
#include <string_view>

#include "keywords/noise_words.h"
#include "store/owner.h"

namespace snippetarium {

class Database;

/// Gives the owner this keyword string in place of the one it has; a blank one takes its keywords
/// away. The old string goes where no other owner has it, and with it the search words that no
/// other string has.
void ReplaceOwnerKeywords(Database& db, const NoiseWords& noise, const Owner& owner,
                          std::string_view keyword, std::int32_t separatorID);

}  // namespace snippetarium
