#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>

#include "cli/closest_names.h"
#include "cli/command_context.h"
#include "cli/field_options.h"
#include "cli/interrupt_watch.h"
#include "cli/refused_error.h"
#include "cli/text_argument.h"
#include "cli/text_table.h"
#include "cli/topic_output.h"
#include "cli/usage_error.h"
#include "engine/cancel_poll.h"
#include "search/search_pane.h"
#include "support/date_text.h"

namespace snippetarium {

namespace {

constexpr std::string_view kKind = "KIND";
constexpr std::string_view kEntry = "ENTRY";
constexpr std::string_view kLanguage = "--language";
constexpr std::string_view kFrom = "--from";
constexpr std::string_view kTo = "--to";
constexpr std::string_view kSql = "--sql";

struct KindWord {
    std::string_view word;
    SearchKind kind;
};

// clang-format off
constexpr KindWord kKinds[] = {
    {"keyword", SearchKind::Keyword},
    {"name",    SearchKind::Name},
    {"code",    SearchKind::Code},
    {"comment", SearchKind::Comment},
    {"author",  SearchKind::Author},
    {"date",    SearchKind::Date},
};
constexpr CommandArgument kArguments[] = {
    {kKind,  Occurs::Once,       "keyword, name, code, comment, author or date"},
    {kEntry, Occurs::AtMostOnce, "what is searched for; none for a search by dates"},
};
constexpr CommandOption kOptions[] = {
    {kLanguage, "NAME", "only what has this language"},
    {kFrom,     "DATE", "a search by dates: the first day"},
    {kTo,       "DATE", "a search by dates: the last day"},
    {kSql,      "",     "print the statement that ran, too"},
};
constexpr CommandExample kExamples[] = {
    {"search keyword 'leap and month'",               "What has both words among its keywords."},
    {"search code 'DateSerial ring' --language Java",  "What has one of them in its code."},
    {"search code '\"mod 4 = 0\"'",                   "What has this phrase in its code."},
    {"search date --from 1999-01-01 --to 1999-12-31", "What bears a date of that year."},
};
// clang-format on

SearchKind ReadKind(const std::string& word) {
    std::vector<std::string_view> words;
    for (const KindWord& row : kKinds) {
        if (row.word == word) return row.kind;
        words.push_back(row.word);
    }
    throw UsageError("There is no search by '" + word + "'." + ClosestNamesHint(word, words));
}

DateTime ReadDay(const CommandContext& context, std::string_view option) {
    const std::optional<std::string> text = context.Given().Value(option);
    if (!text) throw UsageError("A search by dates takes --from and --to.");
    if (const std::optional<DateTime> day = ParseDateText(*text)) return *day;
    throw UsageError("'" + *text + "' is no date. Write one like 2001-03-14.");
}

/// What does not depend on the catalogue.
SearchFields ReadFields(const CommandContext& context) {
    const Arguments& given = context.Given();
    SearchFields fields;
    fields.kind = ReadKind(*given.Value(kKind));
    if (fields.kind == SearchKind::Date) {
        if (given.Has(kEntry)) throw UsageError("A search by dates takes no ENTRY.");
        fields.dates = {ReadDay(context, kFrom), ReadDay(context, kTo)};
        return fields;
    }
    if (given.Has(kFrom) || given.Has(kTo))
        throw UsageError("--from and --to are for a search by dates.");
    if (!given.Has(kEntry)) throw UsageError("What is to be searched for is missing: ENTRY.");
    fields.entry = *TextArgument(context, kEntry);
    return fields;
}

/// Ends the connection's searches when Ctrl+C is pressed, for as long as it lives.
class InterruptibleSearch final : public CancelPoll {
  public:
    explicit InterruptibleSearch(Connection& connection) : connection_(connection) {
        connection_.SetCancelPoll(this);
    }
    ~InterruptibleSearch() override { connection_.SetCancelPoll(nullptr); }
    InterruptibleSearch(const InterruptibleSearch&) = delete;
    InterruptibleSearch& operator=(const InterruptibleSearch&) = delete;

    bool IsCancelled() const override { return watch_.Take(); }

  private:
    Connection& connection_;
    mutable InterruptWatch watch_;
};

void PrintStatement(CommandContext& context, const Database& db) {
    context.Output() << OneLine(db.LastSearchStatement()) << "\n\n";
}

/// With --sql the statement is printed also where the engine refused it.
SearchOutcome Search(CommandContext& context, Database& db, SearchPane& pane,
                     const SearchFields& fields) {
    const bool wantsStatement = context.Given().Has(kSql) && !context.WantsJson();
    const InterruptibleSearch interruptible(db.GetConnection());
    try {
        const SearchOutcome outcome = pane.ListTopics(fields);
        if (wantsStatement && outcome != SearchOutcome::NotRun) PrintStatement(context, db);
        return outcome;
    } catch (...) {
        if (wantsStatement) PrintStatement(context, db);
        throw;
    }
}

void Run(CommandContext& context) {
    SearchFields fields = ReadFields(context);
    Database& db = context.Catalogue(CatalogueUse::Read);
    if (const auto language = TextArgument(context, kLanguage)) {
        fields.isLanguageChecked = true;
        fields.languageID = static_cast<std::int16_t>(FindLanguage(db, *language));
    }
    SearchPane pane(db);
    if (Search(context, db, pane, fields) == SearchOutcome::NotRun)
        throw RefusedError("Nothing was searched.");
    if (!context.WantsJson()) return PrintTopics(context, pane.Topics());
    Json document = {{"topics", TopicsDocument(pane.Topics())}};
    if (context.Given().Has(kSql)) document["sql"] = db.LastSearchStatement();
    context.SetDocument(document);
}

}  // namespace

constexpr CliCommand kSearchCommand = {
    .name = "search",
    .summary = "find applications, classes and procedures",
    .description =
        "Lists what has the words of the entry among its keywords, in its name, code or comment, "
        "or among its authors, or what bears a date of a range, each with its key in the tree.\n\n"
        "Words are joined by and, or, not; or is meant where nothing joins two. In keywords and "
        "authors * and ? stand for letters that are left open; elsewhere % and _ do. An entry in "
        "quotation marks is one phrase. docs/search-language.md has the whole of it.\n\n"
        "Ctrl+C cancels a search.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
