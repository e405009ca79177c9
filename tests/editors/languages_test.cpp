#include "editors/languages.h"

#include <gtest/gtest.h>

#include "store/reads_languages.h"
#include "tests/editors/editors_fixture.h"

namespace snippetarium::test {
namespace {

class LanguagesTest : public EditorsFixture {
  protected:
    void ExpectNothingButTheMessage(bool isDone, std::string_view message) {
        EXPECT_FALSE(isDone);
        EXPECT_EQ(TakeBox().text, message);
        EXPECT_EQ(Select("SELECT count(*), max(languageID) FROM tblLanguage"), (Rows{"11|11"}));
    }
};

TEST_F(LanguagesTest, HaveNamesOfTheirOwn) {
    ExpectNothingButTheMessage(AddLanguage(db_, " "), "Please enter a language.");
    ExpectNothingButTheMessage(AddLanguage(db_, " JAVA "),
                               "The language you specified already exists.");
    ExpectNothingButTheMessage(RenameLanguage(db_, 2, "c"),
                               "The language you specified already exists.");
    ExpectNothingButTheMessage(AddLanguage(db_, std::string(51, 'x')),
                               "The language you specified is too long (over 50 characters).");
    ExpectNothingButTheMessage(
        AddLanguage(db_, "a\tb"),
        "A name cannot hold a line break, a tab or another control character.");
    EXPECT_TRUE(RenameLanguage(db_, 2, " JAVA"));
    EXPECT_EQ(LanguageByID(db_, 2), "JAVA");
    EXPECT_TRUE(AddLanguage(db_, std::string(50, 'x')));
    EXPECT_FALSE(RenameLanguage(db_, 99, "Nothing"));
}

TEST_F(LanguagesTest, AreDeletedOnlyWhenNothingHasThem) {
    // Class 1, class 2 and procedure 1; class 3.
    ExpectNothingButTheMessage(RemoveLanguage(db_, "Visual Basic"),
                               "The language 'Visual Basic' cannot be deleted, because 3 classes "
                               "and procedures have it.");
    ExpectNothingButTheMessage(
        RemoveLanguage(db_, "java"),
        "The language 'java' cannot be deleted, because 1 class or procedure has it.");
    EXPECT_TRUE(RemoveLanguage(db_, "html"));
    EXPECT_EQ(LanguageID(db_, "HTML"), 0);
}

}  // namespace
}  // namespace snippetarium::test
