#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>

namespace snippetarium {

class Database;

/// The words that are never search words, such as "the". Kept for the run beside the database, so
/// that breaking a keyword string into words asks the catalogue nothing.
class NoiseWords {
  public:
    /// No noise words.
    NoiseWords() = default;
    explicit NoiseWords(std::span<const std::string> words);

    /// All of them in lower case, each between two blanks: " about above ".
    const std::string& Text() const { return text_; }

    /// True when the text holds the word, in lower case, between two blanks. So each part of a
    /// noise word with blanks in it is one, and so is what stands side by side in the text.
    bool IsNoiseWord(std::string_view word) const;

  private:
    std::string text_ = " ";
    std::unordered_set<std::string> parts_;
};

/// The noise words of the catalogue; none when that fails.
NoiseWords LoadNoiseWords(Database& db);

/// Makes every word of the entry a noise word: in the catalogue and in `noise`. Search words equal
/// to them go, with their links, and they are taken out of the stored keyword strings
/// (word_removal.h says how). Returns how many words the entry has; punctuation alone has none, and
/// nothing is done. 0 on a failure too; what was done before it stays, and adding the words again
/// does the rest.
std::size_t AddNoiseWord(Database& db, NoiseWords& noise, std::string_view entry);

/// The word is no noise word any more. Keyword strings saved while it was one keep lacking the
/// search word. A failure is reported, and the word stays one.
void DeleteNoiseWord(Database& db, NoiseWords& noise, std::string_view word);

}  // namespace snippetarium
