#include "search/search_pane.h"

#include <optional>
#include <string_view>

#include "keywords/words.h"
#include "search/expression.h"
#include "store/database.h"
#include "store/job_progress.h"
#include "support/ascii_search.h"
#include "support/busy_pointer.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::string_view kPaneTitle = "Snippetarium";
constexpr std::string_view kSearchTitle = "Search";
constexpr std::string_view kNoLanguage = "Please select a language.";
constexpr std::string_view kNoEntry = "Please enter search word(s) in the text box.";
constexpr std::string_view kNoTopics = "No topics found.";

/// The entry is one phrase when it begins with a quotation mark, and a list of words otherwise.
enum class EntryForm { Words, Phrase };

/// One search of the form, its fields checked.
struct Search {
    Database& db;
    std::string entry;
    EntryForm form = EntryForm::Words;
    std::optional<std::int16_t> languageID;
    DateRange dates;
};

/// What a search found; nothing when its entry was refused and no statement was run.
using Found = std::optional<Recordset>;

/// Calls the one of the two operations that the search's language asks for.
template <typename Plain, typename WithLanguage, typename Condition>
Recordset Run(const Search& search, Plain plain, WithLanguage withLanguage,
              const Condition& condition) {
    if (search.languageID) return withLanguage(search.db, condition, *search.languageID);
    return plain(search.db, condition);
}

std::string Contains(std::string_view column, std::string_view text) {
    return std::string(column) + " LIKE '%" + std::string(text) + "%'";
}

/// Conditions about several columns with this text between them; empty when the entry is refused.
/// The first column's condition decides that, so that the user is told once.
std::string ConditionOnColumns(const Search& search, std::string_view between,
                               std::initializer_list<std::string_view> columns) {
    std::string all;
    for (const std::string_view column : columns) {
        const std::string condition =
            BuildFieldCondition(search.db.Reporter(), search.entry, column);
        if (condition.empty()) return {};
        if (!all.empty()) all += between;
        all += condition;
    }
    return all;
}

Found SearchKeywords(const Search& search) {
    if (search.form == EntryForm::Phrase) {
        return Run(search, KeywordPhraseSearch, KeywordPhraseSearchLanguage,
                   " WHERE " + Contains("k.keyword", search.entry));
    }
    if (FindIgnoringAsciiCase(search.entry, " and ") != std::string::npos) {
        const KeywordAndCondition condition =
            BuildKeywordAndCondition(search.db.Reporter(), search.entry);
        if (condition.text.empty()) return std::nullopt;
        return Run(search, KeywordAndSearch, KeywordAndSearchLanguage, condition);
    }
    const std::string condition = ConditionOnColumns(search, "", {search_column::kSearchWord});
    if (condition.empty()) return std::nullopt;
    return Run(search, KeywordOrSearch, KeywordOrSearchLanguage, condition);
}

Found SearchCode(const Search& search) {
    const std::string condition =
        search.form == EntryForm::Phrase
            ? Contains(search_column::kCode, search.entry) + " OR " +
                  Contains(search_column::kClassText, search.entry)
            : ConditionOnColumns(search, " OR ", {search_column::kCode, search_column::kClassText});
    if (condition.empty()) return std::nullopt;
    return Run(search, CodeTextSearch, CodeTextSearchLanguage, condition);
}

/// First each word against each part of a name, then the whole entry against them.
Found SearchAuthors(Search search) {
    using namespace search_column;
    search.entry = StripOuterQuotes(search.entry);
    const std::string words =
        ConditionOnColumns(search, "OR ", {kAuthorFirstName, kAuthorMiddleName, kAuthorLastName});
    if (words.empty()) return std::nullopt;
    Recordset found = Run(search, AuthorSearch, AuthorSearchLanguage, words);
    if (!found.EndOfFile()) return found;
    const std::string equals = " = '" + search.entry + "'";
    std::string whole = " " + std::string(kAuthorFirstName) + equals;
    whole.append(" OR ").append(kAuthorMiddleName).append(equals);
    whole.append(" OR ").append(kAuthorLastName).append(equals);
    return Run(search, AuthorSearch, AuthorSearchLanguage, whole);
}

/// Asks the progress window whether to go on with a search, as long as it lives.
class CancellableSearch {
  public:
    explicit CancellableSearch(Database& db)
        : connection_(db.GetConnection()),
          progress_(db.GetHost(), "Searching", JobProgress::Cancelling::Possible) {
        connection_.SetCancelPoll(&progress_);
    }
    ~CancellableSearch() { connection_.SetCancelPoll(nullptr); }
    CancellableSearch(const CancellableSearch&) = delete;
    CancellableSearch& operator=(const CancellableSearch&) = delete;

  private:
    Connection& connection_;
    JobProgress progress_;
};

Found RunSearch(const Search& search, SearchKind kind) {
    switch (kind) {
        case SearchKind::Keyword:
            return SearchKeywords(search);
        case SearchKind::Name:
            return Run(search, NameSearch, NameSearchLanguage, search.entry);
        case SearchKind::Code:
            return SearchCode(search);
        case SearchKind::Comment:
            return Run(search, CommentSearch, CommentSearchLanguage, search.entry);
        case SearchKind::Author:
            return SearchAuthors(search);
        case SearchKind::Date:
            return Run(search, DateRangeSearch, DateRangeSearchLanguage, search.dates);
    }
    return std::nullopt;
}

/// The search that the fields ask for; nothing, and the user told why, when they lack something.
std::optional<Search> ReadFields(Database& db, const SearchFields& fields) {
    MessageBoxes& messages = db.GetHost().messages;
    Search search{db, std::string(TrimBlanks(fields.entry)), EntryForm::Words, std::nullopt,
                  fields.dates};
    if (fields.isLanguageChecked) {
        if (fields.languageID == 0) {
            ShowInformation(messages, kNoLanguage, kPaneTitle);
            return std::nullopt;
        }
        search.languageID = fields.languageID;
    }
    if (search.entry.empty() && fields.kind != SearchKind::Date) {
        ShowInformation(messages, kNoEntry, kPaneTitle);
        return std::nullopt;
    }
    if (search.entry.starts_with('"') || search.entry.starts_with('\'')) {
        search.entry = std::string(StripOuterQuotes(search.entry));
        search.form = EntryForm::Phrase;
    }
    return search;
}

}  // namespace

SearchOutcome SearchPane::ListTopics(const SearchFields& fields) {
    return Guarded(db_.Reporter(), Procedure::ListTopics, [&] {
        const std::optional<Search> search = ReadFields(db_, fields);
        if (!search) return SearchOutcome::NotRun;
        Found found = [&] {
            const BusyPointer busy(db_.GetHost().events);
            std::optional<CancellableSearch> cancellable;
            if (progress_ == SearchProgress::Window) cancellable.emplace(db_);
            return RunSearch(*search, fields.kind);
        }();
        if (!found) return SearchOutcome::NotRun;
        if (ListSearchResults(db_, std::move(*found), topics_)) return SearchOutcome::Listed;
        ShowInformation(db_.GetHost().messages, kNoTopics, kSearchTitle);
        return SearchOutcome::NothingFound;
    });
}

}  // namespace snippetarium
