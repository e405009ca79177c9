#pragma once

#include <cstdint>
#include <string>

#include "search/queries.h"
#include "search/topic_list.h"

namespace snippetarium {

/// What a search looks at: one value for each option of the form.
enum class SearchKind : std::uint8_t { Keyword, Name, Code, Comment, Author, Date };

/// The fields of the search form, as they stand.
struct SearchFields {
    SearchKind kind = SearchKind::Keyword;
    std::string entry = {};
    /// Whether the search is for one language; 0 is "Select a language".
    bool isLanguageChecked = false;
    std::int16_t languageID = 0;
    /// For a search by dates.
    DateRange dates = {};
};

/// How a search ended.
enum class SearchOutcome : std::uint8_t {
    /// The fields lacked something, the entry was refused, or the search failed or was cancelled.
    NotRun,
    NothingFound,
    Listed,
};

/// Whether a search that takes a while shows the progress window, in which it can be cancelled.
enum class SearchProgress : std::uint8_t { None, Window };

/// The search form without its window: checks the fields, tells what is wrong with them, runs the
/// search that they ask for, and holds the list of topics.
class SearchPane {
  public:
    explicit SearchPane(Database& db, SearchProgress progress = SearchProgress::None)
        : db_(db), progress_(progress) {}

    /// Runs the search and lists what it found. Where that is nothing, the list stays as it was,
    /// and the user has been told one thing: what is missing in the fields or wrong with the entry,
    /// that no topic was found, why the search failed, or that it was cancelled.
    SearchOutcome ListTopics(const SearchFields& fields);

    TopicList& Topics() { return topics_; }
    const TopicList& Topics() const { return topics_; }
    /// Whether there is a topic to display.
    bool CanDisplay() const { return !topics_.SelectedKey().empty(); }

  private:
    Database& db_;
    SearchProgress progress_;
    TopicList topics_;
};

}  // namespace snippetarium
