// How long the deletion of a large application takes, and bringing it back, and how much memory.
//
//     bench_deletion FOLDER PROCEDURES
//
// makes FOLDER/before.mde, a catalogue in which one application has that many procedures and others
// together as many again, deletes that application in a copy of it, brings it back from the trash,
// and prints the figures. Each of its procedures has a keyword string of four words, an author, a
// date and a bookmark.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "bench/catalogue_generator.h"
#include "engine/sqlite_handle.h"
#include "store/database.h"
#include "store/deletion.h"
#include "store/text_index.h"
#include "store/trash.h"
#include "tests/fakes.h"

namespace snippetarium::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::int32_t kLargeAppID = 2;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

rusage Usage() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage;
}

/// Of all processors together, in the program and in the system.
double ProcessorSeconds(const rusage& usage) {
    return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

/// Puts the first classes of a generated catalogue into one application and gives its procedures
/// all that a procedure can have.
std::string LargeApplicationScript(std::int32_t procedures) {
    const std::string ofLarge = " WHERE codeID <= " + std::to_string(procedures);
    const std::string fourWords =
        " FROM tblCode c CROSS JOIN (SELECT 1 AS n UNION SELECT 2 UNION SELECT 3 UNION SELECT 4) "
        "w" +
        ofLarge;
    return "UPDATE tblClass SET appID = " + std::to_string(kLargeAppID) +
           " WHERE classID IN (SELECT classID FROM tblCode" + ofLarge + ");" +
           "DELETE FROM tblKeyword_link_searchWord WHERE keywordID IN (SELECT keywordID FROM "
           "tblCode" +
           ofLarge + ");" +
           "INSERT OR IGNORE INTO tblKeyword SELECT codeID, codeName, 1 FROM tblCode" + ofLarge +
           ";" + "UPDATE tblCode SET keywordID = codeID" + ofLarge + ";" +
           "INSERT INTO tblKeyword_link_searchWord SELECT c.codeID, 1 + (c.codeID * 7919 + w.n * "
           "104729) % 30000" +
           fourWords + ";" +
           "INSERT OR IGNORE INTO tblSearchWord SELECT DISTINCT searchWordID, 'large' || "
           "searchWordID FROM tblKeyword_link_searchWord;" +
           "DELETE FROM tbl_Author_Link WHERE ownerID <= " + std::to_string(procedures) + ";" +
           "INSERT INTO tbl_Author_Link SELECT codeID, 1 + codeID % 90, 3 FROM tblCode" + ofLarge +
           ";" + "DELETE FROM tbl_date_link WHERE ownerID <= " + std::to_string(procedures) + ";" +
           "INSERT INTO tbl_date_link SELECT codeID, 1 + codeID % 900, 3 FROM tblCode" + ofLarge +
           ";" + "INSERT INTO tblFavorite SELECT 2, classID, codeID FROM tblCode" + ofLarge + ";";
}

void MakeCatalogue(const std::string& path, std::int32_t procedures) {
    GenerateCatalogue(path, 2 * procedures);
    Connection connection(CatalogueProviders());
    connection.SetConnectionString("Provider=" + std::string(kCatalogueProvider) +
                                   ";Data Source=" + path);
    connection.Open();
    connection.RunScript(LargeApplicationScript(procedures));
}

/// Runs the work in a process of its own, so that what memory it takes is not counted as this
/// one's.
template <typename Work>
void RunApart(const Work& work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) std::exit(1);
}

struct TimedStatement {
    std::string text;
    Clock::time_point start;
};

void PrintSlow(const std::vector<TimedStatement>& statements, Clock::time_point end) {
    for (std::size_t i = 0; i < statements.size(); ++i) {
        const Clock::time_point next = i + 1 < statements.size() ? statements[i + 1].start : end;
        const std::chrono::duration<double, std::milli> taken = next - statements[i].start;
        if (taken.count() < 20.0) continue;
        std::printf("  %8.0f ms  %s\n", taken.count(), statements[i].text.substr(0, 110).c_str());
    }
}

void PrintPeakMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("  peak memory %.0f MB\n", static_cast<double>(usage.ru_maxrss) / 1024.0);
}

void Measure(const std::string& folder) {
    test::FakeHost host;
    Database db(host.host, CatalogueProviders(), folder);
    OpenCatalogue(db);
    CompleteTextIndex(db);  // what the generator has left to index is not what a deletion costs
    std::vector<TimedStatement> statements;
    double processorKept = 0.0;
    db.SetStatementObserver([&](std::string_view sql) {
        if (statements.empty()) processorKept = ProcessorSeconds(Usage());
        statements.push_back({std::string(sql), Clock::now()});
    });
    const double processorBefore = ProcessorSeconds(Usage());
    const Clock::time_point start = Clock::now();
    DeleteApplication(db, kLargeAppID);
    const double taken = SecondsSince(start);
    PrintSlow(statements, Clock::now());
    const double processor = ProcessorSeconds(Usage());
    const std::chrono::duration<double> kept = statements.front().start - start;
    std::printf("kept in the trash in %.2f s (%.2f s of processor time)\n", kept.count(),
                processorKept - processorBefore);
    std::printf("deleted in %.2f s (%.2f s of processor time), %zu statements\n",
                taken - kept.count(), processor - processorKept, statements.size());
    PrintPeakMemory();
    const Clock::time_point again = Clock::now();
    RestoreFromTrash(db, ListTrash(db).at(0).trashID);
    std::printf("brought back in %.2f s, failures: %zu\n", SecondsSince(again),
                host.messages.shown.size());
    PrintPeakMemory();
    CloseCatalogue(db);
}

}  // namespace
}  // namespace snippetarium::bench

int main(int argc, char** argv) {
    using namespace snippetarium;
    if (argc != 3) {
        std::fputs("Usage: bench_deletion FOLDER PROCEDURES\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    const std::filesystem::path before = folder / "before.mde";
    std::filesystem::create_directories(folder);
    if (!std::filesystem::exists(before)) {
        bench::RunApart([&] { bench::MakeCatalogue(before.string(), std::atoi(argv[2])); });
    }
    std::filesystem::copy_file(before, folder / kCatalogueFileName,
                               std::filesystem::copy_options::overwrite_existing);
    sync();  // so that writing the copy to the disk is not measured too
    bench::Measure(folder.string());
    return 0;
}
