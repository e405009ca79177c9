#include "keywords/noise_words.h"

#include <vector>

#include "keywords/word_removal.h"
#include "keywords/words.h"
#include "store/database.h"
#include "store/keyword_rows.h"
#include "store/reads_other.h"
#include "support/case_fold.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

/// Editors show the strings, and a string that is edited is broken into search words anew: what is
/// noise now is not to stay in them. There may be thousands to write.
void RemoveFromKeywords(Database& db, const NoiseWords& words) {
    BulkWriting writing(db.GetConnection());
    for (Recordset row = KeywordsWithSeparators(db); !row.EndOfFile(); row.MoveNext()) {
        const std::string keyword = row["keyword"].Text();
        const std::string without = RemoveWords(keyword, row["separator"].Text(), words);
        if (without != keyword)
            UpdateKeyword(db, row["keywordID"].Long(), without, row["separatorID"].Long());
    }
    FinishWriting(db, writing);
}

}  // namespace

NoiseWords::NoiseWords(std::span<const std::string> words) {
    for (const std::string& word : words)
        text_.append(FoldCase(word)).append(" ");
    for (const std::string_view part : SplitWords(text_))
        parts_.emplace(part);
}

bool NoiseWords::IsNoiseWord(std::string_view word) const {
    const std::string lowerCase = FoldCase(word);
    // The text has a part between two blanks exactly where it is split; only what has blanks
    // itself, or is empty, needs the search through the text.
    if (!lowerCase.empty() && lowerCase.find(' ') == std::string::npos)
        return parts_.contains(lowerCase);
    return text_.find(" " + lowerCase + " ") != std::string::npos;
}

NoiseWords LoadNoiseWords(Database& db) {
    return Guarded(db.Reporter(), Procedure::LoadNoiseWords, [&] {
        std::vector<std::string> words;
        for (Recordset row = CommonWordRS(db); !row.EndOfFile(); row.MoveNext())
            words.push_back(row["commonWord"].Text());
        return NoiseWords(words);
    });
}

std::size_t AddNoiseWord(Database& db, NoiseWords& noise, std::string_view entry) {
    return Guarded(db.Reporter(), Procedure::AddNoiseWord, [&] {
        const std::string separated = RemoveDuplicateWords(SeparateWords(entry));
        const std::vector<std::string_view> parts = SplitWords(separated);
        const std::vector<std::string> words(parts.begin(), parts.end());
        if (words.empty()) return words.size();
        AddNoiseWordRows(db, words);
        noise = LoadNoiseWords(db);
        DeleteSearchWords(db, words);
        RemoveFromKeywords(db, NoiseWords(words));
        return words.size();
    });
}

void DeleteNoiseWord(Database& db, NoiseWords& noise, std::string_view word) {
    Guarded(db.Reporter(), Procedure::DeleteNoiseWord, [&] {
        DeleteNoiseWordRow(db, word);
        noise = LoadNoiseWords(db);
    });
}

}  // namespace snippetarium
