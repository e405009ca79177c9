#include "store/trash_marker.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace snippetarium {

namespace {

/// A marker with its line break, and where it was in the text without any of the procedure's.
struct Piece {
    std::string_view text;
    std::size_t offset = 0;
};

MarkedProcedures WithProcedure(MarkedProcedures procedures, std::string_view codeName) {
    if (std::ranges::find(procedures.codeNames, codeName) == procedures.codeNames.end())
        procedures.codeNames.emplace_back(codeName);
    return procedures;
}

std::vector<Piece> PiecesOf(std::string_view text, const MarkedProcedures& procedures,
                            std::string_view codeName) {
    std::vector<Piece> pieces;
    std::size_t removed = 0;
    for (const MarkerPlace& place : FindMarkers(text, procedures)) {
        if (procedures.codeNames[place.procedure] != codeName) continue;
        const std::size_t offset = place.position - 1;
        pieces.push_back({text.substr(offset, place.length), offset - removed});
        removed += place.length;
    }
    return pieces;
}

/// Finds the places of one text in another, which was made from it by changes in one stretch.
class UnchangedEnds {
  public:
    UnchangedEnds(std::string_view then, std::string_view now) : then_(then), now_(now) {
        const auto differing = std::ranges::mismatch(then, now);
        front_ = static_cast<std::size_t>(differing.in1 - then.begin());
        const std::size_t most = std::min(then.size(), now.size()) - front_;
        while (back_ < most && then[then.size() - back_ - 1] == now[now.size() - back_ - 1])
            ++back_;
    }

    std::optional<std::size_t> OffsetNow(std::size_t offsetThen) const {
        if (offsetThen <= front_) return offsetThen;
        const std::size_t toEnd = then_.size() - offsetThen;
        return toEnd <= back_ ? std::make_optional(now_.size() - toEnd) : std::nullopt;
    }

  private:
    std::string_view then_;
    std::string_view now_;
    std::size_t front_ = 0;
    std::size_t back_ = 0;
};

/// Markers other than those of C take whole lines.
bool FitsLines(std::string_view text, std::size_t offset, std::string_view marker,
               MarkerFamily family) {
    if (family == MarkerFamily::C) return true;
    return (offset == 0 || text[offset - 1] == '\n') &&
           (marker.ends_with('\n') || offset == text.size());
}

/// Nothing where a place is not there any more.
std::optional<std::string> InsertPieces(std::string_view textThen, std::string_view textNow,
                                        const std::vector<Piece>& pieces, MarkerFamily family) {
    const UnchangedEnds ends(textThen, textNow);
    std::string text;
    std::size_t done = 0;
    for (const Piece& piece : pieces) {
        const std::optional<std::size_t> offset = ends.OffsetNow(piece.offset);
        if (!offset || !FitsLines(textNow, *offset, piece.text, family)) return std::nullopt;
        text.append(textNow.substr(done, *offset - done)).append(piece.text);
        done = *offset;
    }
    return text.append(textNow.substr(done));
}

}  // namespace

std::string PutMarkersBack(std::string_view textNow, const MarkedProcedures& procedures,
                           const ReturningMarker& marker) {
    const MarkedProcedures old = WithProcedure(procedures, marker.codeName);
    const MarkedProcedures all = WithProcedure(procedures, marker.newName);
    if (HasMarker(textNow, all, marker.newName)) return std::string(textNow);
    const std::string before =
        marker.newName == marker.codeName
            ? std::string(marker.textBefore)
            : RenameMarker(marker.textBefore, old, marker.codeName, marker.newName);
    const std::vector<Piece> pieces = PiecesOf(before, all, marker.newName);
    if (!pieces.empty()) {
        const std::string without = RemoveMarker(before, all, marker.newName);
        if (without == textNow) return before;
        const std::optional<std::string> text =
            InsertPieces(without, textNow, pieces, procedures.family);
        // Two texts that meet must not look like a marker that neither of them holds.
        if (text && RemoveMarker(*text, all, marker.newName) == textNow) return *text;
    }
    return AppendMarker(textNow, all, marker.newName);
}

}  // namespace snippetarium
