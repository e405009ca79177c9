#include "navigator/shown_path.h"

#include "support/paths.h"

namespace snippetarium {

std::string ShownPath(std::string_view path) {
    const bool namesDrive = DriveName(path).size() > 1;
    return namesDrive ? std::string(path) : ToPlatformPath(path);
}

}  // namespace snippetarium
