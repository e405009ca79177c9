#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/find_output.h"
#include "cli/refused_error.h"
#include "cli/text_argument.h"
#include "quick/quick_search.h"

namespace snippetarium {

namespace {

constexpr std::string_view kEntry = "ENTRY";
constexpr std::string_view kLimit = "--limit";
constexpr std::string_view kAsTyped = "--as-typed";
constexpr std::int32_t kUsualLimit = 20;
constexpr std::int32_t kHighestLimit = 1'000'000;
/// A search goes on for so long to tell how many hits there are besides those that are shown.
constexpr std::chrono::milliseconds kCounting{200};

// clang-format off
constexpr CommandArgument kArguments[] = {
    {kEntry, Occurs::Once, "words, phrases and filters"},
};
constexpr CommandOption kOptions[] = {
    {kLimit,   "N", "the most hits to show, 20 where nothing is said"},
    {kAsTyped, "",  "take the entry as unfinished, as while it is typed"},
};
constexpr CommandExample kExamples[] = {
    {"find leap",                               "What has \"leap\" in a name, keyword, comment or code."},
    {"find 'ring (add or mean) -lang:java'",    "Two of three words, in any language but one."},
    {"find 'name:is*year author:marta'",        "By a part of the name and an author."},
    {"find 'kind:class date:2001..2003'",       "All classes that bear a date of these years."},
};
// clang-format on

void RequireFinished(const QuickSearch& search) {
    if (search.Problems().empty()) return;
    std::string text;
    for (const QuickProblem& problem : search.Problems())
        text += (text.empty() ? "In the entry, " : "; ") + problem.text;
    throw RefusedError(text + ". Nothing was searched.");
}

void Search(QuickSearch& search, std::size_t limit) {
    while (search.Hits().size() < limit && search.Step()) {
    }
    const auto end = std::chrono::steady_clock::now() + kCounting;
    while (std::chrono::steady_clock::now() < end && search.Step()) {
    }
}

void Run(CommandContext& context) {
    const auto limit = static_cast<std::size_t>(
        context.Given().Number(kLimit, 1, kHighestLimit).value_or(kUsualLimit));
    const std::string entry = *TextArgument(context, kEntry);
    QuickSearch search(context.Catalogue(CatalogueUse::Read), entry, limit);
    if (!context.Given().Has(kAsTyped)) RequireFinished(search);
    Search(search, limit);
    if (context.WantsJson()) return context.SetDocument(HitsDocument(search));
    PrintHits(context, search);
}

}  // namespace

constexpr CliCommand kFindCommand = {
    .name = "find",
    .summary = "search everything at once",
    .description =
        "Lists the applications, classes and procedures that have all words of the entry in their "
        "names, keywords, comments or code, the best first: whole names, beginnings of names and "
        "of words in them, other parts of names, keywords, comments, code, and names that differ "
        "by one mistyped letter. Below each hit stands the line in which it was found.\n\n"
        "Words are joined by and, or, not; and is meant where nothing joins two. -word is not "
        "word. Brackets group, \"quotation marks\" make a phrase, * and ? stand for letters of a "
        "word. Filters are app: class: name: code: comment: keyword: author: lang: kind: date: "
        "docs/search-language.md has the whole of it.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
