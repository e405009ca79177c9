#include <gtest/gtest.h>

#include "store/author_links.h"
#include "store/date_links.h"
#include "store/keyword_rows.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_languages.h"
#include "store/reads_procedures.h"
#include "store/writes_applications.h"
#include "store/writes_classes.h"
#include "store/writes_codes.h"
#include "store/writes_languages.h"
#include "support/utf8.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

using WrittenTexts = WriteFixture;

std::string Repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

std::vector<std::string> TroublesomeTexts() {
    return {
        "it's",
        "''",
        "'",
        "\\'",
        "x'); DELETE FROM tblCode; --",
        "#3/14/2001#",
        "[name] \"quoted\" ? /* */ %_*",
        "two\r\nlines\ttab",
        "\U0001F600 \U0001F468\u200D\U0001F469",
        "\u05E9\u05DC\u05D5\u05DD \u202Eabc\u202C",
        " blanks around ",
        Repeated("'", 255),
        Repeated("\U0001D11E", 255),
    };
}

TEST_F(WrittenTexts, ComeBackAsTheyWere) {
    for (const std::string& text : TroublesomeTexts()) {
        const std::int32_t appID = AddApplication(db_, {text, text, text, text, {}, 0});
        const std::int32_t classID = AddClass(db_, {text, appID, text, text, text, {}, 1, 0});
        const std::int32_t codeID = AddCode(db_, {text, text, classID, text, {}, 0});
        const Recordset app = ApplicationRSByID(db_, appID);
        EXPECT_EQ(app["appName"].Text(), text);
        EXPECT_EQ(app["appPath"].Text(), text);
        EXPECT_EQ(app["appComment"].Text(), text);
        EXPECT_EQ(app["appVersion"].Text(), text);
        const Recordset cls = ClassDICommentLanIDByID(db_, classID);
        EXPECT_EQ(cls["className"].Text(), text);
        EXPECT_EQ(cls["classPath"].Text(), text);
        EXPECT_EQ(cls["classDI"].Text(), text);
        EXPECT_EQ(cls["classComment"].Text(), text);
        const Recordset code = CodeByID(db_, codeID);
        EXPECT_EQ(code["codeName"].Text(), text);
        EXPECT_EQ(code["code"].Text(), text);
        EXPECT_EQ(code["codeComment"].Text(), text);
        EXPECT_EQ(AppIDUsingAppName(db_, text), appID) << "and are found";
    }
}

TEST_F(WrittenTexts, OfNamesAreCutToWhatTheColumnHoldsAndThenFoundByTheWholeName) {
    for (const int length : {255, 256, 300}) {
        for (const std::string_view character : {"x", "'", "\u00E9", "\U0001D11E"}) {
            const std::string name = Repeated(character, length);
            const std::string stored(CutToCharacters(name, 255));
            const std::int32_t appID = AddApplication(db_, {.name = name});
            const std::int32_t classID = AddClass(db_, {.name = name, .appID = appID});
            const std::int32_t codeID = AddCode(db_, {.name = name, .classID = classID});
            EXPECT_EQ(AppNameByID(db_, appID), stored);
            EXPECT_EQ(ClassNameByID(db_, classID), stored);
            EXPECT_EQ(CodeNameByID(db_, codeID), stored);
            EXPECT_TRUE(IsAppNameTaken(db_, name));
            EXPECT_TRUE(IsClassNameTaken(db_, name, appID));
            EXPECT_EQ(CodeIDByCodeNameClassID(db_, name, classID), codeID);

            EXPECT_TRUE(UpdateApplication(db_, appID, {.name = name}));
            EXPECT_TRUE(RenameClass(db_, classID, name));
            EXPECT_TRUE(UpdateClass(db_, classID, {.name = name, .appID = appID}));
            EXPECT_TRUE(RenameCode(db_, codeID, name));
            EXPECT_TRUE(UpdateCode(db_, codeID, {.name = name, .classID = classID}));
            EXPECT_EQ(AppNameByID(db_, appID), stored);
            EXPECT_EQ(ClassNameByID(db_, classID), stored);
            EXPECT_EQ(CodeNameByID(db_, codeID), stored);
            EXPECT_TRUE(RenameApplication(db_, appID, std::to_string(appID)));
        }
    }
}

TEST_F(WrittenTexts, OfLanguagesAndAuthorsAreCutTo50CharactersAndThenFoundByTheWholeName) {
    for (const int length : {50, 51, 60}) {
        const std::string name = Repeated("\u00E9", length);
        const std::int32_t languageID = SaveLanguage(db_, name, 0);
        EXPECT_EQ(LanguageByID(db_, languageID), Repeated("\u00E9", 50));
        EXPECT_EQ(LanguageID(db_, name), languageID);
        EXPECT_TRUE(LanguageStatus(db_, name));
        EXPECT_TRUE(DeleteLanguage(db_, name));
        EXPECT_EQ(LanguageID(db_, name), 0);

        const AuthorName author{name, name, name};
        EXPECT_EQ(FindOrAddAuthor(db_, author), 1);
        UpdateAuthorName(db_, 1, author);
        EXPECT_EQ(FindOrAddAuthor(db_, author), 1);
    }
}

TEST_F(WrittenTexts, ThatTheEngineCannotTakeAreReportedAndNotWritten) {
    using namespace std::string_literals;
    for (const std::string& text : {"a\0b"s, "\xFF"s, "\xED\xA0\x80"s}) {
        EXPECT_EQ(AddCode(db_, {.name = text, .comment = "c"}), 0);
        ExpectFailedStatement();
    }
    EXPECT_EQ(Select("SELECT * FROM tblCode"), Rows());
}

// A row that cannot be written, and one that is not there.

using WrittenRows = WriteFixture;

TEST_F(WrittenRows, ThatCannotBeAddedTakeNoOtherRowsIDAndNothingIsWrittenBehindThem) {
    const std::vector<std::string> dates = {"2001-03-14"};
    const std::pair<std::string, std::function<std::int32_t()>> cases[] = {
        {"tblApplication", [&] { return AddApplication(db_, {.name = "x", .dates = dates}); }},
        {"tblClass", [&] { return AddClass(db_, {.name = "x", .comment = "c", .dates = dates}); }},
        {"tblCode", [&] { return AddCode(db_, {.name = "x", .comment = "c", .dates = dates}); }},
    };
    AddCode(db_, {.name = "Draw"});
    for (const auto& [table, add] : cases) {
        RefuseInsertsInto(table);
        TakeStatements();
        EXPECT_EQ(add(), 0) << table;
        ExpectFailedStatement();
        EXPECT_EQ(TakeStatements().size(), 1U) << table;
    }
    EXPECT_EQ(Select("SELECT * FROM tbl_date_link"), Rows());
}

TEST_F(WrittenRows, AreNotAddedWhereNoNumberIsLeft) {
    const struct {
        std::string_view lastRow;
        std::function<std::int32_t()> add;
    } cases[] = {
        {"tblKeyword VALUES(2147483647, 'x', 1)", [&] { return AddKeyword(db_, "y", 1); }},
        {"tblSearchWord VALUES(2147483647, 'x')", [&] { return AddSearchWord(db_, "y"); }},
        {"tblAuthor VALUES(2147483647, '', '', 'x')",
         [&] { return FindOrAddAuthor(db_, {.last = "y"}); }},
        {"tblDate VALUES(2147483647, #1999-12-31#)",
         [&] { return FindOrAddDate(db_, {.year = 2001, .month = 3, .day = 14}); }},
        {"tblLanguage VALUES(32767, 'x', True)", [&] { return SaveLanguage(db_, "y", 0); }},
    };
    for (const auto& [lastRow, add] : cases) {
        ExecuteSQL(db_, "INSERT INTO " + std::string(lastRow));
        TakeStatements();
        EXPECT_EQ(add(), 0) << lastRow;
        EXPECT_NE(TakeBox().text.find("There is no number left"), std::string::npos) << lastRow;
        for (const std::string& statement : TakeStatements())
            EXPECT_FALSE(statement.starts_with("INSERT")) << statement;
    }
}

TEST_F(WrittenRows, ThatDoNotExistAreNotUpdated) {
    const std::vector<std::string> dates = {"2001-03-14"};
    EXPECT_FALSE(UpdateApplication(db_, 7, {.name = "x", .dates = dates}));
    EXPECT_FALSE(UpdateClass(db_, 7, {.name = "x", .comment = "c", .dates = dates}));
    EXPECT_FALSE(UpdateCode(db_, 7, {.name = "x", .comment = "c", .dates = dates}));
    EXPECT_EQ(TakeStatements().size(), 3U) << "neither comments nor dates";
    EXPECT_FALSE(RenameApplication(db_, 7, "x") || RenameClass(db_, 7, "x"));
    EXPECT_FALSE(RenameCode(db_, 7, "x") || SetCodeComment(db_, 7, "x"));
}

}  // namespace
}  // namespace snippetarium::test
