// How long the window keeps still at a time while the program works.
//
//     bench_window_stalls import FOLDER...
//
// imports the files of each folder and its subfolders into an empty catalogue, as the import dialog
// does, and prints the longest times between two turns of the event loop, with the file at hand.
//
//     bench_window_stalls choose FOLDER
//
// opens the import dialog on a folder with very many files, selects all of them, moves them to the
// files to import and back.
//
//     bench_window_stalls read CATALOGUE
//
// works with a copy of the catalogue as a user does: types into quick search letter by letter,
// opens all applications and the largest class, shows pages. Prints the longest time between two
// turns during each.
//
//     bench_window_stalls pages CATALOGUE
//
// does only the last of these, each page many times.
//
//     bench_window_stalls fresh FOLDER
//
// imports a folder into an empty catalogue and at once types into quick search, while the index of
// texts does not know the new rows: as the import leaves it, and with no row in it at all.
//
// Times are those of the processor: other programs do not count.

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "engine/create_database.h"
#include "forms/fContents.h"
#include "forms/fImport.h"
#include "forms/fMain.h"
#include "forms/fPage.h"
#include "forms/qt_host.h"
#include "import/import_job.h"
#include "import/import_selection.h"
#include "import/import_start.h"
#include "keywords/noise_words.h"
#include "store/catalogue_content.h"
#include "store/database.h"
#include "store/settings.h"
#include "store/text_index.h"
#include "support/disk_file_system.h"
#include "tests/temporary_folder.h"

namespace snippetarium::bench {
namespace {

constexpr std::size_t kShownStalls = 5;

/// Of this thread: what a background copy takes does not keep the window still.
double ThreadMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

struct Stall {
    double milliseconds = 0;
    std::string when;
};

/// Notes the time between two turns of the event loop: a timer that is always due fires in each.
class TurnWatch {
  public:
    TurnWatch() {
        timer_.setInterval(0);
        QObject::connect(&timer_, &QTimer::timeout, [this] { Turn(); });
    }

    void Start() {
        stalls_.clear();
        turns_ = 0;
        last_ = ThreadMilliseconds();
        timer_.start();
    }
    /// The longest time between two turns.
    double StopQuietly() {
        Turn();
        timer_.stop();
        std::ranges::sort(stalls_, std::ranges::greater(), &Stall::milliseconds);
        return stalls_.front().milliseconds;
    }
    void Stop(const char* what) {
        const double longest = StopQuietly();
        std::printf("%-40s %6zu turns, longest %7.1f ms\n", what, turns_, longest);
        const std::size_t shown = std::min(stalls_.size(), kShownStalls);
        for (std::size_t i = 0; i < shown && !stalls_[i].when.empty(); ++i)
            std::printf("    %7.1f ms  %s\n", stalls_[i].milliseconds, stalls_[i].when.c_str());
    }

  private:
    void Turn() {
        ++turns_;
        const double now = ThreadMilliseconds();
        stalls_.push_back({now - last_, last_ == 0 ? std::string() : FileAtHand()});
        last_ = now;
    }
    static std::string FileAtHand() {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            const auto* line = window->findChild<QLabel*>("lblContent");
            if (line != nullptr) return line->text().toStdString();
        }
        return {};
    }

    QTimer timer_;
    std::vector<Stall> stalls_;
    std::size_t turns_ = 0;
    double last_ = 0;
};

/// Lets the event loop run for some time of the clock, as between two keys of a typist.
void RunEventsFor(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void Import(TurnWatch& watch, Database& db, const std::string& folder) {
    const DiskFileSystem files;
    ImportState state;
    ImportSelection selection(db, files, state, EveryKindPattern());
    watch.Start();
    selection.ChangeFolder(folder);
    selection.SetIncludeSubfolder(true);
    watch.Stop(("list " + folder).c_str());
    const std::vector<std::string> entries = selection.SourceFiles();
    const ImportTexts texts{
        .application = folder, .applicationPath = folder, .language = LanguageText(entries)};
    const ImportStart start = StartImport(db, state, texts, entries.size());
    const NoiseWords noise = LoadNoiseWords(db);
    ImportJob job(db, files, state, noise, ProgramAnalysers());
    watch.Start();
    const ImportOutcome outcome =
        job.Run({.folder = folder,
                 .entries = entries,
                 .target = {.appID = start.appID, .language = texts.language}});
    watch.Stop(("import " + std::to_string(entries.size()) + " files").c_str());
    std::printf("    %s\n", outcome.time.c_str());
}

void ImportAll(const std::vector<std::string>& folders) {
    const test::TemporaryFolder folder;
    CreateDatabase(folder.File(kCatalogueFileName), CreationScript());
    QtHost host;
    Database db(host.Interfaces(), CatalogueProviders(), folder.Path());
    OpenCatalogue(db);
    TurnWatch watch;
    for (const std::string& each : folders)
        Import(watch, db, std::filesystem::absolute(each).lexically_normal().string());
    CloseCatalogue(db);
}

void ChooseFiles(const std::string& sources) {
    const test::TemporaryFolder folder;
    CreateDatabase(folder.File(kCatalogueFileName), CreationScript());
    QtHost host;
    Database db(host.Interfaces(), CatalogueProviders(), folder.Path());
    OpenCatalogue(db);
    StoreSetting(db, "import.folder", sources);
    const DiskFileSystem files;
    ImportState state;
    TurnWatch watch;
    watch.Start();
    fImport dialog(db, files, state, nullptr);
    dialog.show();
    RunEventsFor(100);
    watch.Stop("the dialog opened");
    auto* list = dialog.findChild<QListView*>("lstSrcFiles");
    std::printf("    %d files\n", list->model()->rowCount());
    const auto press = [&](const char* button) {
        watch.Start();
        dialog.findChild<QPushButton*>(button)->click();
        RunEventsFor(100);
        watch.Stop(button);
    };
    watch.Start();
    list->selectAll();
    RunEventsFor(100);
    watch.Stop("all selected");
    press("cmdAddOne");
    press("cmdRmvAll");
    press("cmdAddAll");
    dialog.reject();
    CloseCatalogue(db);
}

void TypeIntoQuickSearch(TurnWatch& watch, fMain& window,
                         std::initializer_list<const char*> entries) {
    constexpr int kBetweenKeys = 150;
    window.findChild<QAction*>("actQuickSearch")->trigger();
    auto* line = window.findChild<QLineEdit*>("txtQuick");
    // From here on somebody types, so that no text is indexed.
    QKeyEvent shift(QEvent::KeyPress, Qt::Key_Shift, Qt::NoModifier);
    QApplication::sendEvent(line, &shift);
    for (const char* entry : entries) {
        line->clear();
        RunEventsFor(kBetweenKeys);
        watch.Start();
        for (const char* key = entry; *key != '\0'; ++key) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier,
                            QString(QChar(*key)));
            QApplication::sendEvent(line, &press);
            RunEventsFor(kBetweenKeys);
        }
        watch.Stop((std::string("quick search ") + entry).c_str());
    }
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(line, &escape);
}

NodeIDs LargestClass(Database& db) {
    Recordset row = db.GetConnection().Execute(
        "SELECT c.appID, c.classID, Count(*) AS n FROM tblClass c INNER JOIN tblCode p ON "
        "c.classID = p.classID GROUP BY c.appID, c.classID ORDER BY Count(*) DESC");
    return {.appID = row["appID"].Long(), .classID = row["classID"].Long()};
}

void OpenTree(TurnWatch& watch, Database& db, fMain& window) {
    auto* contents = window.findChild<fContents*>();
    auto* tree = window.findChild<QTreeView*>("trVwClass");
    watch.Start();
    contents->Load([] {});
    RunEventsFor(50);
    watch.Stop((std::to_string(tree->model()->rowCount()) + " applications loaded").c_str());
    contents->SelectNode(LargestClass(db));
    RunEventsFor(50);
    watch.Start();
    tree->expand(tree->currentIndex());
    RunEventsFor(50);
    watch.Stop(
        (std::to_string(tree->model()->rowCount(tree->currentIndex())) + " procedures opened")
            .c_str());
    watch.Start();
    contents->Refresh();
    RunEventsFor(50);
    watch.Stop("the same refreshed");
}

/// A page as the code of some procedure.
struct SamplePage {
    const char* what;
    const char* line;
    std::size_t lines;
};

// clang-format off
constexpr SamplePage kSamplePages[] = {
    {"a page of 1,300 lines, 64,000 characters", "    If count > 7 Then total = total + 1 : Rem one\r\n", 1'300},
    {"a page of 2,000 lines",                    "    count = count + 1: Call Go\r\n",                 2'000},
    {"a page of one line, 64,000 long",          "total = total + 1: ",                               3'368},
};
// clang-format on

/// Selects a procedure with such a code in the tree, and in between its application, as one reads.
/// The second time and later ones are what one sees always.
void ShowPages(TurnWatch& watch, Database& db, fMain& window, int times) {
    auto* page = window.findChild<fPage*>();
    auto* contents = window.findChild<fContents*>();
    Recordset row = db.GetConnection().Execute(
        "SELECT c.appID, c.classID, p.codeID FROM tblClass c INNER JOIN tblCode p ON c.classID = "
        "p.classID WHERE c.appID > 1");
    const NodeIDs node{row["appID"].Long(), row["classID"].Long(), row["codeID"].Long()};
    for (const SamplePage& sample : kSamplePages) {
        std::string text;
        for (std::size_t line = 0; line < sample.lines; ++line)
            text += sample.line;
        text.resize(std::min<std::size_t>(text.size(), 64'000));
        db.GetConnection().RunScript("UPDATE tblCode SET code = '" + text +
                                     "' WHERE codeID = " + std::to_string(node.codeID));
        for (const bool wraps : {false, true}) {
            page->SetWrap(wraps);
            std::vector<double> longest;
            for (int i = 0; i < times; ++i) {
                contents->SelectNode({.appID = node.appID});
                RunEventsFor(100);
                watch.Start();
                contents->SelectNode(node);
                RunEventsFor(200);
                longest.push_back(watch.StopQuietly());
            }
            std::ranges::sort(longest);
            std::printf("%-40s %s longest turn %5.1f to %5.1f ms, in the middle %5.1f\n",
                        sample.what, wraps ? "wrapped" : "       ", longest.front(), longest.back(),
                        longest[longest.size() / 2]);
        }
    }
}

/// What is wanted of the tree: 2,000 applications, and 20,000 procedures in a class.
void AddMany(Database& db) {
    constexpr const char* kNumbers =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ";
    db.GetConnection().RunScript(
        std::string(kNumbers) +
        "2000) INSERT INTO tblApplication (appName) SELECT 'Application ' || i FROM n;" + kNumbers +
        "20000) INSERT INTO tblCode (codeName, code, classID) SELECT 'Procedure' || i, 'Sub', "
        "(SELECT max(classID) FROM tblClass) FROM n;");
}

enum class Reading { Everything, Pages };

void Read(const std::string& catalogue, Reading reading) {
    const test::TemporaryFolder folder;
    std::filesystem::copy_file(catalogue, folder.File(kCatalogueFileName));
    QtHost host;
    Database db(host.Interfaces(), CatalogueProviders(), folder.Path());
    fMain window(db, host);
    if (!window.Start()) std::exit(1);
    TurnWatch watch;
    watch.Start();
    RunEventsFor(3'000);
    watch.Stop("3 s of idle work: backup, text index");
    if (reading == Reading::Pages) return ShowPages(watch, db, window, 10);
    TypeIntoQuickSearch(watch, window,
                        {"drawgrid", "sortmenu7", "walk the list", "hh", "code:menu -sort"});
    AddMany(db);
    OpenTree(watch, db, window);
    ShowPages(watch, db, window, 3);
    window.close();
}

void TypeAfterImport(const std::string& sources) {
    const test::TemporaryFolder folder;
    CreateDatabase(folder.File(kCatalogueFileName), CreationScript());
    QtHost host;
    Database db(host.Interfaces(), CatalogueProviders(), folder.Path());
    fMain window(db, host);
    if (!window.Start()) std::exit(1);
    TurnWatch watch;
    Import(watch, db, std::filesystem::absolute(sources).lexically_normal().string());
    const auto type = [&](const char* when) {
        std::printf("%s:\n", when);
        for (const TextIndexState& state : ReadTextIndexState(db))
            std::printf("    table %d: %lld rows known, %lld wait\n", state.table,
                        static_cast<long long>(state.rows),
                        static_cast<long long>(state.waitingRows));
        TypeIntoQuickSearch(watch, window, {"format", "ar", "int i", "code:return -if", "qxz"});
    };
    type("as the import leaves the index");
    db.GetConnection().RunScript(TextIndexResetScript());
    type("nothing in the index");
    CompleteTextIndex(db);
    type("all in the index");
    window.close();
}

}  // namespace
}  // namespace snippetarium::bench

int main(int argumentCount, char* arguments[]) {
    using namespace snippetarium::bench;
    const std::vector<std::string> given(arguments + 1, arguments + argumentCount);
    const std::string job = given.size() < 2 ? std::string() : given[0];
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    if (job == "read") {
        Read(given[1], Reading::Everything);
    } else if (job == "pages") {
        Read(given[1], Reading::Pages);
    } else if (job == "fresh") {
        TypeAfterImport(given[1]);
    } else if (job == "choose") {
        ChooseFiles(given[1]);
    } else if (job == "import") {
        ImportAll({given.begin() + 1, given.end()});
    } else {
        std::fprintf(stderr,
                     "usage: bench_window_stalls import FOLDER... | choose FOLDER | "
                     "read CATALOGUE | pages CATALOGUE | fresh FOLDER\n");
        return 2;
    }
    return 0;
}
