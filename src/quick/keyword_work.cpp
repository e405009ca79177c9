#include <string_view>
#include <utility>

#include "quick/work.h"
#include "store/database.h"

namespace snippetarium {

namespace {

// A word is looked for in the single words of the keywords, of which there are few, and a phrase in
// the strings that were typed.
constexpr std::string_view kSearchWords =
    "SELECT searchWordID, searchWord FROM tblSearchWord "
    "WHERE searchWordID > ?1 ORDER BY searchWordID LIMIT 4096";
constexpr std::string_view kKeywords =
    "SELECT keywordID, keyword FROM tblKeyword "
    "WHERE keywordID > ?1 ORDER BY keywordID LIMIT 4096";
constexpr std::string_view kKeywordsOfWord =
    "SELECT keywordID FROM tblKeyword_link_searchWord "
    "WHERE searchWordID = ?1 AND keywordID > ?2 ORDER BY keywordID LIMIT 4096";
constexpr std::int64_t kRowsAtATime = 4096;
/// Of a word that is in more keywords, rows are so easily found that it is quicker to go through
/// them all than to wait for their list.
constexpr std::size_t kMostKeywords = 4096;

class KeywordWork final : public QuickWork {
  public:
    KeywordWork(QuickPlan& plan, PlannedTerm& term) : plan_(plan), term_(term) {
        rows_.isEverything = false;
    }

    bool Advance() override {
        if (keywords_.size() > kMostKeywords) return false;
        if (!areTextsRead_) {
            ReadTexts();
        } else if (nextWord_ < words_.size()) {
            if (!FollowWord(words_[nextWord_])) ++nextWord_;
        } else if (!FollowKeywords()) {
            term_.keywordIDs = std::move(keywordIDs_);
            term_.In(QuickText::Keyword) = std::move(rows_);
            return false;
        }
        return true;
    }

  private:
    void ReadTexts() {
        const auto row = plan_.db.GetConnection().OpenCursor(
            term_.term.isPhrase ? kKeywords : kSearchWords, lastID_);
        std::int64_t count = 0;
        for (; row->Next(); ++count) {
            lastID_ = row->Number(0);
            if (!term_.pattern->Find(row->Text(1))) continue;
            if (term_.term.isPhrase) {
                NoteKeyword(lastID_);
            } else {
                words_.push_back(lastID_);
            }
        }
        areTextsRead_ = count < kRowsAtATime;
    }

    /// False when all keywords of the word are noted.
    bool FollowWord(std::int64_t searchWordID) {
        const auto row =
            plan_.db.GetConnection().OpenCursor(kKeywordsOfWord, searchWordID, lastKeywordID_);
        std::int64_t count = 0;
        for (; row->Next(); ++count) {
            lastKeywordID_ = row->Number(0);
            NoteKeyword(lastKeywordID_);
        }
        if (count == kRowsAtATime) return true;
        lastKeywordID_ = 0;
        return false;
    }

    void NoteKeyword(std::int64_t keywordID) {
        const auto id = static_cast<std::int32_t>(keywordID);
        if (id <= 0 || keywordIDs_.Holds(id)) return;
        keywordIDs_.Add(id);
        keywords_.push_back(id);
    }

    /// Notes the rows that have the next keywords. False behind the last.
    bool FollowKeywords() {
        constexpr int kKeywordsAtATime = 64;
        for (int i = 0; i < kKeywordsAtATime; ++i) {
            if (nextKeyword_ == keywords_.size()) return false;
            const std::int64_t keywordID = keywords_[nextKeyword_++];
            for (const QuickLevel& level : kQuickLevels) {
                const auto row = plan_.db.GetConnection().OpenCursor(level.idsOfKeyword, keywordID);
                while (row->Next()) {
                    const auto id = static_cast<std::int32_t>(row->Number(0));
                    if (id > 0) rows_.Of(level.kind).Add(id);
                }
            }
        }
        return true;
    }

    QuickPlan& plan_;
    PlannedTerm& term_;
    IdSet keywordIDs_;
    CandidateRows rows_;
    bool areTextsRead_ = false;
    std::int64_t lastID_ = 0;
    std::vector<std::int64_t> words_;
    std::size_t nextWord_ = 0;
    std::int64_t lastKeywordID_ = 0;
    std::vector<std::int32_t> keywords_;
    std::size_t nextKeyword_ = 0;
};

}  // namespace

std::unique_ptr<QuickWork> LookUpKeywords(QuickPlan& plan, std::size_t term) {
    return std::make_unique<KeywordWork>(plan, plan.terms[term]);
}

}  // namespace snippetarium
