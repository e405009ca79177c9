#include "import/analysers.h"

namespace snippetarium {

Analysers ProgramAnalysers() {
    return {};
}

}  // namespace snippetarium
