#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/markers.h"

namespace snippetarium {

/// A procedure as it goes back into the text of its class.
struct ProcedureText {
    std::string codeName = {};
    /// A comment that is there and empty is not the same as none: see InsertedText.
    std::optional<std::string> comment = {};
    std::string code = {};
};

/// What stands in a file in the place of the procedure's marker: the comment, if there is one, and
/// the code, each with a line break behind it, except in the C family, where the texts bring their
/// own.
std::string InsertedText(MarkerFamily family, const ProcedureText& procedure);

struct ExpandedText {
    std::string text;
    /// The names of the procedures that had no marker, so that the text is without them.
    std::vector<std::string> leftOut;
};

/// The class's text with each procedure in the place of its markers. The rule: for one procedure
/// after the other, every occurrence of its marker is replaced. Letter case counts, a marker
/// includes the line break that belongs to its family, and a marker in a text that was inserted is
/// replaced too if its procedure's turn is still to come.
///
/// Throws Error where procedures that contain each other's markers make the text grow beyond all
/// measure.
ExpandedText ExpandMarkers(MarkerFamily family, std::string_view classText,
                           std::span<const ProcedureText> procedures);

}  // namespace snippetarium
