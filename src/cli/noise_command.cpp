#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "cli/command_context.h"
#include "cli/one_action.h"
#include "cli/refused_error.h"
#include "cli/text_argument.h"
#include "cli/text_layout.h"
#include "cli/text_table.h"
#include "editors/noise_word_list.h"
#include "store/reads_other.h"
#include "support/error.h"

namespace snippetarium {

namespace {

constexpr std::string_view kAdd = "--add";
constexpr std::string_view kDelete = "--delete";

// clang-format off
constexpr CommandOption kOptions[] = {
    {kAdd,    "WORD", "make a word, or each of several, a noise word"},
    {kDelete, "WORD", "let a noise word be a word like any other"},
};
constexpr CommandExample kExamples[] = {
    {"noise",            "The noise words."},
    {"noise --add util", "Searches for keywords pass over 'util' from now on."},
};
// clang-format on

void List(CommandContext& context) {
    std::vector<std::string> words;
    Recordset row = CommonWordRS(context.Catalogue(CatalogueUse::Read));
    for (; !row.EndOfFile(); row.MoveNext())
        words.push_back(row["commonWord"].Text());
    if (context.WantsJson()) return context.SetDocument({{"noiseWords", words}});
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + OneLine(word);
    context.Output() << WrapParagraphs(text, 0);
}

void Report(CommandContext& context, std::string_view done, const std::vector<std::string>& words) {
    for (const std::string& word : words)
        context.Output() << done << ": " << OneLine(word) << '\n';
}

void ReportAdded(CommandContext& context, const NoiseWords& before,
                 const std::vector<std::string>& words, const NoiseEffect& effect) {
    std::vector<std::string> added;
    std::vector<std::string> known;
    for (const std::string& word : words)
        (before.IsNoiseWord(word) ? known : added).push_back(word);
    if (context.WantsJson())
        return context.SetDocument({{"noiseWords", added},
                                    {"alreadyNoiseWords", known},
                                    {"changedKeywords", effect.keywords}});
    Report(context, "Added", added);
    Report(context, "Is a noise word already", known);
    if (effect.keywords > 0) context.Output() << "Keywords changed: " << effect.keywords << '\n';
}

void Add(CommandContext& context, const std::string& entry) {
    const std::vector<std::string> words = WordsToAdd(entry);
    if (words.empty())
        throw Error(error_number::kInvalidCall, "There is no word in '" + entry + "'.");
    Database& db = context.Catalogue(CatalogueUse::Change);
    for (const std::string& word : words)
        RequireDone(FitsNoiseWord(db, word));
    const NoiseWords before = LoadNoiseWords(db);
    const NoiseEffect effect = EffectOfNoise(db, entry);
    // Also where all are noise words already: what an addition that was cut off left undone is
    // done then.
    NoiseWords noise = before;
    RequireDone(AddNoiseWord(db, noise, entry) > 0);
    ReportAdded(context, before, words, effect);
}

void Delete(CommandContext& context, const std::string& word) {
    Database& db = context.Catalogue(CatalogueUse::Change);
    if (CommonWordRSByWord(db, word).EndOfFile())
        throw Error(error_number::kInvalidCall, "'" + word + "' is no noise word. '" +
                                                    std::string(kProgramName) +
                                                    " noise' lists them.");
    NoiseWords noise = LoadNoiseWords(db);
    DeleteNoiseWord(db, noise, word);
    if (context.WantsJson()) return context.SetDocument({{"noiseWords", {word}}});
    Report(context, "Deleted", {word});
}

void Run(CommandContext& context) {
    const std::string_view action = OneAction(context.Given(), {kAdd, kDelete});
    if (action.empty()) return List(context);
    const std::string entry = *TextArgument(context, action);
    action == kAdd ? Add(context, entry) : Delete(context, entry);
}

}  // namespace

constexpr CliCommand kNoiseCommand = {
    .name = "noise",
    .summary = "list the noise words, add and delete them",
    .description =
        "Lists the noise words: words such as \"the\" that are never search words. A word that "
        "becomes one is taken out of all keywords, and it is said from how many. Keywords that "
        "were saved while it was one keep "
        "lacking it until they are saved again.",
    .arguments = {},
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
