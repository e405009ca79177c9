#include "support/arrays.h"

#include <gtest/gtest.h>

namespace snippetarium {
namespace {

using Strings = std::vector<std::string>;
using Integers = std::vector<std::int32_t>;

TEST(Arrays, AppendReplacesTheMarkerFirstAndGrowsThen) {
    Strings strings = FreshStringArray();
    EXPECT_TRUE(IsEmptyStringArray(strings));
    AppendString(strings, "");
    EXPECT_EQ(strings, Strings{""});
    AppendString(strings, "x");
    EXPECT_EQ(strings, Strings{"x"});
    AppendString(strings, "");
    AppendString(strings, "y");
    EXPECT_EQ(strings, (Strings{"x", "", "y"}));
    EXPECT_FALSE(IsEmptyStringArray(strings));

    Integers integers = FreshIntegerArray();
    AppendInteger(integers, -7);
    EXPECT_EQ(integers, Integers{-7});
    AppendInteger(integers, 0);
    EXPECT_EQ(integers, Integers{0});
    AppendInteger(integers, -1);
    EXPECT_EQ(integers, (Integers{0, -1}));
}

TEST(Arrays, WithoutElementsCountAsEmpty) {
    Strings strings;
    EXPECT_TRUE(IsEmptyStringArray(strings));
    AppendString(strings, "x");
    EXPECT_EQ(strings, Strings{"x"});
    Integers integers;
    AppendInteger(integers, 3);
    EXPECT_EQ(integers, Integers{3});
    EXPECT_EQ(MinOfArray({}), 0);
    EXPECT_EQ(MaxOfArray({}), 0);
}

TEST(Arrays, AppendStringArrayTakesEveryElementAlsoTheMarkerAndItself) {
    Strings strings = FreshStringArray();
    AppendStringArray(strings, {"a", "b"});
    EXPECT_EQ(strings, (Strings{"a", "b"}));
    AppendStringArray(strings, FreshStringArray());
    EXPECT_EQ(strings, (Strings{"a", "b", ""}));
    AppendStringArray(strings, strings);
    EXPECT_EQ(strings, (Strings{"a", "b", "", "a", "b", ""}));
}

TEST(Arrays, MinAndMaxLookAtEveryElement) {
    EXPECT_EQ(MinOfArray(Integers{5}), 5);
    EXPECT_EQ(MaxOfArray(Integers{-5}), -5);
    EXPECT_EQ(MinOfArray(Integers{4, INT32_MIN, 9}), INT32_MIN);
    EXPECT_EQ(MaxOfArray(Integers{-4, -9, -2}), -2);
}

}  // namespace
}  // namespace snippetarium
