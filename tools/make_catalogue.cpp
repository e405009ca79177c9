// Writes the catalogue file that is delivered: make_catalogue FILE
//
// The new file is made beside FILE and takes its name when it is complete. A catalogue that a
// program has open is left alone: its log would meet the wrong file.

#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>

#include "engine/create_database.h"
#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "store/catalogue_content.h"

namespace snippetarium {

namespace {

void MakeCatalogue(const std::string& path) {
    if (IsFileOpen(path)) {
        throw EngineError(EngineErrorCode::OpenElsewhere,
                          "A program has '" + path + "' open. Close it and start again.");
    }
    const std::string made = path + ".new";
    std::filesystem::remove(made);  // left by a run that was killed
    CreateDatabase(made, CreationScript());
    // What an old file of that name left beside it is no part of the new one.
    for (const std::string_view suffix : {"-wal", "-shm", "-journal"})
        std::filesystem::remove(path + std::string(suffix));
    std::filesystem::rename(made, path);
}

}  // namespace

}  // namespace snippetarium

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: make_catalogue FILE\n";
        return 2;
    }
    try {
        snippetarium::MakeCatalogue(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "make_catalogue: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
