#include "engine/file_version.h"

#include "engine/engine_error.h"

namespace snippetarium {

void RequireKnownVersion(const std::string& path, std::int32_t version, const FileVersions& known) {
    if (version > known.newest) {
        throw EngineError(
            EngineErrorCode::UnrecognisedFormat,
            "The catalogue '" + path + "' was made by a newer Snippetarium (file version " +
                std::to_string(version) + ", this program knows " + std::to_string(known.newest) +
                "). Install the newer program to open it.");
    }
    if (version < known.oldest) {
        throw EngineError(EngineErrorCode::UnrecognisedFormat,
                          "The catalogue '" + path + "' has the file version " +
                              std::to_string(version) +
                              ", which this program cannot bring up to date.");
    }
}

}  // namespace snippetarium
