#include "editors/search_words.h"

#include "editors/field_rules.h"
#include "keywords/keyword_saving.h"
#include "keywords/words.h"
#include "store/database.h"
#include "store/keyword_rows.h"
#include "store/sql_text.h"
#include "support/message_boxes.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kTooLong = "The word you specified is too long (over 50 characters).";
constexpr std::string_view kDigit = "A search word does not begin with a digit.";
constexpr std::string_view kGone = "The index does not have this word any more.";

bool Asks(Database& db, std::string_view question) {
    return AskYesNo(db.GetHost().messages, question, kQuestionTitle) == StandardAnswer::Yes;
}

}  // namespace

bool CheckSearchWord(Database& db, const NoiseWords& noise, std::string_view entry) {
    if (!AcceptNewWord(db.GetHost().messages, entry)) return false;
    const std::string_view word = TrimBlanks(entry);
    if (CharacterCount(word) > kShortTextLimit) return RefuseEntry(db, kTooLong);
    const std::string separated = SeparateWords(word);
    if (TrimBlanks(separated) != word || SplitWords(word).size() != 1)
        return RefuseSeveralWords(db);
    if (noise.IsNoiseWord(word))
        return RefuseEntry(db, Sql("'", word, "' is a noise word, which is never a search word."));
    return KeywordToSearchWords(word, noise) == word || RefuseEntry(db, kDigit);
}

bool RenameIndexWord(Database& db, std::string_view word, std::string_view entry) {
    const std::string_view newWord = TrimBlanks(entry);
    const std::int32_t searchWordID = FindSearchWord(db, word);
    if (searchWordID == 0) return RefuseEntry(db, kGone);
    const std::int32_t holder = FindSearchWord(db, newWord);
    if (holder != 0 && holder != searchWordID &&
        !Asks(db, Sql("The index has '", newWord, "' already. Make '", word,
                      "' the same word? All that is found by the one is then found by the other.")))
        return false;
    RenameSearchWord(db, searchWordID, newWord);
    return true;
}

bool RemoveIndexWord(Database& db, std::string_view word) {
    const std::int32_t searchWordID = FindSearchWord(db, word);
    if (searchWordID == 0) return RefuseEntry(db, kGone);
    if (!Asks(db, Sql("Delete '", word,
                      "' from the index? The keywords of applications, classes and procedures stay "
                      "as they are.")))
        return false;
    DeleteSearchWord(db, searchWordID);
    return true;
}

}  // namespace snippetarium
