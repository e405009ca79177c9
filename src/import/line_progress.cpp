#include "import/line_progress.h"

#include <algorithm>

namespace snippetarium {

void LineProgress::LinesRead(std::size_t count) {
    linesRead_ += count;
    host_.progress.SetUnit(std::min(step_ * static_cast<double>(linesRead_), 100.0));
    host_.events.Yield();
}

}  // namespace snippetarium
