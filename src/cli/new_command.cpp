#include <unistd.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <ostream>
#include <system_error>

#include "cli/command_context.h"
#include "engine/create_database.h"
#include "store/catalogue_content.h"
#include "store/program_folder.h"
#include "support/error.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandExample kExamples[] = {
    {"new",                      "A catalogue where the program looks for one by itself."},
    {"--folder ~/snippets new",  "A catalogue in a folder of its own, which must exist."},
};
// clang-format on

/// Where the catalogue belongs. Only the folder among the user's data, of which the user need not
/// know, is made.
std::string FolderForNew(const std::string& option) {
    const ProgramFolder folder = ChooseProgramFolder(
        FindProgramFolderSources(option),
        [](const std::string& path) { return access(path.c_str(), W_OK) == 0; });
    std::error_code error;
    if (folder.isUserData) std::filesystem::create_directories(folder.path, error);
    if (std::filesystem::is_directory(folder.path, error)) return folder.path;
    throw Error(error_number::kPathNotFound,
                "The folder '" + folder.path + "' does not exist. Make it first.");
}

void Run(CommandContext& context) {
    const std::string folder = FolderForNew(context.Line().folder);
    const std::string file = ToPlatformPath(JoinPath(folder, kCatalogueFileName));
    std::error_code error;
    if (std::filesystem::exists(std::filesystem::symlink_status(file, error))) {
        throw Error(error_number::kFileExists,
                    "There is a catalogue in '" + folder + "' already. It was left as it is.");
    }
    CreateDatabase(file, CreationScript());
    if (context.WantsJson()) {
        context.SetDocument({{"file", file}});
    } else {
        context.Output() << "An empty catalogue was made: " << file << '\n';
    }
}

}  // namespace

constexpr CliCommand kNewCommand = {
    .name = "new",
    .summary = "make an empty catalogue",
    .description =
        "Makes an empty catalogue in the folder that --folder names, or else where the program "
        "looks for its catalogue. A catalogue that is there already is left as it is, and the "
        "command fails.",
    .arguments = {},
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
