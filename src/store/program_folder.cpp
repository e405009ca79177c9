#include "store/program_folder.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "engine/create_database.h"
#include "store/catalogue_content.h"
#include "store/database.h"
#include "support/error.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

std::string EnvironmentValue(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

std::string UserDataFolder() {
    const std::string dataHome = EnvironmentValue("XDG_DATA_HOME");
    if (!dataHome.empty()) return dataHome;
    const std::string home = EnvironmentValue("HOME");
    return home.empty() ? std::string() : home + "/.local/share";
}

bool IsWritableFolder(const std::string& path) {
    return access(path.c_str(), W_OK) == 0;
}

}  // namespace

ProgramFolder ChooseProgramFolder(const ProgramFolderSources& sources,
                                  const std::function<bool(const std::string&)>& isWritable) {
    for (const std::string& named : {sources.option, sources.environment}) {
        if (!named.empty()) return {named, named, false};
    }
    if (isWritable(sources.executableFolder) || sources.userDataFolder.empty()) {
        return {sources.executableFolder, sources.executableFolder, false};
    }
    return {sources.userDataFolder + "/snippetarium", sources.executableFolder, true};
}

ProgramFolderSources FindProgramFolderSources(const std::string& option) {
    ProgramFolderSources sources;
    sources.option = option;
    sources.environment = EnvironmentValue("SNIPPETARIUM_FOLDER");
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    sources.executableFolder = error ? "." : program.parent_path().string();
    sources.userDataFolder = UserDataFolder();
    return sources;
}

ProgramFolder OpenProgramFolder(const std::string& option) {
    ProgramFolder folder = ChooseProgramFolder(FindProgramFolderSources(option), IsWritableFolder);
    if (!folder.isUserData) return folder;
    std::error_code error;
    std::filesystem::create_directories(folder.path, error);
    if (error) {
        throw Error(error_number::kPathNotFound,
                    "The folder '" + folder.path +
                        "' for your catalogue cannot be made: " + error.message() + ".");
    }
    const std::string catalogue = ToPlatformPath(JoinPath(folder.path, kCatalogueFileName));
    if (!std::filesystem::exists(catalogue, error)) CreateDatabase(catalogue, CreationScript());
    return folder;
}

}  // namespace snippetarium
