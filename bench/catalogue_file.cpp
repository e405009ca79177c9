// How long a large catalogue takes to open, to show its tree's top, and to be compacted.
//
//     bench_catalogue_file FOLDER PROCEDURES
//
// makes FOLDER/QRT_SN.mde with that many procedures where there is none, and prints the figures.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "bench/catalogue_generator.h"
#include "engine/compaction.h"
#include "store/database.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "tests/fakes.h"

namespace snippetarium::bench {
namespace {

double Milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    return taken.count();
}

void Print(const char* what, int times, const std::function<void()>& work) {
    std::vector<double> taken;
    for (int i = 0; i < times; ++i)
        taken.push_back(Milliseconds(work));
    std::sort(taken.begin(), taken.end());
    std::printf("%-42s median %8.2f ms, longest %8.2f ms of %d\n", what, taken[taken.size() / 2],
                taken.back(), times);
}

void MeasureReads(const std::string& folder) {
    test::FakeHost host;
    Print("open, read the version and queries, close", 20, [&] {
        Database db(host.host, CatalogueProviders(), folder);
        OpenCatalogue(db);
        CloseCatalogue(db);
    });
    Database db(host.host, CatalogueProviders(), folder);
    OpenCatalogue(db);
    Print("top of the tree: applications with counts", 10, [&] { AppWithClassCount(db); });
    Print("classes of one application with counts", 100, [&] { ClassWithCodeCountByAppID(db, 2); });
    Print("procedures of one class", 100, [&] { CodeIDCodeNameByClassID(db, 2); });
    CloseCatalogue(db);
}

void MeasureCompaction(const std::string& path) {
    const std::string start = "Provider=" + std::string(kCatalogueProvider) + ";Data Source=";
    int reports = 0;
    const auto before = std::filesystem::file_size(path);
    const double taken = Milliseconds([&] {
        Compaction compaction(start + path);
        compaction.WriteCopy(start + path + ".compacted", [&](double) { ++reports; });
        compaction.ReplaceWithCopy();
    });
    std::printf("compaction of %.0f MB                       %8.2f s, %d progress reports\n",
                static_cast<double>(before) / 1e6, taken / 1000.0, reports);
}

}  // namespace
}  // namespace snippetarium::bench

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("Usage: bench_catalogue_file FOLDER PROCEDURES\n", stderr);
        return 2;
    }
    const std::string folder = argv[1];
    const std::string path = folder + "/QRT_SN.mde";
    std::filesystem::create_directories(folder);
    if (!std::filesystem::exists(path)) {
        const double taken = snippetarium::bench::Milliseconds(
            [&] { snippetarium::bench::GenerateCatalogue(path, std::atoi(argv[2])); });
        std::printf("generated %s procedures in %.1f s\n", argv[2], taken / 1000.0);
    }
    snippetarium::bench::MeasureReads(folder);
    snippetarium::bench::MeasureCompaction(path);
    return 0;
}
