// What translating a statement costs. The long texts are what an import stores: a procedure's
// source at the limit of 64,000 characters, with and without quotation marks to undouble.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "engine/jet_sql.h"

namespace snippetarium {
namespace {

constexpr std::size_t kLongest = 64000;

/// Lines of source, repeated up to the limit.
std::string Source(std::string_view line) {
    std::string text;
    while (text.size() + line.size() <= kLongest)
        text += line;
    return text;
}

constexpr std::string_view kPlainLine =
    "    total = total + items(index).price * items(index).count\r\n";
constexpr std::string_view kQuotedLine =
    "    label = ''total'' & Chr(39) ''the comment of this line\r\n";
constexpr std::string_view kQuotesOnly = "''";
constexpr std::string_view kCyrillicLine =
    "    итого = итого + цена(номер) * количество(номер)\r\n";

void Run(benchmark::State& state, const std::string& statement) {
    for (auto _ : state) {
        Translation translation = Translate(statement, {});
        benchmark::DoNotOptimize(translation);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * statement.size()));
}

void Insert(benchmark::State& state, std::string_view line) {
    Run(state, "INSERT INTO tblCode   (CodeName, Code, classID, keywordID) VALUES ('Draw', '" +
                   Source(line) + "', 12, 345)");
}

void Update(benchmark::State& state, std::string_view line) {
    Run(state, "UPDATE tblCode SET codeName = 'Draw', Code = '" + Source(line) +
                   "', classID = 12, keywordID = 345 WHERE codeID = 6789");
}

void ShortUpdate(benchmark::State& state) {
    Run(state, "UPDATE tblCode_Link_Language SET languageID=4 WHERE codeID=123456");
}

void Search(benchmark::State& state) {
    Run(state,
        "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM "
        "((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd "
        "ON "
        "cls.classID = cd.classID) INNER JOIN (tblKeyword_link_searchWord kls INNER JOIN "
        "tblSearchWord sw ON kls.searchWordID = sw.searchWordID) ON cd.keywordID = kls.keywordID "
        "WHERE sw.searchWord ='grid' or sw.searchWord LIKE 'draw%' ;");
}

BENCHMARK_CAPTURE(Insert, plain, kPlainLine);
BENCHMARK_CAPTURE(Insert, quoted, kQuotedLine);
BENCHMARK_CAPTURE(Insert, quotes_only, kQuotesOnly);
BENCHMARK_CAPTURE(Insert, cyrillic, kCyrillicLine);
BENCHMARK_CAPTURE(Update, plain, kPlainLine);
BENCHMARK_CAPTURE(Update, quoted, kQuotedLine);
BENCHMARK(ShortUpdate);
BENCHMARK(Search);

}  // namespace
}  // namespace snippetarium

BENCHMARK_MAIN();
