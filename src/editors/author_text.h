#pragma once

#include <string>
#include <string_view>

#include "store/author_links.h"

namespace snippetarium {

// A person's name as one writes it, and its three parts.

/// "Marta J. Lindqvist": the last word is the last name, the first one the first, what stands
/// between them the middle. A single word is a last name. "Lindqvist, Marta J." is read too. Any
/// white space separates words. All parts are empty for a text without a word.
AuthorName ParseAuthorText(std::string_view text);

/// The parts that there are, with a blank between them.
std::string AuthorText(const AuthorName& name);

}  // namespace snippetarium
