#include "navigator/missing_catalogue.h"

#include <filesystem>
#include <system_error>

#include "engine/create_database.h"
#include "store/catalogue_content.h"
#include "store/database.h"
#include "support/message_boxes.h"
#include "support/paths.h"

namespace snippetarium {

bool OfferCatalogue(MessageBoxes& messages, const std::string& folder) {
    namespace fs = std::filesystem;
    const std::string file = ToPlatformPath(JoinPath(folder, kCatalogueFileName));
    std::error_code unreachable;
    // A link that leads nowhere is a catalogue that is away for a while.
    const bool isThere = fs::exists(fs::symlink_status(file, unreachable));
    if (isThere || !fs::is_directory(folder, unreachable)) return true;
    const std::string question = "There is no catalogue in the folder\r\n" + folder +
                                 "\r\n\r\nWould you like to make an empty one there?";
    if (AskYesNo(messages, question, kQuestionTitle) != StandardAnswer::Yes) return false;
    CreateDatabase(file, CreationScript());
    return true;
}

}  // namespace snippetarium
