#include "import/import_preview.h"

#include <utility>

#include "support/error.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

ImportPreview Refusal(std::string sentence) {
    return {.refusal = std::move(sentence)};
}

ImportPreview Preview(const Host& host, const FileSystem& files, const Analysers& analysers,
                      ImportState& state, const PreviewRequest& request) {
    const std::string& entry = request.entry;
    const CodeFileKind kind = GetCodeFileKind(FileExtension(entry), state);
    if (kind == CodeFileKind::NotSupported) return Refusal("Its extension is not supported.");
    const TextFile text =
        DecodeTextFile(files.ReadFile(JoinPath(request.folder, entry)), request.encoding);
    if (text.text.empty()) return Refusal("The file is empty.");
    LineProgress lines(host, state, 0);
    std::optional<CutFile> cut =
        analysers.at(kind)({.text = text.text, .entry = entry, .kind = kind}, lines, state);
    if (!cut) return Refusal("It is no part of a page.");
    std::string className = cut->className.empty() ? std::string(BaseName(entry)) : cut->className;
    return {.className = std::move(className), .file = std::move(*cut)};
}

}  // namespace

ImportPreview PreviewFile(const Host& host, const FileSystem& files, const Analysers& analysers,
                          ImportState& state, const PreviewRequest& request) {
    try {
        return Preview(host, files, analysers, state, request);
    } catch (const Error& error) {
        return Refusal(error.Description());
    }
}

}  // namespace snippetarium
