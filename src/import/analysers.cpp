#include "import/analysers.h"

#include <algorithm>
#include <string>

#include "import/c_family.h"
#include "import/script_page.h"
#include "import/tree_sitter_cutter.h"
#include "import/visual_basic.h"
#include "support/case_fold.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

CutFile AnalyseVisualBasic(const SourceText& source, LineProgress& progress, ImportState&) {
    return CutVisualBasic(source.text, progress);
}

CutFile AnalyseVbScript(const SourceText& source, LineProgress& progress, ImportState&) {
    return CutVbScript(source.text, progress);
}

/// A file that makes no class but its own.
CutFile NamedByFile(CutFile file, const SourceText& source) {
    file.className = FileName(source.entry);
    return file;
}

CutFile AnalyseJava(const SourceText& source, LineProgress& progress, ImportState&) {
    const bool isCSharp = FoldCase(FileExtension(source.entry)) == "cs";
    return isCSharp ? CutCSharp(source.text, progress) : CutJava(source.text, progress);
}

/// The classes of source files bear markers that may stand within a line, those of headers do not.
CutFile AnalyseCFamily(const SourceText& source, LineProgress& progress, ImportState&) {
    const bool isHeader =
        source.kind == CodeFileKind::CHeader || source.kind == CodeFileKind::CppHeader;
    progress.LinesRead(
        static_cast<std::size_t>(std::count(source.text.begin(), source.text.end(), '\n')));
    return NamedByFile(
        progress.Await(source.text.size(),
                       [&] {
                           return CutCFamily(
                               source.text,
                               source.kind == CodeFileKind::C ? CDialect::C : CDialect::Cpp,
                               isHeader ? UnitPlacement::WholeLines : UnitPlacement::Exact);
                       }),
        source);
}

CutFile AnalyseJavaScript(const SourceText& source, LineProgress& progress, ImportState&) {
    return NamedByFile(CutJavaScript(source.text, progress), source);
}

CutFile AnalyseHtml(const SourceText& source, LineProgress& progress, ImportState&) {
    return NamedByFile(CutScriptPage(source.text, PageKind::Html, progress), source);
}

/// Other programs have include files too.
std::optional<CutFile> AnalyseServerPage(const SourceText& source, LineProgress& progress,
                                         ImportState& state) {
    const bool isInclude = FoldCase(FileExtension(source.entry)) == "inc";
    if (isInclude && !HoldsPageCode(source.text)) {
        state.includeFilesRejected = true;
        state.Report(std::string(source.entry) +
                     " was not imported, because it is no part of a page. No more files with its "
                     "extension are imported this time.");
        return std::nullopt;
    }
    return NamedByFile(CutScriptPage(source.text, PageKind::ServerPage, progress), source);
}

}  // namespace

Analysers ProgramAnalysers() {
    return {
        {CodeFileKind::VisualBasic, AnalyseVisualBasic},
        {CodeFileKind::Java, AnalyseJava},
        {CodeFileKind::Cpp, AnalyseCFamily},
        {CodeFileKind::C, AnalyseCFamily},
        {CodeFileKind::ServerPage, AnalyseServerPage},
        {CodeFileKind::JavaScript, AnalyseJavaScript},
        {CodeFileKind::VBScript, AnalyseVbScript},
        {CodeFileKind::HtmlPage, AnalyseHtml},
        {CodeFileKind::CHeader, AnalyseCFamily},
        {CodeFileKind::CppHeader, AnalyseCFamily},
    };
}

}  // namespace snippetarium
