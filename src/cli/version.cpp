#include "cli/version.h"

namespace snippetarium {

std::string_view ProgramVersion() {
    return SNIPPETARIUM_VERSION;
}

}  // namespace snippetarium
