#include "import/analysers.h"

#include "import/visual_basic.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

CutFile AnalyseVisualBasic(const SourceText& source, LineProgress& progress, ImportState&) {
    return CutVisualBasic(source.text, progress);
}

CutFile AnalyseVbScript(const SourceText& source, LineProgress& progress, ImportState&) {
    CutFile file = CutVbScript(source.text, progress);
    file.className = FileName(source.entry);
    return file;
}

}  // namespace

Analysers ProgramAnalysers() {
    return {
        {CodeFileKind::VisualBasic, AnalyseVisualBasic},
        {CodeFileKind::VBScript, AnalyseVbScript},
    };
}

}  // namespace snippetarium
