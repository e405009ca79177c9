#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "import/c_family.h"
#include "import/script_page.h"
#include "import/tree_sitter_cutter.h"
#include "support/text_file.h"
#include "tests/import/case_dump.h"
#include "tests/import/cut_basic.h"
#include "tests/import/cut_reassembly.h"
#include "tests/temporary_folder.h"

namespace snippetarium {
namespace {

// Each folder under cases/ holds a source file, input.EXTENSION, and in the file "expected" what it
// becomes (case_dump.h).

/// What is wrong with a file that is put together again; empty when it is the same.
template <UnitPlacement kPlacement>
std::string FaultOfReassembly(const TextFile& file, test::UndisturbedCut& cut) {
    const std::string written = test::Reassemble(cut(file.text), kPlacement, file.text);
    return written == file.text ? "" : "written differently:\n" + written;
}

std::string FaultOfBasic(const TextFile& file, test::UndisturbedCut& cut) {
    return test::FaultOfRoundTrip(WithLineEnds(file.text, file.form.lineEnds), cut);
}

template <CDialect kDialect, UnitPlacement kPlacement>
CutFile CutC(std::string_view text, LineProgress&) {
    return CutCFamily(text, kDialect, kPlacement);
}

template <PageKind kKind>
CutFile CutPage(std::string_view text, LineProgress& progress) {
    return CutScriptPage(text, kKind, progress);
}

struct FileKind {
    std::string_view extension;
    test::BasicCut cut;
    MarkerFamily family;
    std::string (*faultOfRoundTrip)(const TextFile&, test::UndisturbedCut&);
};

// clang-format off
constexpr FileKind kFileKinds[] = {
    {".bas", CutVisualBasic, MarkerFamily::VisualBasic, FaultOfBasic},
    {".cls", CutVisualBasic, MarkerFamily::VisualBasic, FaultOfBasic},
    {".frm", CutVisualBasic, MarkerFamily::VisualBasic, FaultOfBasic},
    {".vbs", CutVbScript, MarkerFamily::VisualBasic, FaultOfBasic},
    {".java", CutJava, MarkerFamily::C, FaultOfReassembly<UnitPlacement::Exact>},
    {".js", CutJavaScript, MarkerFamily::C, FaultOfReassembly<UnitPlacement::Exact>},
    {".c", CutC<CDialect::C, UnitPlacement::Exact>, MarkerFamily::C, FaultOfReassembly<UnitPlacement::Exact>},
    {".cpp", CutC<CDialect::Cpp, UnitPlacement::Exact>, MarkerFamily::C, FaultOfReassembly<UnitPlacement::Exact>},
    {".h", CutC<CDialect::Cpp, UnitPlacement::WholeLines>, MarkerFamily::VisualBasic, FaultOfReassembly<UnitPlacement::WholeLines>},
    {".asp", CutPage<PageKind::ServerPage>, MarkerFamily::Page, FaultOfReassembly<UnitPlacement::WholeLines>},
    {".html", CutPage<PageKind::Html>, MarkerFamily::Page, FaultOfReassembly<UnitPlacement::WholeLines>},
    {".cs", CutCSharp, MarkerFamily::VisualBasic, FaultOfReassembly<UnitPlacement::WholeLines>},
};
// clang-format on

/// The kind of the case's input; nullptr when there is no input.
const FileKind* FindInput(const std::filesystem::path& folder, std::filesystem::path& input) {
    for (const FileKind& kind : kFileKinds) {
        input = folder / ("input" + std::string(kind.extension));
        if (std::filesystem::exists(input)) return &kind;
    }
    return nullptr;
}

TEST(Cases, AreCutAsExpectedAndWrittenAsTheyWere) {
    std::vector<std::filesystem::path> folders;
    for (const auto& entry : std::filesystem::directory_iterator(IMPORT_CASES))
        folders.push_back(entry.path());
    ASSERT_FALSE(folders.empty());
    std::ranges::sort(folders);

    for (const std::filesystem::path& folder : folders) {
        std::filesystem::path input;
        const FileKind* kind = FindInput(folder, input);
        ASSERT_NE(kind, nullptr) << folder << " holds no input of a known kind";
        const TextFile file = DecodeTextFile(test::ReadBytes(input.string()));
        test::UndisturbedCut cut(kind->cut);
        EXPECT_EQ(test::DumpOf(cut(file.text), kind->family),
                  test::ReadBytes((folder / "expected").string()))
            << folder;
        EXPECT_EQ(kind->faultOfRoundTrip(file, cut), "") << folder;
    }
}

}  // namespace
}  // namespace snippetarium
