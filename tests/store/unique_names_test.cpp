#include "store/unique_names.h"

#include <set>

#include "store/writes_codes.h"
#include "support/utf8.h"
#include "tests/store/write_fixture.h"

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

using UniqueNamesInClass = WriteFixture;

TEST_F(UniqueNamesInClass, AreThoseOfTheClassByBytes) {
    AddCode(db_, {.name = "Draw", .code = "x", .classID = 5});
    AddCode(db_, {.name = "Draw (2)", .code = "x", .classID = 5});
    EXPECT_EQ(UniqueNameInClass(db_, 5, "Draw"), "Draw (3)");
    EXPECT_EQ(UniqueNameInClass(db_, 5, "DRAW"), "DRAW");
    EXPECT_EQ(UniqueNameInClass(db_, 6, "Draw"), "Draw");
}

TEST_F(UniqueNamesInClass, AreNotGuessedWhenTheNamesCannotBeRead) {
    AddCode(db_, {.name = "Draw", .code = "x", .classID = 5});
    CloseCatalogue(db_);
    EXPECT_EQ(UniqueNameInClass(db_, 5, "Draw"), "");
    TakeBox();
}

}  // namespace
}  // namespace snippetarium::test
