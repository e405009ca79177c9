#include "import/analysers.h"

#include "import/visual_basic.h"

namespace snippetarium {

namespace {

CutFile AnalyseVisualBasic(const SourceText& source, LineProgress& progress, ImportState&) {
    return CutVisualBasic(source.text, progress);
}

CutFile AnalyseVbScript(const SourceText& source, LineProgress& progress, ImportState&) {
    return CutVbScript(source.text, progress);
}

}  // namespace

Analysers ProgramAnalysers() {
    return {
        {CodeFileKind::VisualBasic, AnalyseVisualBasic},
        {CodeFileKind::VBScript, AnalyseVbScript},
    };
}

}  // namespace snippetarium
