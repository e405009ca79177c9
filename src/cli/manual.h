#pragma once

#include <string>

namespace snippetarium {

/// The manual page as roff source for man, made from the table of commands. It holds nothing that
/// changes from one build to the next, so it can be compared and packaged.
std::string ManualPage();

}  // namespace snippetarium
