#include "import/unit_names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/utf8.h"

namespace snippetarium {
namespace {

using Names = std::vector<std::string>;

Names TakeAll(const Names& names) {
    UnitNames taken;
    Names result;
    for (const std::string& name : names)
        result.push_back(taken.Take(name));
    return result;
}

TEST(UnitNames, BecomeDifferentByTheirBytesAlone) {
    EXPECT_EQ(TakeAll({"Draw()", "draw()", "Draw()", "Draw()"}),
              (Names{"Draw()", "draw()", "Draw() (2)", "Draw() (3)"}));
    EXPECT_EQ(TakeAll({"A", "A", "A (2)", "A"}), (Names{"A", "A (2)", "A (2) (2)", "A (3)"}));
}

TEST(UnitNames, FitWithTheirNumberAndAreNeverCutInsideACharacter) {
    std::string longName;
    for (int i = 0; i < 300; ++i)
        longName += "\xC3\xA9";
    const Names names = TakeAll({longName, longName + "x", longName});
    EXPECT_EQ(names[0], longName.substr(0, 510));
    EXPECT_EQ(names[1], longName.substr(0, 502) + " (2)");
    EXPECT_EQ(names[2], longName.substr(0, 502) + " (3)");
    EXPECT_EQ(CharacterCount(names[2]), 255U);
}

}  // namespace
}  // namespace snippetarium
