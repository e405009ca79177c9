#include "keywords/keyword_saving.h"

#include "keywords/words.h"
#include "store/database.h"
#include "store/keyword_rows.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/text.h"

namespace snippetarium {

namespace {

/// The separator of keyword strings that the program derives: a blank.
constexpr std::int32_t kDerivedSeparatorID = 1;

constexpr std::string_view kWhiteSpace = " \t\r\n";
constexpr std::string_view kEnterNewWord = "Please enter a new word.";

}  // namespace

std::int32_t SaveKeyword(Database& db, const NoiseWords& noise, std::string_view keyword,
                         std::int32_t separatorID) {
    return Guarded(db.Reporter(), Procedure::SaveKeyword, [&] {
        const std::string words = KeywordToSearchWords(keyword, noise);
        const std::int32_t keywordID = AddKeyword(db, keyword, separatorID);
        LinkKeywordSearchWords(db, keywordID, SplitWords(words));
        return keywordID;
    });
}

std::int32_t SaveDerivedKeyword(Database& db, const NoiseWords& noise, std::string_view text) {
    return Guarded(db.Reporter(), Procedure::SaveDerivedKeyword, [&] {
        const std::string words = KeywordToSearchWords(text, noise);
        if (TrimToVisible(words).empty()) return std::int32_t{0};
        const std::int32_t keywordID = AddKeyword(db, words, kDerivedSeparatorID);
        LinkKeywordSearchWords(db, keywordID, SplitWords(words));
        return keywordID;
    });
}

StandardAnswer AskForKeywords(MessageBoxes& messages, std::string_view ownerKind) {
    std::string question = "Keywords help to find this ";
    question.append(ownerKind).append(" easily.\r\n\r\nWould you like to add keywords to this ");
    question.append(ownerKind).append("?");
    return AskYesNo(messages, question, kQuestionTitle);
}

bool AcceptNewWord(MessageBoxes& messages, std::string_view entry) {
    if (entry.find_first_not_of(kWhiteSpace) != std::string_view::npos) return true;
    ShowInformation(messages, kEnterNewWord, kInformationTitle);
    return false;
}

}  // namespace snippetarium
