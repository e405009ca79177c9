// How fast the catalogue compares text: substring search, LIKE and the collation.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "engine/jet_like.h"
#include "engine/substring_search.h"
#include "support/case_fold.h"

namespace snippetarium {
namespace {

/// Text with the letters, blanks and line lengths of program source, the same in every run. It
/// never holds "zoom" or "quartz", in no case.
std::string SourceLikeText(std::size_t size) {
    constexpr std::string_view kPieces[] = {
        "Private Sub ",
        "Public Function ",
        "Dim ",
        "As String",
        "As Long",
        "value",
        "Count",
        "item",
        "name",
        "If ",
        " Then\r\n",
        "End If",
        "\r\n",
        "\r\n    ",
        " = ",
        "(",
        ")",
        ", ",
        "Return",
        "buffer",
        "' größer als ",
        "index",
        " + 1",
        "\"",
        "' Строка: ",
        "Set ",
        "recordset.",
    };
    std::mt19937 random(1);
    std::string text;
    while (text.size() < size)
        text += kPieces[random() % std::size(kPieces)];
    return text;
}

void Find(benchmark::State& state, std::string_view needle, ByteScan scan) {
    if (scan > FastestByteScan()) {
        state.SkipWithError("this processor has no such vectors");
        return;
    }
    const std::string text = SourceLikeText(static_cast<std::size_t>(state.range(0)));
    const FoldedNeedle compiled(needle, scan);
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(compiled.Find(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK_CAPTURE(Find, plain, "zoomLevel", ByteScan::Plain)->Arg(64'000);
BENCHMARK_CAPTURE(Find, sse2, "zoomLevel", ByteScan::Sse2)->Arg(64'000);
BENCHMARK_CAPTURE(Find, avx2, "zoomLevel", ByteScan::Avx2)->Arg(64)->Arg(1'000)->Arg(64'000);
BENCHMARK_CAPTURE(Find, common_letters, "nameless", FastestByteScan())->Arg(64'000);
BENCHMARK_CAPTURE(Find, cyrillic, "строчка", FastestByteScan())->Arg(64'000);
BENCHMARK_CAPTURE(Find, repetitive, "    (    (    (", FastestByteScan())->Arg(64'000);

// The patterns match nowhere, so that every byte is looked at.
void Like(benchmark::State& state, const char* pattern) {
    const std::string text = SourceLikeText(static_cast<std::size_t>(state.range(0)));
    const LikePattern compiled(pattern);
    if (compiled.Match(text)) state.SkipWithError("the pattern matches");
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(compiled.Match(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK_CAPTURE(Like, word, "%zoom%")->Arg(64)->Arg(1'000)->Arg(64'000);
BENCHMARK_CAPTURE(Like, two_words, "%name%zoom%")->Arg(64'000);
BENCHMARK_CAPTURE(Like, word_with_wildcard, "%zo_m%")->Arg(64'000);
BENCHMARK_CAPTURE(Like, frequent_run, "%nam[!e]%")->Arg(64'000);
BENCHMARK_CAPTURE(Like, sets_only, "%[0-9][0-9]%")->Arg(64'000);
BENCHMARK_CAPTURE(Like, start_of_text, "zoom%")->Arg(64'000);

void CompileLike(benchmark::State& state) {
    for ([[maybe_unused]] auto iteration : state) {
        const LikePattern pattern("%getName[!a-z]%");
        benchmark::DoNotOptimize(&pattern);
    }
}
BENCHMARK(CompileLike);

/// Pairs of names as an index holds them next to each other: most differ late, in the last
/// characters.
void Compare(benchmark::State& state, std::string_view beginning) {
    constexpr int kCount = 1000;
    std::vector<std::string> names;
    names.reserve(kCount);
    for (int i = 0; i < kCount; ++i)
        names.push_back(std::string(beginning) + std::to_string(i));
    for ([[maybe_unused]] auto iteration : state) {
        for (std::size_t i = 1; i < names.size(); ++i) {
            benchmark::DoNotOptimize(CompareFolded(names[i - 1], names[i]));
        }
    }
    state.SetItemsProcessed(state.iterations() * (kCount - 1));
}
BENCHMARK_CAPTURE(Compare, short_name, "txt");
BENCHMARK_CAPTURE(Compare, long_name, "ConnectionManager::OpenRecordset(");
BENCHMARK_CAPTURE(Compare, cyrillic_name, "ОткрытьСоединение");

void Fold(benchmark::State& state) {
    const std::string text = SourceLikeText(64'000);
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(FoldCase(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(Fold);

}  // namespace
}  // namespace snippetarium

BENCHMARK_MAIN();
