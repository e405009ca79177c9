#pragma once

#include <string>

namespace snippetarium {

class MessageBoxes;

/// At the start of the program: where the folder is there but holds no catalogue, asks whether an
/// empty one is to be made in it. False where the user does not want that: there is nothing to
/// start with then. A catalogue that cannot be made is an Error.
bool OfferCatalogue(MessageBoxes& messages, const std::string& folder);

}  // namespace snippetarium
