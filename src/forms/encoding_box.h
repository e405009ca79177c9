#pragma once

#include <string_view>

class QComboBox;

namespace snippetarium {

/// The encoding that was chosen last, in the settings of the catalogue.
inline constexpr std::string_view kEncodingSetting = "import.encoding";

/// Fills a list of encodings and selects this one, the usual one where it is unknown or empty.
void FillEncodingBox(QComboBox* box, std::string_view selected);

}  // namespace snippetarium
