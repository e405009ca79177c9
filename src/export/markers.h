#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

// Procedure markers. The text of a class is stored with one marker in the place of each procedure
// that was cut out of it; export puts the procedures back there:
//
//     Option Explicit
//     '***Procedure Draw(ByVal x As Long)***
//
// A marker holds the procedure's name byte for byte, so nothing in a name can be escaped, and a
// name may even look like the end of a marker, or like a whole one. That is why everything that
// looks for markers wants the names of all procedures of the class: where a longer one fits, a
// shorter one is not meant.
//
// Positions are 1-based and count bytes.

/// What a marker looks like.
enum class MarkerFamily : std::uint8_t {
    VisualBasic,  ///< '***Procedure NAME***, a comment line; the line break belongs to the marker
    C,            ///< /***Procedure NAME***/, a comment that may stand within a line
    Page,         ///< <!--**Procedure NAME**-->, as in Visual Basic with its line break
};

/// The family of a class's markers. It depends on the class's language alone: 6 and 9 are pages, 2,
/// 4, 5 and 7 are written as in C, every other one as in Visual Basic.
MarkerFamily MarkerFamilyOf(std::int32_t languageID);

/// What stands before and behind the name in a marker, and the line break that belongs to it.
struct MarkerForm {
    std::string_view beginning;
    std::string_view end;
    std::string_view lineBreak;
};

MarkerForm FormOf(MarkerFamily family);

/// A marker without its line break.
std::string MarkerText(MarkerFamily family, std::string_view codeName);
/// A marker as import puts it into a class's text and export replaces it: with CR LF, except in the
/// C family.
std::string MarkerLine(MarkerFamily family, std::string_view codeName);

/// The procedures of one class, by which its markers are told apart.
struct MarkedProcedures {
    MarkerFamily family = MarkerFamily::VisualBasic;
    std::vector<std::string> codeNames;
};

/// A marker in a class's text.
struct MarkerPlace {
    std::size_t position = 0;
    /// With the line break, where that belongs to the marker. A marker that ends the whole text is
    /// one without it too.
    std::size_t length = 0;
    /// Which of the codeNames.
    std::size_t procedure = 0;

    bool operator==(const MarkerPlace&) const = default;
};

/// Every marker of the procedures, in the order of the text; they do not overlap. Letter case
/// counts. A name that occurs twice is found as its first occurrence.
std::vector<MarkerPlace> FindMarkers(std::string_view classText,
                                     const MarkedProcedures& procedures);

// In what follows, codeName may stand among the procedures or not.

bool HasMarker(std::string_view classText, const MarkedProcedures& procedures,
               std::string_view codeName);

/// The text without this procedure's markers; all others stay.
std::string RemoveMarker(std::string_view classText, const MarkedProcedures& procedures,
                         std::string_view codeName);

/// The text with this procedure's markers bearing its new name.
std::string RenameMarker(std::string_view classText, const MarkedProcedures& procedures,
                         std::string_view codeName, std::string_view newName);

/// The text with a marker of the procedure on a line of its own at the end. Unchanged where it has
/// one already.
std::string AppendMarker(std::string_view classText, const MarkedProcedures& procedures,
                         std::string_view codeName);

}  // namespace snippetarium
