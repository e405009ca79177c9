#include "engine/text_scan.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "engine/engine_error.h"
#include "engine/jet_like.h"
#include "engine/pattern_trigrams.h"
#include "engine/posting_list.h"
#include "engine/text_lookup.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// What a look for a list costs, if there is none.
constexpr std::size_t kCostOfLook = 2'000;
/// What it costs to read a text, about: it may be a word or 64,000 characters.
constexpr std::size_t kCostOfRow = 4'096;
/// A scan that had to begin so often does all the rest with one piece.
constexpr int kMostBeginnings = 4;

/// Of a text that a row is to be equal to. A pattern of more might be longer than patterns may be.
constexpr std::size_t kCharactersLookedUp = 1'000;

/// A list that is much longer than what is left of the others is not worth reading.
bool IsWorthReading(std::size_t size, std::size_t rowsLeft) {
    constexpr std::size_t kWorthReading = 64;
    return size <= kWorthReading * (rowsLeft + kWorthReading);
}

std::optional<std::array<char32_t, 2>> PairOf(std::string_view literal) {
    std::array<char32_t, 2> pair{};
    std::size_t position = 0;
    if (literal.size() != pair.size()) return {};
    for (char32_t& character : pair) {
        if (static_cast<unsigned char>(literal[position]) >= kAsciiCharacters) return {};
        character = NextFolded(literal, position);
    }
    return pair;
}

}  // namespace

TextScan::TextScan(const TextColumn& column, std::string_view literal, ShortTexts shortTexts,
                   std::size_t piece)
    : TextScan(column, TextComparison::Like, PatternOfLiteral(literal)) {
    pair_ = PairOf(literal);
    shortTexts_ = shortTexts;
    piece_ = piece;
}

TextScan::TextScan(const TextColumn& column, TextComparison comparison, std::string pattern)
    : column_(column), comparison_(comparison), pattern_(std::move(pattern)) {
    const LikePattern like(comparison_ == TextComparison::Like
                               ? pattern_
                               : PatternOfLiteral(CutToCharacters(pattern_, kCharactersLookedUp)));
    trigrams_ = TrigramChoicesOf(like);
    if (!trigrams_.empty()) return;
    const std::vector<std::string> runs = like.PlainRuns();
    for (auto run = runs.begin(); !pair_ && run != runs.end(); ++run)
        pair_ = PairOf(*run);
}

TextCandidates TextScan::Candidates() const {
    if (!IsKnown()) return std::nullopt;
    std::vector<std::int64_t> ids;
    rows_.ForEach([&](std::int64_t id) { ids.push_back(id); });
    return ids;
}

void TextScan::GiveUp() {
    isKnown_ = false;
    stage_ = Stage::Done;
}

bool TextScan::Advance(TextLookup& lookup) {
    if (stage_ == Stage::Done) return false;
    bytesRead_ = 0;
    try {
        if (table_ == nullptr) {
            std::tie(table_, columnNumber_) = lookup.Find(column_);
            if (table_ == nullptr || (trigrams_.empty() && !pair_)) {
                GiveUp();
                return false;
            }
        }
        TextExtent extent = lookup.ReadExtent(*table_);
        if (stage_ == Stage::Begin || extent != extent_) {
            extent_ = std::move(extent);
            Begin();
        }
        while (stage_ != Stage::Done && (bytesRead_ < piece_ || beginnings_ > kMostBeginnings))
            AdvanceStage(lookup);
    } catch (const EngineError& error) {
        if (error.Code() != EngineErrorCode::Corrupted) throw;
        GiveUp();
    }
    return stage_ != Stage::Done;
}

void TextScan::Begin() {
    ++beginnings_;
    rows_ = IdSet();
    segment_ = 0;
    choices_.clear();
    common_.reset();
    lastWaiting_ = extent_.indexedTo;
    stage_ = Stage::NewRows;
    if (!extent_.isThere) GiveUp();
}

void TextScan::AdvanceStage(TextLookup& lookup) {
    switch (stage_) {
        case Stage::NewRows:
            LookAtNewRows(lookup);
            return;
        case Stage::ChangedRows:
            LookAtChangedRows(lookup);
            return;
        case Stage::NextSegment:
            if (segment_ == extent_.segments.size()) {
                stage_ = Stage::Done;
            } else if (pair_) {
                FollowPair(lookup);
            } else {
                FindLists(lookup);
            }
            return;
        case Stage::Lists:
            FollowNextChoice(lookup);
            return;
        case Stage::Begin:
        case Stage::Done:
            return;
    }
}

void TextScan::LookAtNewRows(TextLookup& lookup) {
    const std::vector<std::int64_t> rows = lookup.NewRows(*table_, lastWaiting_);
    if (!rows.empty()) return LookAt(lookup, rows);
    lastWaiting_ = 0;
    stage_ = Stage::ChangedRows;
}

void TextScan::LookAtChangedRows(TextLookup& lookup) {
    const std::vector<std::int64_t> rows = lookup.ChangedRows(*table_, lastWaiting_);
    if (!rows.empty()) return LookAt(lookup, rows);
    stage_ = Stage::NextSegment;
}

/// Reads the texts of rows of which no segment tells what they hold.
void TextScan::LookAt(TextLookup& lookup, std::vector<std::int64_t> rows) {
    lastWaiting_ = rows.back();
    bytesRead_ += rows.size() * kCostOfRow;
    if (rows.back() > std::numeric_limits<std::int32_t>::max()) return GiveUp();
    for (const std::int64_t id :
         lookup.Check(*table_, columnNumber_, comparison_, pattern_, std::move(rows))) {
        if (id > 0) rows_.Add(static_cast<std::int32_t>(id));
    }
}

/// Finds the lists of a segment, to follow the shortest first. Where all of a choice are missing,
/// no row of the segment has the text.
void TextScan::FindLists(TextLookup& lookup) {
    choices_.clear();
    common_.reset();
    for (const std::vector<Trigram>& trigrams : trigrams_) {
        choices_.push_back(FindChoice(lookup, trigrams));
        if (!choices_.back().lists.empty()) continue;
        choices_.clear();
        ++segment_;
        return;
    }
    std::ranges::sort(choices_, std::ranges::greater(), &Choice::size);
    stage_ = Stage::Lists;
}

TextScan::Choice TextScan::FindChoice(TextLookup& lookup, const std::vector<Trigram>& trigrams) {
    Choice choice;
    for (const Trigram trigram : trigrams) {
        List list{.key = TextKeyOf(columnNumber_, trigram)};
        bytesRead_ += kCostOfLook;
        const auto size = lookup.SizeOfList(Segment(), list.key, list.postings);
        if (!size) continue;
        choice.size += *size;
        choice.lists.push_back(std::move(list));
    }
    return choice;
}

void TextScan::FollowNextChoice(TextLookup& lookup) {
    const Choice choice = std::move(choices_.back());
    choices_.pop_back();
    IdSet rows;
    for (const List& list : choice.lists)
        Add(list.postings ? *list.postings : lookup.ReadList(Segment(), list.key), rows);
    bytesRead_ += choice.size;
    if (common_) {
        common_->KeepCommon(rows);
    } else {
        common_ = std::move(rows);
    }
    const std::size_t left = common_->Count();
    if (!choices_.empty() && left > 0 && IsWorthReading(choices_.back().size, left)) return;
    rows_.Merge(*common_);
    ++segment_;
    stage_ = Stage::NextSegment;
}

/// The rows of a segment that have both characters and one more.
void TextScan::FollowPair(TextLookup& lookup) {
    if (shortTexts_ == ShortTexts::AreFound && !HasNoShortText(lookup)) return GiveUp();
    AddBehind(lookup, *pair_, rows_);
    AddBefore(lookup, *pair_, rows_);
    if (!AddForeign(lookup)) return GiveUp();
    ++segment_;
}

/// Adds the rows in which a character of ASCII stands behind the pair.
void TextScan::AddBehind(TextLookup& lookup, const Pair& pair, IdSet& rows) {
    const TextKey first = TextKeyOf(columnNumber_, TrigramOf(pair[0], pair[1], 0));
    bytesRead_ += lookup.ForEachList(Segment(), first, first + kAsciiCharacters,
                                     [&](std::string_view list) { Add(list, rows); });
}

void TextScan::AddBefore(TextLookup& lookup, const Pair& pair, IdSet& rows) {
    std::vector<TextKey> keys;
    for (char32_t before = 0; before < kAsciiCharacters; ++before) {
        const bool isFolded = before >= 'A' && before <= 'Z';
        if (!isFolded)
            keys.push_back(TextKeyOf(columnNumber_, TrigramOf(before, pair[0], pair[1])));
    }
    bytesRead_ +=
        lookup.VisitLists(Segment(), keys, [&](std::string_view list) { Add(list, rows); });
}

/// The number of a trigram does not tell which characters beyond ASCII it has, so any of these may
/// be the pair and such a character. False where they are too many.
bool TextScan::AddForeign(TextLookup& lookup) {
    constexpr std::size_t kMost = std::size_t{128} << 10U;
    const TextKey first = TextKeyOf(columnNumber_, kBehindAsciiTrigrams);
    const std::size_t size = lookup.ForEachList(
        Segment(), first, first + kBehindAsciiTrigrams,
        [&](std::string_view list) { Add(list, rows_); }, kMost);
    bytesRead_ += size;
    return size <= kMost;
}

/// True where each row of the segment has a line break and something else. Rows that were changed
/// and are in the segment twice count twice, so that where they were is no proof.
bool TextScan::HasNoShortText(TextLookup& lookup) {
    const auto rows = static_cast<std::size_t>(Segment().rows);
    constexpr Pair kLineBreak = {'\r', '\n'};
    IdSet broken;
    AddBehind(lookup, kLineBreak, broken);
    if (broken.Count() < rows) AddBefore(lookup, kLineBreak, broken);
    return broken.Count() >= rows;
}

void TextScan::Add(std::string_view postings, IdSet& rows) const {
    AddPostings(postings, static_cast<std::uint32_t>(Segment().firstID), rows);
}

}  // namespace snippetarium
