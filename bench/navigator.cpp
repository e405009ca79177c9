// How long the main window's work takes: the contents tree with 2,000 applications and a class of
// 20,000 procedures, and the highlighting of a text of 64,000 characters, until its first screen is
// known and as a whole.

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <string>

#include "engine/create_database.h"
#include "navigator/contents_pane.h"
#include "navigator/highlight.h"
#include "navigator/page.h"
#include "store/catalogue_content.h"
#include "store/database.h"
#include "tests/fakes.h"
#include "tests/temporary_folder.h"

namespace snippetarium::bench {
namespace {

constexpr NodeIDs kLargeClass{.appID = 2, .classID = 2};

/// Application 2 has the class 2 with 20,000 procedures, whose text has a marker of each tenth.
std::string FillScript() {
    const std::string numbers =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ";
    return numbers + "2000) INSERT INTO tblApplication(appName) SELECT 'Paint ' || i FROM n;" +
           "INSERT INTO tblClass(classID, className, appID, languageID, classDI) SELECT 2, 'Grid', "
           "2, 5, (" +
           numbers +
           "2000) SELECT group_concat('/***Procedure Draw' || (i * 10) || '***/', char(13, 10)) "
           "FROM n);" +
           numbers +
           "20000) INSERT INTO tblCode(codeName, classID, code) SELECT 'Draw' || i, 2, 'void "
           "Draw()' FROM n;";
}

class OpenCatalogue {
  public:
    OpenCatalogue() {
        CreateDatabase(folder_.File(kCatalogueFileName), CreationScript());
        db.Open();
        db.GetConnection().RunScript(FillScript());
    }

  private:
    test::TemporaryFolder folder_;
    test::FakeHost host_;

  public:
    Database db{host_.host, CatalogueProviders(), folder_.Path()};
};

void LoadContents(benchmark::State& state) {
    OpenCatalogue catalogue;
    ContentsPane pane(catalogue.db);
    for (auto _ : state)
        pane.Load({});
}
BENCHMARK(LoadContents)->Unit(benchmark::kMillisecond);

void ExpandClass(benchmark::State& state) {
    OpenCatalogue catalogue;
    ContentsPane pane(catalogue.db);
    for (auto _ : state) {
        pane.Load({});
        benchmark::DoNotOptimize(pane.Select({2, 2, 1}));
    }
}
BENCHMARK(ExpandClass)->Unit(benchmark::kMillisecond);

void RefreshLoadedClass(benchmark::State& state) {
    OpenCatalogue catalogue;
    ContentsPane pane(catalogue.db);
    pane.Load({});
    pane.Select({2, 2, 1});
    for (auto _ : state)
        pane.Refresh();
}
BENCHMARK(RefreshLoadedClass)->Unit(benchmark::kMillisecond);

void FilterContents(benchmark::State& state) {
    OpenCatalogue catalogue;
    ContentsPane pane(catalogue.db);
    pane.Load({});
    for (auto _ : state) {
        pane.SetFilter("draw19");
        pane.SetFilter("");
    }
}
BENCHMARK(FilterContents)->Unit(benchmark::kMillisecond);

void ReadClassPage(benchmark::State& state) {
    OpenCatalogue catalogue;
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadPage(catalogue.db, kLargeClass));
}
BENCHMARK(ReadClassPage)->Unit(benchmark::kMillisecond);

/// A text of 64,000 characters of a language.
std::string SourceText(std::int64_t languageID) {
    static constexpr std::string_view kLines[] = {
        "",
        "Private Sub Draw(ByVal x As Long, s As String)\n    s = \"grid\" & x + 1 'draws it\nEnd "
        "Sub\n",
        "public int draw(int x, String s) {\n    return s.length() + x * 2; // draws it\n}\n",
        "public int Draw(int x, string s) {\n    return s.Length + x * 2; // draws it\n}\n",
        "int Grid::draw(int x, const char* s) const {\n    return strlen(s) + x * 2; // draws "
        "it\n}\n",
        "static int draw(int x, const char *s)\n{\n    return strlen(s) + x * 2; /* draws it "
        "*/\n}\n",
        "<td class=\"grid\"><%= Cell(x, y) %></td>\n<% If x > 1 Then 'next\nEnd If %>\n",
        "function draw(x, s) {\n    return s.length + x * 2; // draws it\n}\n",
        "Function Draw(x, s)\n    Draw = \"grid\" & x + 1 'draws it\nEnd Function\n",
        "<td class=\"grid\" id=\"a1\"><b>cell</b> &amp; more</td>\n",
    };
    std::string text;
    while (text.size() < 64'000)
        text += kLines[languageID];
    return text;
}

void HighlightFirstScreen(benchmark::State& state) {
    const std::string text = SourceText(state.range(0));
    for (auto _ : state) {
        Highlighter highlighter(text, static_cast<std::int32_t>(state.range(0)));
        while (!highlighter.Work(std::chrono::milliseconds{8}) && highlighter.KnownUpTo() < 5'000) {
        }
        benchmark::DoNotOptimize(highlighter.Spans({0, 5'000}));
    }
}
BENCHMARK(HighlightFirstScreen)->DenseRange(1, 9)->Unit(benchmark::kMillisecond);

void HighlightWhole(benchmark::State& state) {
    const std::string text = SourceText(state.range(0));
    for (auto _ : state) {
        Highlighter highlighter(text, static_cast<std::int32_t>(state.range(0)));
        highlighter.Finish();
        benchmark::DoNotOptimize(highlighter.Spans({0, text.size()}));
    }
}
BENCHMARK(HighlightWhole)->DenseRange(1, 9)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace snippetarium::bench

BENCHMARK_MAIN();
