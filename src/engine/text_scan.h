#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/id_set.h"
#include "engine/search_conditions.h"
#include "engine/text_block.h"
#include "engine/text_index.h"

namespace snippetarium {

class TextLookup;

/// Where the index of one table is, as of one moment.
struct TextExtent {
    struct Segment {
        std::int64_t segmentID = 0;
        std::int64_t firstID = 0;
        std::int64_t rows = 0;
        std::int64_t bytes = 0;
        bool operator==(const Segment&) const = default;
    };
    bool isThere = false;
    std::int64_t indexedTo = 0;
    /// The one with the newest rows first.
    std::vector<Segment> segments;
    bool operator==(const TextExtent&) const = default;
};

/// Texts of two characters have no trigram.
enum class ShortTexts : std::uint8_t {
    /// Rows whose text is a literal of two characters and nothing else may be missing.
    MayBeMissing,
    /// They are not. But then it can only be told which rows have such a literal where the index
    /// shows that all texts are longer: where each has a line break.
    AreFound,
};

// Of a word that most rows have, each list is as long as the table: to look it up takes many
// milliseconds, which nobody may wait for who types. So a scan goes from segment to segment and
// list to list in pieces, and so it does through rows that are in no segment yet. Nothing is held
// between two pieces, and the index may be changed there: what is seen of it is compared with what
// was seen before, and if segments came or went, the scan begins anew.

/// Looks a text up in the index of one column, piece by piece (Connection::Advance).
///
///     TextScan scan({"tblCode", "code"}, "grid");
///     while (connection.Advance(scan)) MaybeDoSomethingElse();
///     if (scan.IsKnown()) Use(scan.Rows());
class TextScan {
  public:
    /// A piece ends when it has read so many bytes of the index: a millisecond or two.
    static constexpr std::size_t kPiece = std::size_t{256} << 10U;

    /// Looks for a literal, which is taken as it is. A literal of two ASCII characters is looked up
    /// too, by all the trigrams that it is a part of.
    TextScan(const TextColumn& column, std::string_view literal, ShortTexts shortTexts,
             std::size_t piece = kPiece);
    TextScan(const TextColumn& column, TextComparison comparison, std::string pattern);

    /// Does a piece. False when there is no more to do. Throws EngineError, also for a pattern that
    /// is none; but where the index is damaged, it just cannot tell.
    bool Advance(TextLookup& lookup);

    /// When there is no more to do: false where the index cannot tell.
    bool IsKnown() const { return stage_ == Stage::Done && isKnown_; }
    /// The rows that may have the text, and maybe others, also some that do not exist any more. A
    /// row that was changed between two pieces may be missing.
    IdSet& Rows() { return rows_; }
    /// The same for whoever wants a list.
    TextCandidates Candidates() const;

  private:
    using Pair = std::array<char32_t, 2>;
    enum class Stage : std::uint8_t { Begin, NewRows, ChangedRows, NextSegment, Lists, Done };
    /// A list of the segment that is looked at; its bytes where they had to be read to find it.
    struct List {
        TextKey key = 0;
        std::optional<std::string> postings = {};
    };
    /// The lists of trigrams of which a row must have one, and how many bytes they are together.
    struct Choice {
        std::vector<List> lists;
        std::size_t size = 0;
    };

    void AdvanceStage(TextLookup& lookup);
    void Begin();
    void GiveUp();
    void LookAtNewRows(TextLookup& lookup);
    void LookAtChangedRows(TextLookup& lookup);
    void LookAt(TextLookup& lookup, std::vector<std::int64_t> rows);
    void FindLists(TextLookup& lookup);
    Choice FindChoice(TextLookup& lookup, const std::vector<Trigram>& trigrams);
    void FollowNextChoice(TextLookup& lookup);
    void FollowPair(TextLookup& lookup);
    void AddBehind(TextLookup& lookup, const Pair& pair, IdSet& rows);
    void AddBefore(TextLookup& lookup, const Pair& pair, IdSet& rows);
    bool AddForeign(TextLookup& lookup);
    bool HasNoShortText(TextLookup& lookup);
    void Add(std::string_view postings, IdSet& rows) const;
    const TextExtent::Segment& Segment() const { return extent_.segments[segment_]; }

    TextColumn column_;
    TextComparison comparison_ = TextComparison::Like;
    std::string pattern_;
    /// A row that has the text has one trigram of each of these.
    std::vector<std::vector<Trigram>> trigrams_;
    /// What is looked for, or a part of it, where that is no longer than two characters.
    std::optional<Pair> pair_;
    ShortTexts shortTexts_ = ShortTexts::AreFound;
    std::size_t piece_ = kPiece;

    Stage stage_ = Stage::Begin;
    bool isKnown_ = true;
    int beginnings_ = 0;
    const IndexedTable* table_ = nullptr;
    unsigned columnNumber_ = 0;
    TextExtent extent_;
    /// The last of the rows outside of segments that was looked at.
    std::int64_t lastWaiting_ = 0;
    std::size_t segment_ = 0;
    /// Those that are still to be followed, the shortest last.
    std::vector<Choice> choices_;
    /// What is common to the lists that were.
    std::optional<IdSet> common_;
    /// What was read of the index with this piece.
    std::size_t bytesRead_ = 0;
    IdSet rows_;
};

}  // namespace snippetarium
