#include "store/catalogue_file.h"

#include <filesystem>

#include "store/database.h"
#include "support/paths.h"
#include "support/real_path.h"

namespace snippetarium {

std::string CatalogueFile(const std::string& programFolder) {
    return ResolvePath(ToPlatformPath(JoinPath(programFolder, kCatalogueFileName))).string();
}

std::string WriterLockPath(const std::string& programFolder) {
    const std::string extension = std::filesystem::path(kWriterLockFileName).extension().string();
    return std::filesystem::path(CatalogueFile(programFolder))
        .replace_extension(extension)
        .string();
}

}  // namespace snippetarium
