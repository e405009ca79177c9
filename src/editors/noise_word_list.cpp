#include "editors/noise_word_list.h"

#include <algorithm>

#include "editors/field_rules.h"
#include "keywords/word_removal.h"
#include "keywords/words.h"
#include "store/database.h"
#include "store/keyword_rows.h"
#include "store/reads_other.h"
#include "store/sql_text.h"
#include "support/message_boxes.h"
#include "support/text.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kEmpty = "Please enter a word.";
constexpr std::string_view kTooLong = "The word you specified is too long (over 255 characters).";

std::string Question(std::string_view word, const NoiseEffect& effect) {
    const std::string strings =
        Counted(effect.keywords, "keyword string has", "keyword strings have");
    return Sql("Make '", word, "' a noise word? ", strings,
               " it. It is taken out of the index and of the keywords, and comes back there only "
               "when they are entered again.");
}

bool MayAdd(Database& db, const NoiseWords& noise, const std::vector<std::string>& words) {
    if (words.empty()) return RefuseEntry(db, kEmpty);
    if (words.size() > 1) return RefuseSeveralWords(db);
    const std::string& word = words.front();
    if (!FitsNoiseWord(db, word)) return false;
    if (noise.IsNoiseWord(word))
        return RefuseEntry(db, Sql("'", word, "' is a noise word already."));
    return true;
}

bool MayTakeEffect(Database& db, std::string_view word, const NoiseEffect& effect) {
    if (effect.keywords + effect.searchWords == 0) return true;
    return AskYesNo(db.GetHost().messages, Question(word, effect), kQuestionTitle) ==
           StandardAnswer::Yes;
}

}  // namespace

std::vector<std::string> WordsToAdd(std::string_view entry) {
    const std::string separated = RemoveDuplicateWords(SeparateWords(entry));
    const std::vector<std::string_view> words = SplitWords(separated);
    return {words.begin(), words.end()};
}

bool FitsNoiseWord(Database& db, std::string_view word) {
    return CharacterCount(word) <= kNameLimit || RefuseEntry(db, kTooLong);
}

NoiseEffect EffectOfNoise(Database& db, std::string_view entry) {
    NoiseEffect effect;
    const std::vector<std::string> words = WordsToAdd(entry);
    effect.searchWords = static_cast<std::size_t>(std::ranges::count_if(
        words, [&](const std::string& word) { return FindSearchWord(db, word) != 0; }));
    const NoiseWords noise(words);
    for (Recordset row = KeywordsWithSeparators(db); !row.EndOfFile(); row.MoveNext()) {
        const std::string keyword = row["keyword"].Text();
        if (RemoveWords(keyword, row["separator"].Text(), noise) != keyword) ++effect.keywords;
    }
    return effect;
}

std::optional<NoiseEffect> AddListedNoiseWord(Database& db, NoiseWords& noise,
                                              std::string_view entry) {
    const std::vector<std::string> words = WordsToAdd(entry);
    if (!MayAdd(db, noise, words)) return std::nullopt;
    const std::string& word = words.front();
    const NoiseEffect effect = EffectOfNoise(db, word);
    if (!MayTakeEffect(db, word, effect) || AddNoiseWord(db, noise, word) != 1) return std::nullopt;
    return effect;
}

bool DeleteListedNoiseWord(Database& db, NoiseWords& noise, std::string_view word) {
    if (CommonWordRSByWord(db, word).EndOfFile())
        return RefuseEntry(db, Sql("'", word, "' is no noise word any more."));
    DeleteNoiseWord(db, noise, word);
    return true;
}

}  // namespace snippetarium
