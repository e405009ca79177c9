#pragma once

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
    MarkerFamily family_;
    /// Those of the file's texts that hold something like a marker.
    std::vector<std::string_view> texts_;
};

}  // namespace snippetarium
