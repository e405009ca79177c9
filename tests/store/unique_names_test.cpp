#include "store/unique_names.h"

#include <gtest/gtest.h>

#include <set>

#include "support/utf8.h"

namespace snippetarium::test {
namespace {

TEST(UniqueNames, NumberTheSecondAndLaterOfAName) {
    UniqueNames names;
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"Draw", "Draw"},     {"Draw", "Draw (2)"},
        {"draw", "draw"},     {"Draw (3)", "Draw (3)"},
        {"Draw", "Draw (4)"}, {"Draw (2)", "Draw (2) (2)"},
        {"Draw ", "Draw "},   {"", ""},
        {"", " (2)"},
    };
    for (const auto& [name, stored] : cases)
        EXPECT_EQ(names.Add(name), stored);
}

TEST(UniqueNames, FitTheColumnWhateverTheNumberAndTheLetters) {
    std::string letters;
    for (int i = 0; i < 260; ++i)
        letters += "\xC3\x84";
    UniqueNames names;
    std::set<std::string> given;
    for (int i = 0; i < 1200; ++i) {
        // Names that differ only behind the 255th character are one name.
        const std::string name = names.Add(letters + std::to_string(i));
        EXPECT_EQ(CharacterCount(name), 255U);
        EXPECT_TRUE(IsValidUtf8(name));
        EXPECT_TRUE(given.insert(name).second) << name;
    }
    EXPECT_TRUE(given.contains(letters.substr(0, 2 * 248) + " (1200)"));
}

}  // namespace
}  // namespace snippetarium::test
