#include "support/local_time.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

namespace snippetarium {
namespace {

TEST(LocalTime, FollowsTheClockOnTheWall) {
    using std::chrono::hours;
    const auto noon = std::chrono::sys_days{std::chrono::year{2024} / 12 / 31} + hours{12} +
                      std::chrono::seconds{7};
    const struct {
        const char* zone;
        std::string expected;
    } cases[] = {
        {"UTC0", "2024-12-31 12-00-07"},
        {"AAA-13", "2025-01-01 01-00-07"},  // thirteen hours ahead
        {"BBB5:30", "2024-12-31 06-30-07"},
    };
    for (const auto& test : cases) {
        setenv("TZ", test.zone, 1);
        tzset();
        EXPECT_EQ(LocalTimeText(noon, "%Y-%m-%d %H-%M-%S"), test.expected) << test.zone;
    }
    unsetenv("TZ");
    tzset();
}

}  // namespace
}  // namespace snippetarium
