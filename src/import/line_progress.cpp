#include "import/line_progress.h"

#include <algorithm>

namespace snippetarium {

void LineProgress::LineRead() {
    ++linesRead_;
    host_.progress.SetUnit(std::min(step_ * static_cast<double>(linesRead_), 100.0));
    host_.events.Yield();
}

}  // namespace snippetarium
