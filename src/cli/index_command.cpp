#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/closest_names.h"
#include "cli/command_context.h"
#include "cli/text_argument.h"
#include "cli/text_table.h"
#include "cli/topic_output.h"
#include "store/reads_keywords.h"
#include "support/error.h"

namespace snippetarium {

namespace {

constexpr std::string_view kWord = "WORD";

// clang-format off
constexpr CommandArgument kArguments[] = {
    {kWord, Occurs::AtMostOnce, "a search word; without it, all of them are listed"},
};
constexpr CommandExample kExamples[] = {
    {"index",      "The words by which things are found."},
    {"index leap", "What has this word among its keywords."},
};
// clang-format on

std::vector<std::string> AllWords(Database& db) {
    std::vector<std::string> words;
    for (Recordset row = AllSearchWords(db); !row.EndOfFile(); row.MoveNext())
        words.push_back(row["searchWord"].Text());
    return words;
}

void ListWords(CommandContext& context) {
    const std::vector<std::string> words = AllWords(context.Catalogue(CatalogueUse::Read));
    if (context.WantsJson()) return context.SetDocument({{"words", words}});
    for (const std::string& word : words)
        context.Output() << OneLine(word) << '\n';
}

void RequireWord(Database& db, const std::string& word) {
    if (SearchWordIDBySearchWord(db, word) != 0) return;
    const std::vector<std::string> words = AllWords(db);
    const std::vector<std::string_view> names(words.begin(), words.end());
    throw Error(error_number::kInvalidCall,
                "The index has no word '" + word + "'." + ClosestNamesHint(word, names));
}

void Run(CommandContext& context) {
    const auto word = TextArgument(context, kWord);
    if (!word) return ListWords(context);
    Database& db = context.Catalogue(CatalogueUse::Read);
    RequireWord(db, *word);
    TopicList topics;
    ListTopicsOfWord(db, *word, topics);
    if (!context.WantsJson()) return PrintTopics(context, topics);
    context.SetDocument({{"word", *word}, {"topics", TopicsDocument(topics)}});
}

}  // namespace

constexpr CliCommand kIndexCommand = {
    .name = "index",
    .summary = "list the search words, or what has one of them",
    .description =
        "Lists the words that keywords were broken into, in their order, or everything that has "
        "one of them among its keywords, with its key in the tree.",
    .arguments = kArguments,
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
