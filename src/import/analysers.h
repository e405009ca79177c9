#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string_view>

#include "import/cut_file.h"
#include "import/file_kind.h"
#include "import/import_state.h"
#include "import/line_progress.h"

namespace snippetarium {

/// A file as its analyser gets it.
struct SourceText {
    /// UTF-8 with CR LF between lines; never empty.
    std::string_view text;
    /// The file's list entry: "sub\Form1.frm".
    std::string_view entry;
    CodeFileKind kind = CodeFileKind::NotSupported;
};

/// Cuts a file into its class and its procedures; nothing where it holds nothing to be stored,
/// which the analyser has then reported. It tells the progress of every line, stops where the
/// import is cancelled, and rejects include files, in the state, once one is no page.
using Analyser =
    std::function<std::optional<CutFile>(const SourceText&, LineProgress&, ImportState&)>;

/// Which analyser reads the files of a kind. Every kind but NotSupported has one.
using Analysers = std::map<CodeFileKind, Analyser>;

/// Those that the program has.
Analysers ProgramAnalysers();

}  // namespace snippetarium
