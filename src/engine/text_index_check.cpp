#include "engine/text_index_check.h"

#include <sqlite3.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>

#include "engine/engine_error.h"
#include "engine/open_for_reading.h"
#include "engine/posting_list.h"
#include "engine/read_snapshot.h"
#include "engine/text_segments.h"

namespace snippetarium {

// The index has its postings ordered by trigram and the texts are ordered by row; to bring them
// together would take as much memory as the index. But for each row one number is enough: the sum
// of the hashes of its trigrams, once over the postings and once over the text. Where the sums are
// the same, so are the trigrams. Where they differ, the row may just have more postings than it
// needs, because it was changed and taken in again. Of such rows, few as a rule, each trigram is
// looked for among all postings.

namespace {

constexpr std::size_t kExamples = 5;
constexpr std::size_t kRowsLookedForAtOnce = 5'000;

/// Of a trigram's key, so that sums of different sets differ.
std::uint64_t HashOf(TextKey key) {
    std::uint64_t hash = key * 0x9E3779B97F4A7C15U + 0x632BE59BD9B4E019U;
    hash = (hash ^ hash >> 30U) * 0xBF58476D1CE4E5B9U;
    hash = (hash ^ hash >> 27U) * 0x94D049BB133111EBU;
    return hash ^ hash >> 31U;
}

class TableCheck {
  public:
    TableCheck(sqlite3* database, const IndexedTable& table, const OnProgress& onProgress,
               const CancelPoll* poll)
        : database_(database), table_(table), onProgress_(onProgress), poll_(poll) {}

    TextIndexProblem Run() {
        problem_.table = table_.name;
        try {
            if (!FindSegments()) return problem_;
            SumPostings();
            CompareTexts();
            LookForSuspects();
        } catch (const EngineError& error) {
            if (error.Code() != EngineErrorCode::Corrupted) throw;
            problem_.damage = error.Description();
        }
        return std::move(problem_);
    }

  private:
    using VisitPosting = std::function<void(TextKey key, std::uint32_t id)>;
    using VisitText = std::function<void(std::uint32_t id, unsigned column, std::string_view text)>;

    /// False where the table has no index.
    bool FindSegments() {
        const StatementHandle row = PrepareStatement(
            database_, "SELECT indexedTo, segments FROM tblTextIndex WHERE ownerTableID = " +
                           std::to_string(table_.number));
        const int result = sqlite3_step(row.get());
        if (result == SQLITE_DONE) return false;
        if (result != SQLITE_ROW) ThrowEngineError(database_, result);
        indexedTo_ = sqlite3_column_int64(row.get(), 0);
        if (indexedTo_ < 0 || indexedTo_ > std::numeric_limits<std::int32_t>::max()) {
            throw EngineError(EngineErrorCode::Corrupted,
                              "The text index does not say how far it reaches.");
        }
        for (const TextSegment& segment : ReadTextSegments(database_)) {
            if (segment.table == table_.number && segment.state == SegmentState::InUse)
                segments_.push_back(segment);
        }
        if (static_cast<std::int64_t>(segments_.size()) != sqlite3_column_int64(row.get(), 1)) {
            throw EngineError(EngineErrorCode::Corrupted,
                              "A segment of the text index is missing.");
        }
        return true;
    }

    void VisitPostings(const VisitPosting& visit) const {
        TextBlockReader reader(database_);
        std::vector<std::uint32_t> ids;
        for (const TextSegment& segment : segments_) {
            const auto visitList = [&](TextKey key, std::string_view postings) {
                ids.clear();
                DecodePostings(postings, static_cast<std::uint32_t>(segment.firstID), ids);
                for (const std::uint32_t id : ids)
                    visit(key, id);
            };
            for (TextKey key = 0; key < kEndOfTextKeys; PollCancel())
                key = reader.Read(segment.segmentID, key, visitList);
        }
    }

    /// Of the rows that the index should know. `condition` is one about the ID.
    void VisitTexts(const std::string& condition, const VisitText& visit) const {
        std::string sql = "SELECT " + std::string(table_.idColumn);
        for (const std::string_view column : table_.columns)
            sql += ", " + std::string(column);
        const std::string number = std::to_string(table_.number);
        sql += " FROM " + std::string(table_.name) + " WHERE " + std::string(table_.idColumn) +
               condition + " AND " + std::string(table_.idColumn) +
               " NOT IN (SELECT ownerID FROM tblTextDirty WHERE ownerTableID = " + number + ")";
        const StatementHandle row = PrepareStatement(database_, sql);
        int result = SQLITE_OK;
        while ((result = sqlite3_step(row.get())) == SQLITE_ROW) {
            const auto id = static_cast<std::uint32_t>(sqlite3_column_int64(row.get(), 0));
            for (unsigned column = 0; column < table_.columns.size(); ++column) {
                const int place = static_cast<int>(column) + 1;
                const auto* text =
                    reinterpret_cast<const char*>(sqlite3_column_text(row.get(), place));
                const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row.get(), place));
                if (text != nullptr) visit(id, column, {text, size});
            }
            if (id % 1024 == 0) PollCancel();
        }
        if (result != SQLITE_DONE) ThrowEngineError(database_, result);
    }

    void SumPostings() {
        sums_.assign(static_cast<std::size_t>(indexedTo_) + 1, 0);
        VisitPostings([this](TextKey key, std::uint32_t id) {
            if (id < sums_.size()) sums_[id] += HashOf(key);
        });
    }

    /// Takes the texts' sums off the postings'; what is left should be nothing.
    void CompareTexts() {
        std::uint32_t current = 0;
        const auto finish = [&](std::uint32_t next) {
            if (current != 0 && sums_[current] != 0) suspects_.push_back(current);
            current = next;
        };
        VisitTexts(" BETWEEN 1 AND " + std::to_string(indexedTo_),
                   [&](std::uint32_t id, unsigned column, std::string_view text) {
                       if (id != current) finish(id);
                       for (const Trigram trigram : distinct_.Of(text))
                           sums_[id] -= HashOf(TextKeyOf(column, trigram));
                       if (onProgress_ && id % 1024 == 0)
                           onProgress_(static_cast<double>(id) / static_cast<double>(indexedTo_));
                   });
        finish(0);
        sums_ = {};
    }

    void LookForSuspects() {
        for (std::size_t i = 0; i < suspects_.size(); i += kRowsLookedForAtOnce) {
            const std::size_t end = std::min(i + kRowsLookedForAtOnce, suspects_.size());
            LookFor({suspects_.begin() + static_cast<std::ptrdiff_t>(i),
                     suspects_.begin() + static_cast<std::ptrdiff_t>(end)});
        }
    }

    /// Postings that rows need, and for each whether it was found.
    void LookFor(const std::vector<std::uint32_t>& rows) {
        std::vector<std::uint64_t> wanted;
        const auto postingOf = [](TextKey key, std::uint32_t id) {
            return std::uint64_t{key} << 32U | id;
        };
        for (const std::uint32_t row : rows) {
            VisitTexts(" = " + std::to_string(row),
                       [&](std::uint32_t id, unsigned column, std::string_view text) {
                           for (const Trigram trigram : distinct_.Of(text))
                               wanted.push_back(postingOf(TextKeyOf(column, trigram), id));
                       });
        }
        std::ranges::sort(wanted);
        std::vector<bool> isFound(wanted.size(), false);
        VisitPostings([&](TextKey key, std::uint32_t id) {
            if (!std::ranges::binary_search(rows, id)) return;
            const auto place = std::ranges::lower_bound(wanted, postingOf(key, id));
            if (place != wanted.end() && *place == postingOf(key, id))
                isFound[static_cast<std::size_t>(place - wanted.begin())] = true;
        });
        std::vector<std::uint32_t> lost;
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            if (!isFound[i]) lost.push_back(static_cast<std::uint32_t>(wanted[i]));
        }
        std::ranges::sort(lost);
        const auto rest = std::ranges::unique(lost);
        lost.erase(rest.begin(), rest.end());
        problem_.lostRows += static_cast<std::int64_t>(lost.size());
        for (const std::uint32_t id : lost) {
            if (problem_.examples.size() < kExamples) problem_.examples.push_back(id);
        }
    }

    void PollCancel() const {
        if (poll_ != nullptr && poll_->IsCancelled()) {
            throw EngineError(EngineErrorCode::Cancelled, "The check was cancelled.");
        }
    }

    sqlite3* database_;
    const IndexedTable& table_;
    const OnProgress& onProgress_;
    const CancelPoll* poll_;
    std::int64_t indexedTo_ = 0;
    std::vector<TextSegment> segments_;
    std::vector<std::uint64_t> sums_;
    std::vector<std::uint32_t> suspects_;
    DistinctTrigrams distinct_;
    TextIndexProblem problem_;
};

}  // namespace

std::vector<TextIndexProblem> CheckTextIndex(const std::string& path,
                                             std::span<const IndexedTable> tables,
                                             const OnProgress& onProgress, const CancelPoll* poll) {
    const DatabaseHandle database = OpenForReading(path);
    const ReadSnapshot snapshot(database.get());
    std::vector<TextIndexProblem> problems;
    for (const IndexedTable& table : tables) {
        TextIndexProblem problem = TableCheck(database.get(), table, onProgress, poll).Run();
        if (!problem.damage.empty() || problem.lostRows > 0) problems.push_back(std::move(problem));
    }
    return problems;
}

}  // namespace snippetarium
