#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/closest_names.h"
#include "cli/command_context.h"
#include "cli/one_action.h"
#include "cli/refused_error.h"
#include "cli/text_argument.h"
#include "cli/text_table.h"
#include "cli/topic_output.h"
#include "cli/usage_error.h"
#include "editors/search_words.h"
#include "store/reads_keywords.h"
#include "support/error.h"

namespace snippetarium {

namespace {

constexpr std::string_view kWord = "WORD";
constexpr std::string_view kRename = "--rename";
constexpr std::string_view kTo = "--to";
constexpr std::string_view kDelete = "--delete";

// clang-format off
constexpr CommandArgument kArguments[] = {
    {kWord, Occurs::AtMostOnce, "a search word; without it, all of them are listed"},
};
constexpr CommandOption kOptions[] = {
    {kRename, "WORD", "spell a search word as --to says, for all that is found by it"},
    {kTo,     "WORD", "the new spelling"},
    {kDelete, "WORD", "let nothing be found by a search word any more"},
};
constexpr CommandExample kExamples[] = {
    {"index",                            "The words by which things are found."},
    {"index leap",                       "What has this word among its keywords."},
    {"index --rename calender --to calendar", "Mends a word."},
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

void ShowTopics(CommandContext& context, const std::string& word) {
    Database& db = context.Catalogue(CatalogueUse::Read);
    RequireWord(db, word);
    TopicList topics;
    ListTopicsOfWord(db, word, topics);
    if (!context.WantsJson()) return PrintTopics(context, topics);
    context.SetDocument({{"word", word}, {"topics", TopicsDocument(topics)}});
}

void Rename(CommandContext& context, const std::string& word, const std::string& newWord) {
    Database& db = context.Catalogue(CatalogueUse::Change);
    RequireWord(db, word);
    RequireDone(CheckSearchWord(db, LoadNoiseWords(db), newWord) &&
                RenameIndexWord(db, word, newWord));
    if (context.WantsJson()) return context.SetDocument({{"word", newWord}});
    context.Output() << "Renamed: " << OneLine(newWord) << '\n';
}

void Delete(CommandContext& context, const std::string& word) {
    Database& db = context.Catalogue(CatalogueUse::Change);
    RequireWord(db, word);
    RequireDone(RemoveIndexWord(db, word));
    if (context.WantsJson()) return context.SetDocument({{"word", word}});
    context.Output() << "Deleted: " << OneLine(word) << '\n';
}

void Run(CommandContext& context) {
    const std::string_view action = OneAction(context.Given(), {kRename, kDelete});
    RequireBoth(context.Given(), kRename, kTo);
    const auto word = TextArgument(context, kWord);
    if (action.empty()) return word ? ShowTopics(context, *word) : ListWords(context);
    if (word) throw UsageError(std::string(action) + " names its word itself and takes no other.");
    const std::string changed = *TextArgument(context, action);
    action == kRename ? Rename(context, changed, *TextArgument(context, kTo))
                      : Delete(context, changed);
}

}  // namespace

constexpr CliCommand kIndexCommand = {
    .name = "index",
    .summary = "list the search words, or what has one of them, and mend them",
    .description =
        "Lists the words that keywords were broken into, in their order, or everything that has "
        "one of them among its keywords, with its key in the tree.\n\n"
        "A word that is renamed to one that the index has becomes the same word, after a question. "
        "Keywords stay as they were typed, and give their own words again when they are changed.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
