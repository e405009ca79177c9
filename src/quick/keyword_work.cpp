#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "quick/text_rows.h"
#include "quick/work.h"
#include "store/database.h"

namespace snippetarium {

namespace {

// A word is looked for in the single words of the keywords, of which there are few, and a phrase in
// the strings that were typed.
constexpr std::string_view kSearchWords =
    "SELECT searchWordID, searchWord FROM tblSearchWord "
    "WHERE searchWordID > ?1 ORDER BY searchWordID LIMIT 4096";
constexpr std::string_view kKeyword = "SELECT keyword FROM tblKeyword WHERE keywordID = ?1";
constexpr std::string_view kKeywords =
    "SELECT keywordID, keyword FROM tblKeyword "
    "WHERE keywordID > ?1 ORDER BY keywordID LIMIT 4096";
constexpr std::string_view kKeywordsOfWord =
    "SELECT keywordID FROM tblKeyword_link_searchWord "
    "WHERE searchWordID = ?1 AND keywordID > ?2 ORDER BY keywordID LIMIT 4096";
constexpr std::int64_t kTextsAtATime = 4096;
constexpr std::int64_t kLinksAtATime = 4096;
constexpr std::int64_t kRowsAtATime = 4096;
/// Of a word that is in more keywords, rows are so easily found that it is quicker to go through
/// them all than to wait for their list.
constexpr std::size_t kMostKeywords = 1024;
constexpr std::size_t kMostPhrases = 4096;

class KeywordWork final : public QuickWork {
  public:
    KeywordWork(QuickPlan& plan, PlannedTerm& term)
        : plan_(plan), term_(term), rows_(term.In(QuickText::Keyword)) {}

    bool Advance() override {
        switch (stage_) {
            case Stage::Texts:
                if (!ReadTexts()) stage_ = Stage::Words;
                break;
            case Stage::Words:
                if (nextWord_ == words_.size()) {
                    term_.keywordIDs = std::move(keywordIDs_);
                    stage_ = Stage::Keywords;
                } else if (!FollowWord(words_[nextWord_])) {
                    ++nextWord_;
                }
                break;
            case Stage::Keywords:
                if (FollowKeywords()) return true;
                rows_.KnowAll();
                return false;
            case Stage::UpperLevels:
                return ReadUpperLevel();
        }
        if (keywords_.size() > kMostKeywords || candidates_.size() > kMostPhrases) {
            stage_ = Stage::UpperLevels;
            lastKeywordID_ = 0;
        }
        return true;
    }

  private:
    enum class Stage { Texts, Words, Keywords, UpperLevels };

    /// Of applications and classes, few have keywords: all that do are read. False behind the last.
    bool ReadUpperLevel() {
        const QuickLevel& level = kQuickLevels[level_];
        if (level.kind == QuickKind::Procedure) return false;
        const auto row = plan_.db.GetConnection().OpenCursor(level.keywords, lastKeywordID_);
        std::int64_t count = 0;
        for (; row->Next(); ++count) {
            lastKeywordID_ = row->Number(0);
            if (row->Number(1) > 0)
                rows_.Of(level.kind).Add(static_cast<std::int32_t>(row->Number(1)));
        }
        if (count >= kRowsAtATime) return true;
        rows_.Know(level.kind);
        lastKeywordID_ = 0;
        ++level_;
        return true;
    }

    /// False behind the last.
    bool ReadTexts() {
        if (!term_.term.isPhrase) return ReadSearchWords();
        if (!scan_) scan_ = ScanKeywords(term_.pattern->Literal());
        if (plan_.db.GetConnection().Advance(*scan_)) return true;
        return scan_->IsKnown() ? CheckCandidates() : ReadKeywords();
    }

    bool ReadSearchWords() {
        SearchWords& all = plan_.searchWords;
        if (!all.areAllRead) {
            const std::int64_t last = all.entries.empty() ? 0 : all.entries.back().id;
            const auto row = plan_.db.GetConnection().OpenCursor(kSearchWords, last);
            std::int64_t count = 0;
            for (; row->Next(); ++count) {
                all.entries.push_back({row->Number(0), all.words.size()});
                all.words.append(row->Text(1)).append(1, ' ');
            }
            all.areAllRead = count < kTextsAtATime;
            return true;
        }
        FindWords(all);
        return false;
    }

    /// A word ends at the blank, which the pattern is not found across.
    void FindWords(const SearchWords& all) {
        std::size_t from = 0;
        while (const auto found = term_.pattern->Find(all.words, from)) {
            const auto behind =
                std::ranges::upper_bound(all.entries, found->begin, {}, &SearchWords::Entry::begin);
            words_.push_back(std::prev(behind)->id);
            if (behind == all.entries.end()) return;
            from = behind->begin;
        }
    }

    bool ReadKeywords() {
        const auto row = plan_.db.GetConnection().OpenCursor(kKeywords, lastID_);
        std::int64_t count = 0;
        for (; row->Next(); ++count) {
            lastID_ = row->Number(0);
            if (term_.pattern->Find(row->Text(1))) NoteKeyword(lastID_);
        }
        return count == kTextsAtATime;
    }

    /// Of the strings that may hold a phrase according to the text index.
    bool CheckCandidates() {
        if (lastID_ == 0) candidates_ = scan_->Candidates().value();
        const std::size_t end = std::min<std::size_t>(nextCandidate_ + 256, candidates_.size());
        for (; nextCandidate_ < end; ++nextCandidate_) {
            lastID_ = candidates_[nextCandidate_];
            const auto row = plan_.db.GetConnection().OpenCursor(kKeyword, lastID_);
            if (row->Next() && term_.pattern->Find(row->Text(0))) NoteKeyword(lastID_);
        }
        return nextCandidate_ < candidates_.size();
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
        if (count == kLinksAtATime) return true;
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
    CandidateRows& rows_;
    std::size_t level_ = 0;
    Stage stage_ = Stage::Texts;
    std::int64_t lastID_ = 0;
    std::optional<TextScan> scan_;
    std::vector<std::int64_t> candidates_;
    std::size_t nextCandidate_ = 0;
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
