#include "import/unit_store.h"

#include <gtest/gtest.h>

#include "export/markers.h"
#include "store/check.h"
#include "store/cut_short_imports.h"
#include "store/writes_languages.h"
#include "support/utf8.h"
#include "tests/import/unit_store_fixture.h"
#include "tests/killed_child.h"

namespace snippetarium::test {
namespace {

constexpr std::size_t kLimit = 64000;

/// Text of so many characters, two bytes each.
std::string LongText(std::size_t characters) {
    std::string text;
    for (std::size_t i = 0; i < characters; ++i)
        text += "\xC3\xA9";
    return text;
}

TEST_F(UnitStoreTest, WritesTheClassFirstThenItsProceduresAndItsWholeTextLast) {
    EXPECT_EQ(Store({.className = "modDraw",
                     .comment = "' Date: 2001-03-14",
                     .text = "head\r\nbetween\r\ntail",
                     .procedures = {{.name = "A()", .code = "a", .position = 6},
                                    {.name = "B()", .comment = "' b", .code = "b", .position = 6},
                                    {.name = "C()", .code = "c", .position = 15}}}),
              StoreResult::Stored);
    Rows written;
    for (const std::string& statement : TakeStatements()) {
        for (const std::string_view begin :
             {"INSERT INTO tblClass ", "INSERT INTO tblSourceForm", "INSERT INTO tblCode ",
              "INSERT INTO tblCode_Link_Language", "UPDATE tblClass SET ClassName"}) {
            if (statement.starts_with(begin)) written.push_back(statement);
        }
    }
    EXPECT_EQ(
        written,
        (Rows{"INSERT INTO tblClass ( ClassName, appID, languageID, ClassPathInApp, classDI) "
              "VALUES ('modDraw', 2, 1, 'Draw.bas', 'head\r\n')",
              "INSERT INTO tblSourceForm VALUES(2, '" + SourceForm{}.Serialise() + "')",
              "INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('A()', 'a', 2)",
              "INSERT INTO tblCode_Link_Language VALUES (1, 1)",
              "INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('B()', 'b', 2)",
              "INSERT INTO tblCode_Link_Language VALUES (2, 1)",
              "INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('C()', 'c', 2)",
              "INSERT INTO tblCode_Link_Language VALUES (3, 1)",
              "UPDATE tblClass SET ClassName = 'modDraw', appID = 2, languageID = 1, "
              "ClassPathInApp='Draw.bas', ClassDI='head\r\n''***Procedure A()***''***Procedure "
              "B()***between\r\n''***Procedure C()***tail' WHERE ClassID = 2"}));
}

TEST_F(UnitStoreTest, HarvestsTheCommentsOfClassAndProcedures) {
    const std::string comment = "' Author: Ann Lee\r\n' Date: 2001-03-14\r\n' Keywords: grid";
    Store({.className = "modDraw",
           .comment = comment,
           .procedures = {{.name = "A()", .comment = comment, .code = "a"}}});
    EXPECT_EQ(Select("SELECT ownerID, ownerTableID, authorID FROM tbl_Author_Link"),
              (Rows{"2|2|1", "1|3|1"}));
    EXPECT_EQ(Select("SELECT ownerID, ownerTableID, dateID FROM tbl_date_link"),
              (Rows{"2|2|1", "1|3|1"}));
    EXPECT_EQ(Select("SELECT dDate FROM tblDate"), (Rows{"2001-03-14"}));
    EXPECT_EQ(Select("SELECT k.keyword FROM tblClass c INNER JOIN tblKeyword k ON c.keywordID = "
                     "k.keywordID"),
              (Rows{"grid"}));
    EXPECT_EQ(Select("SELECT keywordID, codeComment FROM tblCode"), (Rows{"2|" + comment}));
    EXPECT_EQ(Select("SELECT searchWord FROM tblSearchWord"), (Rows{"grid"}));
}

TEST_F(UnitStoreTest, CutsWhatIsTooLongSaysSoAndKeepsTheRest) {
    const std::string text = LongText(kLimit);
    const std::string over = text + "over";
    const CutFile file{.className = "modDraw",
                       .comment = over,
                       .text = over,
                       .procedures = {{.name = "Fits()", .comment = text, .code = text},
                                      {.name = "Long()", .comment = over, .code = over}}};
    Store(file);
    EXPECT_EQ(TakeErrors(),
              "  The comment of the class modDraw is too long (over 64,000 characters) in the "
              "application Paint.\r\n"
              "  The comment of the procedure Long() is too long (over 64,000 characters) in the "
              "class modDraw.\r\n"
              "  The procedure Long() is too long (over 64,000 characters) in the class "
              "modDraw.\r\n"
              "  The class modDraw is too long (over 64,000 characters) in the application "
              "Paint.\r\n");
    EXPECT_TRUE(state_.fileHadError);
    EXPECT_EQ(Select("SELECT codeName FROM tblCode WHERE code = '" + text +
                     "' AND codeComment = '" + text + "'"),
              (Rows{"Fits()", "Long()"}));
    EXPECT_EQ(Select("SELECT count(classID) FROM tblClass WHERE classComment = '" + text + "'"),
              (Rows{"1"}));
    EXPECT_EQ(CharacterCount(ClassText(2)), kLimit);
    const std::string markers = "'***Procedure Fits()***'***Procedure Long()***";
    EXPECT_EQ(Select("SELECT ownerID, ownerTableID, part FROM tblOverlong ORDER BY ownerTableID, "
                     "part"),
              (Rows{"2|2|classComment", "2|2|classDI", "2|3|code", "2|3|codeComment"}));
    EXPECT_EQ(ClassText(2) + Select("SELECT text FROM tblOverlong WHERE part = 'classDI'").front(),
              markers + over);
}

TEST_F(UnitStoreTest, ReportsALongClassOnceInAJobByTheBeginningOfItsName) {
    const std::string over = LongText(kLimit + 1);
    Store({.className = "Grids", .comment = over}, "a.bas");
    state_.fileHadError = false;
    Store({.className = "GRID", .comment = over}, "b.bas");
    EXPECT_FALSE(state_.fileHadError);
    Store({.className = "Gridss", .comment = over}, "c.bas");
    EXPECT_EQ(TakeErrors(),
              "  The comment of the class Grids is too long (over 64,000 characters) in the "
              "application Paint.\r\n"
              "  The comment of the class Gridss is too long (over 64,000 characters) in the "
              "application Paint.\r\n");
}

TEST_F(UnitStoreTest, NamesAClassByItsFileWhereTheTextDoesNot) {
    EXPECT_EQ(Store({}, "sub\\Form1.frm"), StoreResult::Stored);
    EXPECT_EQ(Store({}, "sub\\.bas"), StoreResult::NoName);
    EXPECT_EQ(TakeErrors(), "  Class name is missing.\r\n");
    EXPECT_TRUE(state_.fileHadError);
    EXPECT_EQ(Classes(), (Rows{"2|Form1|sub\\Form1.frm"}));
}

TEST_F(UnitStoreTest, LeavesAProcedureWithoutANameInTheText) {
    Store({.className = "modDraw",
           .text = "head\r\nSub\r\nEnd Sub\r\n",
           .procedures = {{.position = 6}, {.name = "B()", .code = "b", .position = 20}}});
    EXPECT_EQ(TakeErrors(),
              "  Procedure name missing in one of the code units in the class modDraw.\r\n");
    EXPECT_EQ(CodeNames(), (Rows{"B()"}));
    EXPECT_EQ(ClassText(2), "head\r\nSub\r\nEnd Sub\r\n'***Procedure B()***");
}

TEST_F(UnitStoreTest, GivesProceduresOfOneNameTheirOwnNamesAndMarkers) {
    const std::string longName = std::string(300, 'x');
    Store({.className = "modDraw",
           .text = "..",
           .procedures = {{.name = "A()", .code = "1", .position = 0},
                          {.name = "A()", .code = "2", .position = 1},
                          {.name = longName, .code = "3", .position = 2}}});
    EXPECT_EQ(CodeNames(), (Rows{"A()", "A() (2)", std::string(255, 'x')}));
    EXPECT_EQ(ClassText(2), "'***Procedure A()***.'***Procedure A() (2)***.'***Procedure " +
                                std::string(255, 'x') + "***");
}

TEST_F(UnitStoreTest, TakesNoNameWhoseMarkerTheFileHoldsAlready) {
    Store({.className = "modDraw",
           .text = "' '***Procedure A()***\r\n",
           .procedures = {{.name = "A()", .code = "a", .position = 24},
                          {.name = "B()", .code = "x = \"'***Procedure B()***\"", .position = 24},
                          {.name = "C()", .code = "/***Procedure C()***/", .position = 24}}});
    EXPECT_EQ(CodeNames(), (Rows{"A() (2)", "B() (2)", "C()"}));
}

TEST_F(UnitStoreTest, MarksProceduresAsTheLanguageOfTheFileWantsIt) {
    struct Case {
        std::string entry;
        std::string marker;
        std::string languageID;
    };
    for (const Case& test :
         {Case{"a.cls", "'***Procedure P***", "1"}, Case{"a.java", "/***Procedure P***/", "2"},
          Case{"a.CS", "'***Procedure P***", "3"}, Case{"a.hpp", "/***Procedure P***/", "4"},
          Case{"a.asp", "<!--**Procedure P**-->", "6"},
          Case{"a.htm", "<!--**Procedure P**-->", "9"}}) {
        Store({.className = test.entry, .procedures = {{.name = "P", .code = "p"}}}, test.entry);
        EXPECT_EQ(Select("SELECT languageID, classDI FROM tblClass WHERE className = '" +
                         test.entry + "'"),
                  (Rows{test.languageID + "|" + test.marker}));
    }
}

TEST_F(UnitStoreTest, LinksProceduresToTheLanguageThatIsMeant) {
    struct Case {
        std::string dialogText;
        std::string entry;
        std::string regionLanguage;
        std::string linked;
    };
    // clang-format off
    const std::vector<Case> cases{
        {"Visual Basic, C++", "a.cpp",  "",           "C++"},
        {"visual basic, c++", "a.CPP",  "",           "C++"},
        {"Visual Basic",      "a.cpp",  "",           "Visual Basic"},
        {" , ,Turbo Basic,",  "a.bas",  "",           "Turbo Basic"},
        {"turbo basic",       "a.bas",  "",           "Turbo Basic"},
        {"C++",               "a.hpp",  "",           "C++"},
        {"",                  "a.hpp",  "",           "C++"},
        {"Java, C++",         "a.hpp",  "",           "C++"},
        {"ASP, Visual Basic", "a.c",    "",           "C"},
        {"ASP, Turbo C",      "a.c",    "",           "ASP"},
        {"C, C/C++ Header",   "a.hh",   "",           "C++ Header"},
        {"",                  "a.java", "",           "Java"},
        {"ASP",               "a.asp",  "VBScript",   "VBScript"},
        {"ASP",               "a.asp",  "PerlScript", "PerlScript"},
    };
    // clang-format on
    for (const Case& test : cases) {
        target_.language = test.dialogText;
        UnitStore store(db_, state_, noise_, target_);
        const std::string entry = std::to_string(&test - cases.data()) + test.entry;
        store.Store({.className = entry,
                     .procedures = {{.name = entry, .code = "p", .language = test.regionLanguage}}},
                    {.entry = entry});
        EXPECT_EQ(Select("SELECT l.language FROM tblCode c, tblCode_Link_Language k, tblLanguage l "
                         "WHERE c.codeID = k.codeID AND k.languageID = l.languageID AND c.codeName "
                         "= '" +
                         entry + "'"),
                  (Rows{test.linked}))
            << entry << " with " << test.dialogText;
    }
    EXPECT_EQ(Select("SELECT count(languageID) FROM tblLanguage"), (Rows{"13"}));
}

TEST_F(UnitStoreTest, BringsADeletedLanguageOfTheClassBack) {
    EXPECT_TRUE(DeleteLanguage(db_, "C++ Header"));
    Store({.className = "Grid.hh"}, "Grid.hh");
    EXPECT_EQ(Select("SELECT language FROM tblLanguage WHERE languageID = 11"),
              (Rows{"C++ Header"}));
}

TEST_F(UnitStoreTest, KilledAnywhereLeavesTheProceduresStoredSoFar) {
    const CutFile file{.className = "modDraw",
                       .text = "head\r\ntail",
                       .procedures = {{.name = "A()", .code = "a", .position = 6},
                                      {.name = "B()", .code = "b", .position = 6}}};
    CloseCatalogue(db_);
    for (int yield = 1; yield <= 2; ++yield) {
        RunUntilItDies([&] {
            OpenCatalogue(db_);
            const BulkWriting writing(db_.GetConnection());
            host_.events.At(yield, [] { DieHere(); });
            Store(file, std::to_string(yield) + ".bas");
        });
    }
    RunUntilItDies([&] {
        OpenCatalogue(db_);
        db_.SetStatementObserver([](std::string_view sql) {
            if (sql.starts_with("INSERT INTO tblClass ")) DieHere();
        });
        Store(file, "3.bas");
    });
    OpenCatalogue(db_);
    Store({.className = "modAfter"}, "after.bas");  // not the class that did not come to be
    TellOfCutShortImports(db_);
    const std::string told = TakeBox().text;
    EXPECT_NE(told.find("modDraw in Paint (1.bas)\r\n    modDraw in Paint (2.bas)\r\n"),
              std::string::npos)
        << told;
    TellOfCutShortImports(db_);  // once
    EXPECT_EQ(Select("SELECT classPathInApp, classDI FROM tblClass WHERE classID > 1"),
              (Rows{"1.bas|head\r\n", "2.bas|head\r\n", "after.bas|-"}));
    EXPECT_EQ(Select("SELECT codeName, classID, languageID FROM tblCode c INNER JOIN "
                     "tblCode_Link_Language l ON c.codeID = l.codeID ORDER BY c.codeID"),
              (Rows{"A()|2|1", "A()|3|1", "B()|3|1"}));

    // What is imported again is whole, and the other one is still on the list.
    state_.overwriteChoice = OverwriteChoice::Yes;
    Store(file, "2.bas");
    EXPECT_EQ(CutShortClasses(db_).size(), 1U);
    const CheckReport report = CheckCatalogue(db_);
    EXPECT_TRUE(report.IsSound());
    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_EQ(report.findings[0].kind, FindingKind::ClassCutShort);
    EXPECT_EQ(report.findings[0].examples, std::vector<std::string>{"classID 2, modDraw"});
}

}  // namespace
}  // namespace snippetarium::test
