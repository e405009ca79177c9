#pragma once

#include <string>

#include "import/analysers.h"
#include "support/file_system.h"
#include "support/host.h"
#include "support/text_file.h"

namespace snippetarium {

struct PreviewRequest {
    std::string folder = {};
    /// Its file: "sub\\Form1.frm".
    std::string entry = {};
    /// For a file that does not tell its own.
    std::string encoding = std::string(kDefaultEncoding);

    bool operator==(const PreviewRequest&) const = default;
};

/// What an import would make of a file.
struct ImportPreview {
    /// Why it would make nothing, a sentence; then there is nothing else.
    std::string refusal = {};
    std::string className = {};
    /// The class's comment, its text and its procedures, whole.
    CutFile file = {};
};

/// Cuts a file as an import would, and stores nothing. Yields while it works; once the state says
/// that it is cancelled, what there is up to then comes back. A file that cannot be read is a
/// refusal. The state is the preview's own: an import's would take note of include files.
ImportPreview PreviewFile(const Host& host, const FileSystem& files, const Analysers& analysers,
                          ImportState& state, const PreviewRequest& request);

}  // namespace snippetarium
