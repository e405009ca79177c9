#include "navigator/word_index.h"

#include <algorithm>
#include <utility>

#include "editors/search_words.h"
#include "store/database.h"
#include "store/reads_keywords.h"
#include "support/case_fold.h"
#include "support/guard.h"
#include "support/message_boxes.h"

namespace snippetarium {

void WordIndex::Load() {
    Guarded(db_.Reporter(), Procedure::LoadWordIndex, [&] {
        Recordset row = AllSearchWords(db_);
        std::vector<Word> words;
        words.reserve(row.RowCount());
        for (; !row.EndOfFile(); row.MoveNext())
            words.push_back({row["searchWordID"].Long(), std::string(row["searchWord"].Text())});
        words_ = std::move(words);
    });
}

std::size_t WordIndex::PlaceOf(std::string_view text) const {
    const auto place = std::ranges::lower_bound(
        words_, 0, {}, [&](const Word& word) { return CompareFolded(word.text, text); });
    return static_cast<std::size_t>(place - words_.begin());
}

std::optional<std::size_t> WordIndex::RowFor(std::string_view typed) const {
    if (typed.empty() || words_.empty()) return std::nullopt;
    // Words that begin with what was typed stand where it would stand, so the place serves for both
    // cases.
    return std::min(PlaceOf(typed), words_.size() - 1);
}

std::optional<std::size_t> WordIndex::RowOf(std::string_view word) const {
    const std::size_t row = PlaceOf(word);
    if (row == words_.size() || !EqualFolded(words_[row].text, word)) return std::nullopt;
    return row;
}

WordTopics WordIndex::OpenWord(std::string_view word) {
    return Guarded(db_.Reporter(), Procedure::OpenIndexWord, [&] {
        if (!ListTopicsOfWord(db_, word, topics_)) {
            ShowInformation(db_.GetHost().messages, "No topics found.", kInformationTitle);
            return WordTopics::None;
        }
        if (topics_.Topics().size() > 1) return WordTopics::Several;
        topics_.Select(0);
        return WordTopics::One;
    });
}

bool WordIndex::DeleteWord(std::string_view word) {
    return Guarded(db_.Reporter(), Procedure::DeleteIndexWord, [&] {
        const std::optional<std::size_t> row = RowOf(word);
        if (!row) return false;
        if (!RemoveIndexWord(db_, words_[*row].text)) return false;
        words_.erase(words_.begin() + static_cast<std::ptrdiff_t>(*row));
        return true;
    });
}

}  // namespace snippetarium
