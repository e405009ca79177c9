// Cuts every Java, C# and JavaScript file below a folder.
//
//     bench_tree_cutting FOLDER          how fast that is
//     bench_tree_cutting FOLDER list     each procedure: file, line, name

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "import/tree_sitter_cutter.h"
#include "support/text_file.h"
#include "tests/fakes.h"
#include "tests/import/cut_reassembly.h"

namespace {

using namespace snippetarium;
namespace fs = std::filesystem;

using Cutter = CutFile (*)(std::string_view, LineProgress&);

Cutter CutterOf(const fs::path& file) {
    if (file.extension() == ".java") return CutJava;
    if (file.extension() == ".cs") return CutCSharp;
    return file.extension() == ".js" ? CutJavaScript : nullptr;
}

struct Source {
    std::string name;
    std::string text;
    Cutter cutter = nullptr;
};

std::vector<Source> ReadSources(const fs::path& folder) {
    std::vector<Source> sources;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const Cutter cutter = CutterOf(entry.path());
        if (!entry.is_regular_file() || cutter == nullptr) continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        sources.push_back({entry.path().string(), DecodeTextFile(bytes).text, cutter});
    }
    return sources;
}

/// The lines above each procedure's code, in the file as it was.
void List(const Source& source, const CutFile& file) {
    std::size_t line = 1;
    std::size_t copied = 0;
    const auto pass = [&line](std::string_view text) {
        line += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    };
    const bool addsBreak = source.cutter == CutCSharp;
    for (const CutProcedure& procedure : file.procedures) {
        pass(std::string_view(file.text).substr(copied, procedure.position - copied));
        copied = procedure.position;
        pass(procedure.comment);
        if (addsBreak && !procedure.comment.empty()) ++line;
        const std::size_t first = line;
        pass(procedure.code);
        std::printf("%s\t%zu\t%zu\t%s\n", source.name.c_str(), first, line, procedure.name.c_str());
    }
    const UnitPlacement placement = addsBreak ? UnitPlacement::WholeLines : UnitPlacement::Exact;
    if (test::Reassemble(file, placement, source.text) != source.text)
        std::printf("%s\tdiffers\t\twhen it is put together again\n", source.name.c_str());
    for (const std::string& problem : file.problems)
        std::printf("%s\tproblem\t\t%s\n", source.name.c_str(), problem.c_str());
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fputs("usage: bench_tree_cutting FOLDER [list]\n", stderr);
        return 2;
    }
    const std::vector<Source> sources = ReadSources(arguments[1]);
    test::FakeHost world;
    const ImportState state;
    std::size_t bytes = 0;
    std::size_t procedures = 0;
    double seconds = 0;
    for (const Source& source : sources) {
        LineProgress progress(world.host, state, 0);
        const auto begin = std::chrono::steady_clock::now();
        const CutFile file = source.cutter(source.text, progress);
        seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        world.progress.unitValues.clear();
        bytes += source.text.size();
        procedures += file.procedures.size();
        if (count > 2) List(source, file);
    }
    const double megabytes = static_cast<double>(bytes) / 1e6;
    std::fprintf(stderr, "%zu files, %.1f MB, %zu procedures, %.2f s, %.1f MB/s\n", sources.size(),
                 megabytes, procedures, seconds, megabytes / seconds);
    return 0;
}
