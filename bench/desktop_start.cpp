// How long the desktop program takes until it can be used, and how much memory.
//
//     bench_desktop_start CATALOGUE
//
// starts the program, without a display, on a copy of the catalogue: opens it, restores the window,
// fills the tree and the index, shows the window, paints it and lets all events run. Then the
// largest class is opened and its first procedure shown. Prints the figures.

#include <sys/resource.h>

#include <QApplication>
#include <QTreeView>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "forms/fContents.h"
#include "forms/fMain.h"
#include "forms/qt_host.h"
#include "store/database.h"
#include "tests/temporary_folder.h"

namespace snippetarium::bench {
namespace {

using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

double ProcessorMilliseconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto of = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return of(usage.ru_utime) + of(usage.ru_stime);
}

/// What the program holds of its own, without pages of files that the system can drop.
long ResidentMegabytes(const char* field) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word != field) continue;
        long kilobytes = 0;
        status >> kilobytes;
        return kilobytes / 1024;
    }
    return 0;
}

/// Runs a step and prints what it took.
template <typename Step>
void Measure(const char* name, Step step) {
    const double processor = ProcessorMilliseconds();
    const Clock::time_point start = Clock::now();
    step();
    std::printf("%-34s %7.1f ms, of the processor %7.1f ms\n", name,
                Milliseconds(Clock::now() - start), ProcessorMilliseconds() - processor);
}

NodeIDs LargestClass(Database& db) {
    Recordset row = db.GetConnection().Execute(
        "SELECT c.appID, c.classID, Count(*) AS n FROM tblClass c INNER JOIN tblCode p ON "
        "c.classID = p.classID GROUP BY c.appID, c.classID ORDER BY Count(*) DESC");
    return {.appID = row["appID"].Long(), .classID = row["classID"].Long()};
}

/// A catalogue of an older version is migrated at its first opening.
void BringUpToDate(const std::string& folder) {
    QtHost host;
    Database db(host.Interfaces(), CatalogueProviders(), folder);
    OpenCatalogue(db);
    CloseCatalogue(db);
}

void Run(const std::string& catalogue) {
    const test::TemporaryFolder folder;
    std::filesystem::copy_file(catalogue, folder.File(kCatalogueFileName));
    BringUpToDate(folder.Path());
    QtHost host;
    Database db(host.Interfaces(), CatalogueProviders(), folder.Path());
    std::unique_ptr<fMain> window;
    Measure("from nothing to a usable window", [&] {
        window = std::make_unique<fMain>(db, host);
        if (!window->Start()) std::exit(1);
        QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers, 0);
    });
    std::printf("%-34s %7ld MB, own %ld MB\n", "memory", ResidentMegabytes("VmRSS:"),
                ResidentMegabytes("RssAnon:"));
    auto* contents = window->findChild<fContents*>();
    const NodeIDs largest = LargestClass(db);
    Measure("its largest class selected", [&] { contents->SelectNode(largest); });
    auto* tree = window->findChild<QTreeView*>("trVwClass");
    Measure("and opened", [&] {
        tree->expand(tree->currentIndex());
        QCoreApplication::processEvents();
    });
    std::printf("%-34s %7d\n", "procedures in it", tree->model()->rowCount(tree->currentIndex()));
    window->close();
}

}  // namespace
}  // namespace snippetarium::bench

int main(int argumentCount, char* arguments[]) {
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: bench_desktop_start CATALOGUE\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    snippetarium::bench::Run(arguments[1]);
    return 0;
}
