#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "export/markers.h"
#include "import/cut_file.h"

namespace snippetarium {

/// The markers that a file held before it was imported: somebody kept an export's raw text in a
/// comment, or the program's own sources are imported. A procedure must not get a name whose marker
/// stands there already, or export would put it there too.
class MarkersInFile {
  public:
    /// `file` has to outlive this.
    MarkersInFile(const CutFile& file, MarkerFamily family);

    bool HasMarkerOf(std::string_view name) const;

  private:
    /// What ends a marker.
    std::string ending_;
    /// What stands behind each beginning of a marker, up to the end of its line; sorted.
    std::vector<std::string_view> tails_;
};

}  // namespace snippetarium
