#pragma once

#include <optional>
#include <string>

namespace snippetarium {

class Database;

/// The text of a file that was dropped into an editor, with the catalogue's line ends; its encoding
/// is recognised as an import would. Before a text that is there is replaced the user is asked.
/// Empty where it is not to be taken; the user has been told why.
std::optional<std::string> ReadDroppedText(Database& db, const std::string& path,
                                           bool isEditorEmpty);

}  // namespace snippetarium
