// How soon quick search shows its first hits, and how long it keeps its caller waiting.
//
//     bench_quick_search FOLDER PROCEDURES [ENTRY...]
//
// makes FOLDER/QRT_SN.mde, a generated catalogue with its text index, and FOLDER/sources, the same
// code as files, where they are not there. Then a thousand keystrokes: entries typed letter by
// letter, each search dropped at the next letter as soon as its first hits are there. Last, the
// search for code alone beside ripgrep over the files. With entries, only these, ten times each.

#include <time.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bench/catalogue_generator.h"
#include "quick/quick_search.h"
#include "store/database.h"
#include "store/text_index.h"
#include "tests/fakes.h"

namespace snippetarium::bench {
namespace {

namespace fs = std::filesystem;

/// The processor's time, so that whatever else the machine does is not counted.
struct Clock {
    using duration = std::chrono::nanoseconds;
    static duration now() {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }
};

constexpr std::size_t kKeystrokes = 1000;

// What somebody types who knows the catalogue a little: names and parts of them, with slips, words
// of code and comments, filters and operators.
// clang-format off
constexpr std::string_view kEntries[] = {
    "drawgrid", "invoice", "customer report", "strSQL", "OrderID", "loadcustomer", "printer menu",
    "save record lang:java", "MoveNext", "sortmenu7", "gird", "UpdateReprot", "kind:class buffer",
    "Debug.Print", "hh:nn", "handleerror", "\"select case\"", "parse or split", "stream -read",
    "name:cursor", "code:ubound", "comment:folder", "app:window merge", "class:clsdraw fill",
    "author:grid17 convert", "date:1999..2000 query", "keyword:message", "c*unt regis?ry",
    "(open or close) socket", "not draw kind:app", "refresh1234", "fieldlist", "CheckDate",
    "walk the list", "name:save*grid code:controls", "picture index", "xyzzy", "ReadColumn42",
    "total values", "copy table -code:visible", "write", "Resize", "selct", "merge stream",
    "insert field", "count", "find message date:2000", "print", "lang:c open", "move window",
    "convert date", "loadgird", "lngID", "boolean", "registry", "closeform", "updatequery12",
    "kind:procedure name:fill", "Me.Controls", "ctl.Visible", "rs.EOF", "savecursor3", "menu",
    "socket", "hndleerror", "splitcolumn", "drawpicture", "folder message", "report", "loop",
};
// clang-format on

double Milliseconds(std::chrono::nanoseconds time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

/// The entries after each letter, from the beginning again until there are enough.
std::vector<std::string> Keystrokes() {
    std::vector<std::string> keystrokes;
    while (keystrokes.size() < kKeystrokes) {
        for (const std::string_view entry : kEntries) {
            for (std::size_t size = 1; size <= entry.size(); ++size)
                keystrokes.emplace_back(entry.substr(0, size));
        }
    }
    keystrokes.resize(kKeystrokes);
    return keystrokes;
}

struct Keystroke {
    std::string entry;
    double firstHits = 0;
    double longestStep = 0;
    bool hasHits = false;
    /// The time was over before it was known whether there are any.
    bool isOpen = false;
};

/// The next letter is typed by then.
constexpr double kPatience = 300;

/// Until there is something to show, or it is known that there is nothing.
Keystroke Type(Database& db, const std::string& entry) {
    Keystroke result{.entry = entry};
    const auto start = Clock::now();
    QuickSearch search(db, entry);
    for (bool hasMore = true; hasMore && search.Hits().empty();) {
        const auto before = Clock::now();
        hasMore = search.Step();
        result.longestStep = std::max(result.longestStep, Milliseconds(Clock::now() - before));
        result.isOpen = hasMore && Milliseconds(Clock::now() - start) > kPatience;
        if (result.isOpen) break;
    }
    result.firstHits = Milliseconds(Clock::now() - start);
    result.hasHits = !search.Hits().empty();
    result.isOpen = result.isOpen && !result.hasHits;
    return result;
}

void Print(const char* what, std::vector<double> times) {
    if (times.empty()) return;
    std::ranges::sort(times);
    const auto at = [&](double part) {
        return times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))];
    };
    std::printf("%-44s %5zu  median %7.2f  99th percentile %7.2f  longest %7.2f ms\n", what,
                times.size(), at(0.5), at(0.99), times.back());
}

/// Those with hits first.
void PrintSlowest(std::vector<Keystroke> typed) {
    constexpr std::size_t kMost = 12;
    std::ranges::sort(typed, std::ranges::greater(), &Keystroke::firstHits);
    for (const bool hasHits : {true, false}) {
        std::size_t count = 0;
        for (const Keystroke& key : typed) {
            if (key.hasHits != hasHits || ++count > kMost) continue;
            std::printf("    %-36s %7.2f ms, longest step %7.2f ms%s\n", key.entry.c_str(),
                        key.firstHits, key.longestStep, hasHits ? "" : ", none");
        }
    }
}

class OpenCatalogueFile {
  public:
    explicit OpenCatalogueFile(const fs::path& folder)
        : db_(host_.host, CatalogueProviders(), folder.string()) {
        OpenCatalogue(db_);
    }
    Database& Db() { return db_; }

  private:
    test::FakeHost host_;
    Database db_;
};

void MeasureKeystrokes(const fs::path& folder) {
    OpenCatalogueFile catalogue(folder);
    std::vector<Keystroke> typed;
    for (const std::string& entry : Keystrokes())
        typed.push_back(Type(catalogue.Db(), entry));
    std::vector<double> found;
    std::vector<double> nothing;
    std::vector<double> open;
    std::vector<double> steps;
    for (const Keystroke& key : typed) {
        (key.hasHits ? found : key.isOpen ? open : nothing).push_back(key.firstHits);
        steps.push_back(key.longestStep);
    }
    Print("first hits", found);
    Print("no hits", nothing);
    Print("not known within 300 ms", open);
    Print("longest step of each", steps);
    PrintSlowest(typed);
}

/// Every tenth keystroke with a catalogue that was just opened, so that nothing is in its memory.
void MeasureCold(const fs::path& folder) {
    const std::vector<std::string> keystrokes = Keystrokes();
    std::vector<double> found;
    std::vector<Keystroke> typed;
    for (std::size_t i = 0; i < keystrokes.size(); i += 10) {
        OpenCatalogueFile catalogue(folder);
        typed.push_back(Type(catalogue.Db(), keystrokes[i]));
        if (typed.back().hasHits) found.push_back(typed.back().firstHits);
    }
    Print("first hits, catalogue just opened", found);
    PrintSlowest(typed);
}

void MeasureBesideRipgrep(const fs::path& folder) {
    OpenCatalogueFile catalogue(folder);
    std::printf("%-24s %12s %12s %12s %12s\n", "code, milliseconds", "first hits", "all", "hits",
                "rg elapsed");
    for (const std::string_view term : {"drawgrid9972", "SortMenu7", "DrawGrid", "HandleError",
                                        "walk the list", "nowhere", "hh"}) {
        const auto start = Clock::now();
        QuickSearch search(catalogue.Db(), "code:\"" + std::string(term) + "\"");
        std::optional<double> first;
        while (search.Step()) {
            if (!first && !search.Hits().empty()) first = Milliseconds(Clock::now() - start);
        }
        const double all = Milliseconds(Clock::now() - start);
        const std::string command = "rg -c -i -F -e '" + std::string(term) + "' '" +
                                    (folder / "sources").string() + "' > /dev/null";
        const auto before = std::chrono::steady_clock::now();
        if (std::system(command.c_str()) < 0) std::exit(1);
        std::printf("%-24s %12.2f %12.2f %12zu %12.2f\n", std::string(term).c_str(),
                    first.value_or(all), all, search.FoundCount(),
                    Milliseconds(std::chrono::steady_clock::now() - before));
    }
}

void MeasureEntries(const fs::path& folder, std::span<char*> entries) {
    OpenCatalogueFile catalogue(folder);
    for (const char* entry : entries) {
        std::vector<double> times;
        for (int i = 0; i < 10; ++i)
            times.push_back(Type(catalogue.Db(), entry).firstHits);
        Print(entry, times);
    }
}

void Run(const fs::path& folder, int procedures, std::span<char*> entries) {
    const fs::path file = folder / kCatalogueFileName;
    if (!fs::exists(file)) {
        fs::create_directories(folder);
        GenerateCatalogue(file.string(), procedures);
        WriteSources(file, folder / "sources", "code");
        OpenCatalogueFile catalogue(folder);
        CompleteTextIndex(catalogue.Db());
    }
    if (!entries.empty()) return MeasureEntries(folder, entries);
    MeasureKeystrokes(folder);
    MeasureCold(folder);
    MeasureBesideRipgrep(folder);
}

}  // namespace
}  // namespace snippetarium::bench

int main(int argc, char** argv) {
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (argc < 3) {
        std::fputs("Usage: bench_quick_search FOLDER PROCEDURES [ENTRY...]\n", stderr);
        return 2;
    }
    snippetarium::bench::Run(arguments[1], std::atoi(arguments[2]), arguments.subspan(3));
    return 0;
}
