#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "search/topic_list.h"

namespace snippetarium {

class Database;

/// The text shown in place of the list while it is loaded.
inline constexpr std::string_view kLoadingIndexText = "Loading Index";

enum class WordTopics : std::uint8_t {
    /// Nothing bears the word any more; the user has been told. Or the search failed.
    None,
    /// To be shown at once.
    One,
    /// To be chosen from, in fTopicsFound.
    Several,
};

/// The keyword index pane without its controls: the search words of the catalogue, sorted.
class WordIndex {
  public:
    explicit WordIndex(Database& db) : db_(db) {}

    /// Reads the words anew; guarded.
    void Load();

    std::size_t Count() const { return words_.size(); }
    std::string_view WordAt(std::size_t row) const { return words_.at(row).text; }
    /// The row to jump to when this has been typed: the first word that begins so, in any letter
    /// case; where none does, the one before which it would stand, the last at most. Nothing for an
    /// empty index or text.
    std::optional<std::size_t> RowFor(std::string_view typed) const;
    /// The row of exactly this word.
    std::optional<std::size_t> RowOf(std::string_view word) const;

    /// Looks up what bears the word. Topics() then has it.
    WordTopics OpenWord(std::string_view word);
    TopicList& Topics() { return topics_; }

    /// Asks first. True when the word is gone, also from here; the keyword strings that it came
    /// from stay as they are.
    bool DeleteWord(std::string_view word);

  private:
    struct Word {
        std::int32_t searchWordID = 0;
        std::string text;
    };

    /// The row of the first word that does not sort before the text.
    std::size_t PlaceOf(std::string_view text) const;

    Database& db_;
    std::vector<Word> words_;  // in the order of CompareFolded, which is the catalogue's
    TopicList topics_;
};

}  // namespace snippetarium
