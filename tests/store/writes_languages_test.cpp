#include "store/writes_languages.h"

#include "store/reads_languages.h"
#include "store/writes_classes.h"
#include "store/writes_codes.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

using LanguageWrites = WriteFixture;

TEST_F(LanguageWrites, SendTheseStatements) {
    // clang-format off
    ExpectStatements({
        {"a new one", [](Database& db) { EXPECT_EQ(SaveLanguage(db, "Bob's", 0), 12); },
         {"SELECT max(languageID) FROM tblLanguage",
          "INSERT INTO tblLanguage VALUES(12, 'Bob''s', True);"}},
        {"a new name", [](Database& db) { EXPECT_EQ(SaveLanguage(db, "Al's", 12), 12); },
         {"UPDATE tblLanguage SET language = 'Al''s' WHERE languageID =12;"}},
        {"one that is not there", [](Database& db) { EXPECT_EQ(SaveLanguage(db, "x", 99), 0); },
         {"UPDATE tblLanguage SET language = 'x' WHERE languageID =99;"}},
        {"status", [](Database& db) { EXPECT_TRUE(LanguageStatus(db, "al's")); }, {}},
        {"deletion", [](Database& db) { EXPECT_TRUE(DeleteLanguage(db, "Al's")); },
         {"DELETE FROM tblLanguage where language ='Al''s';"}},
        {"no status", [](Database& db) { EXPECT_FALSE(LanguageStatus(db, "Al's")); }, {}},
    });
    // clang-format on
}

TEST_F(LanguageWrites, DeleteNoLanguageThatIsInUse) {
    AddClass(db_, {.name = "Page", .languageID = 6});
    AddCodeLanguage(db_, AddCode(db_, {.name = "Draw"}), 7);
    TakeStatements();
    for (const std::string_view language : {"ASP", "javascript", "Visual Basic"}) {
        EXPECT_FALSE(DeleteLanguage(db_, language));
        EXPECT_NE(LanguageID(db_, language), 0);
    }
    EXPECT_EQ(TakeStatements(), Statements());
}

TEST_F(LanguageWrites, DeleteNothingWhenItIsNotKnownWhetherTheLanguageIsInUse) {
    db_.GetConnection().RunScript(
        "DELETE FROM tblNamedQuery WHERE name = 'qryClassIDCodeIDRSByLanguage';");
    EXPECT_FALSE(DeleteLanguage(db_, "Java"));
    TakeBox();
    EXPECT_EQ(LanguageID(db_, "Java"), 2);
}

TEST_F(LanguageWrites, ReadAStatusThatIsNotSet) {
    for (const std::string_view status : {"False", "null"}) {
        ExecuteSQL(db_, "UPDATE tblLanguage SET Status = " + std::string(status));
        EXPECT_FALSE(LanguageStatus(db_, "Java"));
    }
}

}  // namespace
}  // namespace snippetarium::test
