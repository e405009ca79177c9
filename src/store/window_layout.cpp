#include "store/window_layout.h"

#include <algorithm>
#include <limits>

#include "store/database.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

std::string UpdateText(const WindowSize& size) {
    return Sql("UPDATE tblWindowSize SET tWidth = ", SixteenBits(size.width),
               ", tHeight = ", SixteenBits(size.height), ", tLeft = ", SixteenBits(size.left),
               ", tTop = ", SixteenBits(size.top), ", leftChildIndex = ", size.leftChildIndex,
               ", rightChildIndex = ", size.rightChildIndex, ", wrap = ", size.wrap ? 1 : 0,
               ", leftChildWidth = ", size.leftChildWidth,
               ", rightChildWidth = ", size.rightChildWidth, " WHERE w_hID = 1;");
}

std::string InsertText(const WindowSize& size) {
    return Sql(
        "INSERT INTO tblWindowSize (tWidth, tHeight, tLeft, tTop, leftChildIndex, "
        "rightChildIndex, wrap, leftChildWidth, rightChildWidth) VALUES (",
        SixteenBits(size.width), ", ", SixteenBits(size.height), ", ", SixteenBits(size.left), ", ",
        SixteenBits(size.top), ", ", size.leftChildIndex, ", ", size.rightChildIndex, ", ",
        size.wrap ? 1 : 0, ", ", size.leftChildWidth, ", ", size.rightChildWidth, " )");
}

}  // namespace

std::int32_t SixteenBits(std::int32_t number) {
    using Limits = std::numeric_limits<std::int16_t>;
    return std::clamp<std::int32_t>(number, Limits::min(), Limits::max());
}

void SaveWindowSize(Database& db, const WindowSize& size) {
    Guarded(db.Reporter(), Procedure::SaveWindowSize, [&] {
        const bool isThere = RecordExists(db, "SELECT * FROM tblWindowSize WHERE w_hID = 1;");
        ExecuteSQL(db, isThere ? UpdateText(size) : InsertText(size));
    });
}

void SavePanePositions(Database& db, const PanePositions& positions) {
    Guarded(db.Reporter(), Procedure::SavePanePositions, [&] {
        ExecuteSQL(db, Sql("UPDATE tblWindowSize SET fContentPos = ", SqlText(positions.content),
                           ", fSearchPos = ", SqlText(positions.search),
                           ", fIndexPos = ", SqlText(positions.index),
                           ", fBookmarkPos = ", SqlText(positions.bookmark), ";"));
    });
}

}  // namespace snippetarium
