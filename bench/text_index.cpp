// What the text index costs and what it gains, beside reading everything and beside ripgrep.
//
//     bench_text_index FOLDER PROCEDURES
//
// makes FOLDER/plain/QRT_SN.mde, a generated catalogue, and FOLDER/sources, the same texts as
// files, one for each class; builds the index in a copy; and prints how long searches take with it,
// without it, and how long ripgrep takes for the same text in the files. Each figure is the best of
// several runs: elapsed time, and processor time of all threads in brackets.

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "bench/catalogue_generator.h"
#include "engine/inspection.h"
#include "search/queries.h"
#include "store/database.h"
#include "store/text_index.h"
#include "tests/fakes.h"

namespace snippetarium::bench {
namespace {

namespace fs = std::filesystem;

struct Figure {
    double milliseconds = 1e9;
    double processor = 1e9;
};

double ProcessorMilliseconds(int whose) {
    rusage usage{};
    getrusage(whose, &usage);
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

Figure BestOf(int runs, int whose, const std::function<void()>& work) {
    Figure best;
    for (; runs > 0; --runs) {
        const double before = ProcessorMilliseconds(whose);
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> taken =
            std::chrono::steady_clock::now() - start;
        best.milliseconds = std::min(best.milliseconds, taken.count());
        best.processor = std::min(best.processor, ProcessorMilliseconds(whose) - before);
    }
    return best;
}

std::string Text(const Figure& figure) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%8.1f (%.1f)", figure.milliseconds, figure.processor);
    return text.data();
}

double Megabytes(double bytes) {
    return bytes / 1e6;
}

using Search = std::function<Recordset(Database&)>;

struct NamedSearch {
    std::string_view name;
    Search search;
    /// What ripgrep is to look for; empty where that has no counterpart.
    std::string_view pattern;
};

Search Code(std::string_view term) {
    const std::string condition = "cd.Code LIKE '%" + std::string(term) +
                                  "%' OR cls.classDI LIKE '%" + std::string(term) + "%' ";
    return [condition](Database& db) { return CodeTextSearch(db, condition); };
}

std::vector<NamedSearch> Searches() {
    return {
        {"code: rare term", Code("drawgrid9972"), "drawgrid9972"},
        {"code: term in one of 576", Code("DrawGrid"), "DrawGrid"},
        {"code: term with a class, one of 44", Code("function draw[c-m]"), "function draw[c-m]"},
        {"code: two terms joined by and",
         [](Database& db) {
             return CodeTextSearch(db, "cd.Code LIKE '%MoveNext%' and cd.Code LIKE '%SortMenu7%' ");
         },
         ""},
        {"code: one of 44, language 1",
         [](Database& db) {
             return CodeTextSearchLanguage(db, "cd.Code LIKE '%function draw[c-m]%'", 1);
         },
         ""},
        {"code: term in nearly half", Code("OrderID = "), "OrderID = "},
        {"code: two letters, none", Code("@~"), "@~"},
        {"code: two letters, half", Code("hh"), "hh"},
        {"name: a part, one of 2,300", [](Database& db) { return NameSearch(db, "SortMenu7"); },
         ""},
        {"comment: one of 576", [](Database& db) { return CommentSearch(db, "SortMenu"); },
         "SortMenu"},
        {"comment: rare", [](Database& db) { return CommentSearch(db, "menu for the qu_ry'"); },
         ""},
        {"keyword, one word",
         [](Database& db) { return KeywordOrSearch(db, "sw.searchWord ='LoadGrid77' "); }, ""},
        {"keyword phrase",
         [](Database& db) {
             return KeywordPhraseSearch(db, " WHERE k.keyword LIKE '%Grid SortMe%'");
         },
         ""},
        {"author",
         [](Database& db) { return AuthorSearchLanguage(db, "au.authorLName ='Grid17' ", 3); }, ""},
        {"date, one day",
         [](Database& db) {
             return DateRangeSearch(db, {{1999, 3, 1, 0, 0, 0}, {1999, 3, 1, 0, 0, 0}});
         },
         ""},
        {"index word", [](Database& db) { return IndexWordSearch(db, "LoadGrid77"); }, ""},
    };
}

class SearchedCatalogue {
  public:
    explicit SearchedCatalogue(const std::string& folder)
        : db_(host_.host, CatalogueProviders(), folder) {
        OpenCatalogue(db_);
    }
    Database& Db() { return db_; }

    Figure Measure(const Search& search, std::size_t& topics) {
        return BestOf(5, RUSAGE_SELF, [&] { topics = search(db_).RowCount(); });
    }

  private:
    test::FakeHost host_;
    Database db_;
};

void MeasureSearches(const fs::path& folder) {
    SearchedCatalogue indexed((folder / "indexed").string());
    SearchedCatalogue plain((folder / "plain").string());
    DropTextIndex(plain.Db());
    std::printf("%-36s %9s %20s %20s %20s\n", "milliseconds (processor)", "topics", "index",
                "plain", "ripgrep");
    for (const NamedSearch& search : Searches()) {
        std::size_t topics = 0;
        std::size_t plainTopics = 0;
        const Figure withIndex = indexed.Measure(search.search, topics);
        const Figure without = plain.Measure(search.search, plainTopics);
        std::string ripgrep;
        if (!search.pattern.empty()) {
            const std::string command = "rg -c -i -e '" + std::string(search.pattern) + "' '" +
                                        (folder / "sources").string() + "' > /dev/null";
            ripgrep = Text(BestOf(3, RUSAGE_CHILDREN, [&] {
                if (std::system(command.c_str()) < 0) std::exit(1);
            }));
        }
        std::printf("%-36s %9zu %20s %20s %20s%s\n", std::string(search.name).c_str(), topics,
                    Text(withIndex).c_str(), Text(without).c_str(), ripgrep.c_str(),
                    topics == plainTopics ? "" : "  DIFFERENT");
    }
}

/// A folder that was measured before has its index thrown away in "plain", and so in the copy.
void Build(const fs::path& folder) {
    SearchedCatalogue catalogue((folder / "indexed").string());
    bool isDone = false;
    const Figure built = BestOf(1, RUSAGE_SELF, [&] { isDone = RebuildTextIndex(catalogue.Db()); });
    std::printf("index built in %.1f s (%.1f s of processor time)%s\n", built.milliseconds / 1e3,
                built.processor / 1e3, isDone ? "" : ", NOT TO ITS END");
    for (const TextIndexState& state : ReadTextIndexState(catalogue.Db())) {
        std::printf("  table %d: %lld rows, %lld waiting, %lld segments, %.0f MB\n", state.table,
                    static_cast<long long>(state.rows), static_cast<long long>(state.waitingRows),
                    static_cast<long long>(state.segments),
                    Megabytes(static_cast<double>(state.bytes)));
    }
    CloseCatalogue(catalogue.Db());
}

void Run(const fs::path& folder, int procedures) {
    const fs::path plain = folder / "plain" / kCatalogueFileName;
    const fs::path indexed = folder / "indexed" / kCatalogueFileName;
    if (!fs::exists(plain)) {
        fs::create_directories(plain.parent_path());
        fs::create_directories(indexed.parent_path());
        GenerateCatalogue(plain.string(), procedures);
        WriteSources(plain, folder / "sources", "codeComment || char(13, 10) || code");
    }
    fs::copy_file(plain, indexed, fs::copy_options::overwrite_existing);
    const auto text = static_cast<double>(
        Inspection(plain.string())
            .ReadNumber(
                "SELECT sum(length(code) + length(codeComment) + length(codeName)) FROM tblCode"));
    const double before = static_cast<double>(fs::file_size(plain));
    Build(folder);
    const double after = static_cast<double>(fs::file_size(indexed));
    std::printf("text %.0f MB, file without index %.0f MB, with it %.0f MB: %.2f times the text\n",
                Megabytes(text), Megabytes(before), Megabytes(after), after / text);
    MeasureSearches(folder);
}

}  // namespace
}  // namespace snippetarium::bench

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("Usage: bench_text_index FOLDER PROCEDURES\n", stderr);
        return 2;
    }
    snippetarium::bench::Run(argv[1], std::atoi(argv[2]));
    return 0;
}
