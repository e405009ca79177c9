#pragma once

#include <string>
#include <string_view>

#include "export/markers.h"

namespace snippetarium {

/// A procedure whose markers are to come back into the text of its class.
struct ReturningMarker {
    std::string_view codeName;
    /// Another name that it comes back under, or the same.
    std::string_view newName;
    /// The text of the class before the procedure was deleted.
    std::string_view textBefore;
};

/// The text of a class, as it is now, with the markers of a procedure in their places again. Where
/// nothing else has changed since, that is the text of before. Where the text has changed, a marker
/// goes to where all that stood before it, or all that stood behind it, is unchanged; with changes
/// on both sides, the procedure gets one marker at the end. A text that has a marker of it stays.
std::string PutMarkersBack(std::string_view textNow, const MarkedProcedures& procedures,
                           const ReturningMarker& marker);

}  // namespace snippetarium
