#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace snippetarium {

/// What the rest of a labelled comment line names.
enum class HeaderLabelKind : std::uint8_t { Authors, Date, Keywords };

struct HeaderLabel {
    std::string_view text;
    HeaderLabelKind kind;
};

/// The labels that the import looks for in the comment that heads a class or a procedure. The order
/// counts: where only one label is taken of a text, it is the first of this table.
// clang-format off
inline constexpr std::array<HeaderLabel, 12> kHeaderLabels{{
    {"Author:",        HeaderLabelKind::Authors},
    {"Authors:",       HeaderLabelKind::Authors},
    {"Written by:",    HeaderLabelKind::Authors},
    {"Created by:",    HeaderLabelKind::Authors},
    {"Programmer:",    HeaderLabelKind::Authors},
    {"Developer:",     HeaderLabelKind::Authors},
    {"Date:",          HeaderLabelKind::Date},
    {"Created:",       HeaderLabelKind::Date},
    {"Created on:",    HeaderLabelKind::Date},
    {"Last modified:", HeaderLabelKind::Date},
    {"Modified:",      HeaderLabelKind::Date},
    {"Keywords:",      HeaderLabelKind::Keywords},
}};
// clang-format on

/// Removes the Basic comment lines that carry a header label, for the page view, whose heading
/// shows what they say.
///
/// Only one label counts: the first of kHeaderLabels that the text holds letter for letter. Its
/// occurrences are then found in any letter case. For each one, the text from the last single
/// quote at or before it through the next CR LF goes; code in front of that quote stays and is
/// joined with the line below. A label with no quote before it is left alone, and a quote with no
/// CR LF behind it ends the work.
///
/// Two habits decide what a page shows and are kept on purpose:
///
/// The search goes on one byte behind the place where the removed CR LF began. By then the text
/// below has moved up, so a label in it is passed over as far as the removed comment was long:
/// of "'Date: 1", "'Date: 2" and "rest", a line each, the second line stays.
///
/// When fewer than three bytes follow the CR, and the quote is not the text's first byte, all from
/// the quote on goes: a single byte behind the CR LF is lost.
std::string RemoveTaggedCommentLines(std::string_view text);

}  // namespace snippetarium
