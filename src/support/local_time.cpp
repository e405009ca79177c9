#include "support/local_time.h"

#include <array>
#include <ctime>

namespace snippetarium {

std::string LocalTimeText(std::chrono::system_clock::time_point moment, const char* format) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    std::tm parts{};
    localtime_r(&seconds, &parts);
    std::array<char, 64> text{};
    const std::size_t size = std::strftime(text.data(), text.size(), format, &parts);
    return {text.data(), size};
}

}  // namespace snippetarium
