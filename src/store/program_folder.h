#pragma once

#include <functional>
#include <string>

namespace snippetarium {

/// Where the program's own files may lie, as the start of the program finds it. Empty: not given.
struct ProgramFolderSources {
    std::string option;            ///< what the command line names
    std::string environment;       ///< what the variable SNIPPETARIUM_FOLDER names
    std::string executableFolder;  ///< the folder of the running program
    std::string userDataFolder;    ///< where this user's programs keep their data
};

struct ProgramFolder {
    /// Holds the catalogue.
    std::string path;
    /// Holds the help pages.
    std::string helpPath;
    /// True when the program chose a folder of the user's data for itself, because its own cannot
    /// be written. Such a folder gets its catalogue at the first start; any other without one is a
    /// mistake that the user must hear of.
    bool isUserData = false;
};

/// The folder that holds the catalogue and the help: the one that the user names, first on the
/// command line, then in the environment; else the running program's own; and where that cannot be
/// written, as for an installed program, "snippetarium" below the user's data, with the help still
/// coming from the installation.
ProgramFolder ChooseProgramFolder(const ProgramFolderSources& sources,
                                  const std::function<bool(const std::string&)>& isWritable);

/// Reads the sources from the running process; `option` is the command line's folder.
ProgramFolderSources FindProgramFolderSources(const std::string& option);

/// ChooseProgramFolder for the running process. Makes the user data folder and its catalogue where
/// they are needed and missing. Throws Error.
ProgramFolder OpenProgramFolder(const std::string& option);

}  // namespace snippetarium
