#pragma once

#include <string>
#include <string_view>

#include "export/markers.h"

namespace snippetarium {

/// A class's text when its language changes: each marker in the style of another family, in its
/// place. Where the new style wants a line break behind the marker and the old one had none, it
/// gets one; a line break that is there stays.
std::string WithMarkersOf(MarkerFamily family, std::string_view classText,
                          const MarkedProcedures& procedures);

}  // namespace snippetarium
