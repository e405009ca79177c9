#include "engine/segment_merge.h"

#include <sqlite3.h>

#include <algorithm>
#include <functional>
#include <map>

#include "engine/engine_error.h"
#include "engine/posting_list.h"

namespace snippetarium {

namespace {

constexpr std::size_t kMergedAtOnce = 8;
constexpr std::int64_t kSmallestSize = 64 * 1024;

int LevelOf(const TextSegment& segment) {
    int level = 0;
    for (std::int64_t size = segment.bytes / kSmallestSize; size >= 8; size /= 8)
        ++level;
    return level;
}

}  // namespace

std::vector<TextSegment> SegmentMerge::Choose(const std::vector<TextSegment>& segments) {
    std::map<std::pair<std::int32_t, int>, std::vector<TextSegment>> bySize;
    for (const TextSegment& segment : segments) {
        if (segment.state != SegmentState::InUse) continue;
        std::vector<TextSegment>& equals = bySize[{segment.table, LevelOf(segment)}];
        equals.push_back(segment);
        if (equals.size() == kMergedAtOnce) return equals;
    }
    return {};
}

SegmentMerge::SegmentMerge(std::vector<TextSegment> sources) : segments_(std::move(sources)) {
    std::ranges::sort(segments_, {}, &TextSegment::firstID);
    for (const TextSegment& segment : segments_)
        sources_.push_back({segment.segmentID, static_cast<std::uint32_t>(segment.firstID)});
}

bool SegmentMerge::GoOn(sqlite3* database, std::chrono::steady_clock::time_point until) {
    constexpr int kListsBetweenLooks = 64;
    if (target_.segmentID == 0) Begin(database);
    TextBlockReader reader(database);
    TextBlockTable blocks(database);
    const auto writeFinished = [&] {
        for (const auto& [firstKey, block] : finished_)
            blocks.Write(target_.segmentID, firstKey, block);
        finished_.clear();
        target_.bytes += blocks.Bytes();
    };
    for (int lists = 1;; ++lists) {
        TextKey key = kEndOfTextKeys;
        for (Source& source : sources_) {
            Load(source, reader);
            if (source.HasList()) key = std::min(key, source.lists[source.place].first);
        }
        if (key == kEndOfTextKeys) break;
        writer_->Add(key, TakeLists(key));
        if (lists % kListsBetweenLooks == 0 && std::chrono::steady_clock::now() >= until) {
            writeFinished();
            return false;
        }
    }
    writer_->Finish();
    writeFinished();
    End(database);
    return true;
}

void SegmentMerge::Begin(sqlite3* database) {
    target_.table = segments_.front().table;
    target_.state = SegmentState::Unfinished;
    target_.firstID = segments_.front().firstID;
    for (const TextSegment& segment : segments_)
        target_.rows += segment.rows;
    target_.segmentID = AddTextSegment(database, target_);
    writer_.emplace([this](TextKey firstKey, std::string_view block) {
        finished_.emplace_back(firstKey, block);
    });
}

/// Reads on to the next list, if there is one.
void SegmentMerge::Load(Source& source, TextBlockReader& blocks) {
    while (!source.HasList() && source.nextBlock < kEndOfTextKeys) {
        source.lists.clear();
        source.place = 0;
        const auto keep = [&](TextKey key, std::string_view postings) {
            source.lists.emplace_back(key, postings);
        };
        source.nextBlock = blocks.Read(source.segmentID, source.nextBlock, keep);
    }
}

/// The lists of this key, made one.
std::string SegmentMerge::TakeLists(TextKey key) {
    ids_.clear();
    for (Source& source : sources_) {
        if (!source.HasList() || source.lists[source.place].first != key) continue;
        const auto base = source.firstID - static_cast<std::uint32_t>(target_.firstID);
        DecodePostings(source.lists[source.place].second, base, ids_);
        ++source.place;
    }
    // Rows that were taken in again after a change stand in later segments, out of the order.
    if (std::ranges::adjacent_find(ids_, std::greater_equal{}) != ids_.end()) {
        std::ranges::sort(ids_);
        const auto rest = std::ranges::unique(ids_);
        ids_.erase(rest.begin(), rest.end());
    }
    return EncodePostings(ids_);
}

void SegmentMerge::End(sqlite3* database) {
    target_.state = SegmentState::InUse;
    UpdateTextSegment(database, target_);
    for (TextSegment& segment : segments_) {
        segment.state = SegmentState::Leaving;
        UpdateTextSegment(database, segment);
    }
    CountTextSegments(database, target_.table);
}

}  // namespace snippetarium
