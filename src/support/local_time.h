#pragma once

#include <chrono>
#include <string>

namespace snippetarium {

/// A moment as the clock on this machine's wall shows it, in a format of strftime:
/// "%Y-%m-%d %H-%M-%S" gives "2026-11-21 06-16-02".
std::string LocalTimeText(std::chrono::system_clock::time_point moment, const char* format);

}  // namespace snippetarium
