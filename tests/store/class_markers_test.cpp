#include "store/class_markers.h"

#include "store/reads_classes.h"
#include "store/sql_text.h"
#include "store/writes_classes.h"
#include "store/writes_codes.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

constexpr std::int32_t kVisualBasic = 1;
constexpr std::int32_t kCpp = 4;
constexpr std::int32_t kAsp = 6;

class ClassMarkers : public WriteFixture {
  protected:
    std::int32_t Class(std::int32_t languageID, const std::string& text) {
        return AddClass(db_, {.name = "Grid" + std::to_string(++classes_),
                              .appID = 1,
                              .declarations = text,
                              .languageID = languageID});
    }
    std::int32_t Code(std::int32_t classID, const std::string& name) {
        return AddCode(db_, {.name = name, .code = "x", .classID = classID});
    }
    std::string Text(std::int32_t classID) { return ClassDIByClassID(db_, classID); }

  private:
    int classes_ = 0;
};

TEST_F(ClassMarkers, AreAddedAtTheEndInTheFormOfTheClass) {
    struct Case {
        std::int32_t languageID;
        std::string before;
        std::string after;
    };
    const std::vector<Case> cases = {
        {kVisualBasic, "", "'***Procedure It's***\r\n"},
        {kVisualBasic, "Dim a", "Dim a\r\n'***Procedure It's***\r\n"},
        {kCpp, "int a;\r\n", "int a;\r\n/***Procedure It's***/"},
        {kAsp, "<p>", "<p>\r\n<!--**Procedure It's**-->\r\n"},
        {kAsp, "<!--**Procedure It's**-->\r\n<p>", "<!--**Procedure It's**-->\r\n<p>"},
    };
    for (const Case& test : cases) {
        const std::int32_t classID = Class(test.languageID, test.before);
        const std::int32_t codeID = Code(classID, "It's");
        AddMarker(db_, codeID);
        EXPECT_EQ(Text(classID), test.after);
        TakeStatements();
        AddMarker(db_, codeID);
        EXPECT_EQ(TakeStatements(), Statements()) << "what does not change is not written";
    }
}

TEST_F(ClassMarkers, AreWrittenByThisStatement) {
    const std::int32_t classID = Class(kVisualBasic, "Dim a 'it");
    const std::int32_t codeID = Code(classID, "Draw");
    ExpectStatements({
        {"adding",
         [&](Database& db) { AddMarker(db, codeID); },
         {"UPDATE tblClass SET classDI = 'Dim a ''it\r\n''***Procedure Draw***\r\n' "
          "WHERE classID = 2"}},
        {"taking out",
         [&](Database& db) { TakeMarkerOut(db, codeID); },
         {"UPDATE tblClass SET classDI = 'Dim a ''it\r\n' WHERE classID = 2"}},
        {"taking out what is not there", [&](Database& db) { TakeMarkerOut(db, codeID); }, {}},
    });
}

TEST_F(ClassMarkers, OfTheUndefinedClassOrOfNoProcedureAreNotAdded) {
    const std::int32_t codeID = Code(0, "Draw");
    TakeStatements();
    AddMarker(db_, codeID);
    AddMarker(db_, 99);
    TakeMarkerOut(db_, 99);
    MoveMarker(db_, 99, {1, "Draw"});
    RenameMarker(db_, 99, "a", "b");
    EXPECT_EQ(TakeStatements(), Statements());
    EXPECT_EQ(Text(1), "");
}

TEST_F(ClassMarkers, BearTheNewNameAfterARename) {
    const std::int32_t classID = Class(kCpp, "/***Procedure Draw***/\r\n/***Procedure Drawn***/");
    const std::int32_t codeID = Code(classID, "Draw");
    Code(classID, "Drawn");
    RenameCode(db_, codeID, "Paint");
    RenameMarker(db_, classID, "Draw", "Paint");
    EXPECT_EQ(Text(classID), "/***Procedure Paint***/\r\n/***Procedure Drawn***/");

    const std::string tooLong(300, 'n');
    RenameCode(db_, codeID, tooLong);
    RenameMarker(db_, classID, "Paint", tooLong);
    EXPECT_EQ(Text(classID),
              "/***Procedure " + tooLong.substr(0, 255) + "***/\r\n/***Procedure Drawn***/");
    RenameCode(db_, codeID, "Draw");
    RenameMarker(db_, classID, tooLong, "Draw");
    EXPECT_EQ(Text(classID), "/***Procedure Draw***/\r\n/***Procedure Drawn***/");
}

TEST_F(ClassMarkers, AreNotMadeByARenameWhereThereIsNone) {
    const std::int32_t classID = Class(kCpp, "int a;");
    RenameCode(db_, Code(classID, "Draw"), "Paint");
    RenameMarker(db_, classID, "Draw", "Paint");
    EXPECT_EQ(Text(classID), "int a;");
}

TEST_F(ClassMarkers, FollowAProcedureIntoAnotherClass) {
    const std::int32_t page = Class(kAsp, "<!--**Procedure Draw**-->\r\n<p>");
    const std::int32_t source = Class(kCpp, "int a;");
    const std::int32_t codeID = Code(page, "Draw");
    UpdateCode(db_, codeID, {.name = "Paint", .code = "x", .classID = source});
    MoveMarker(db_, codeID, {page, "Draw"});
    EXPECT_EQ(Text(page), "<p>");
    EXPECT_EQ(Text(source), "int a;\r\n/***Procedure Paint***/");

    UpdateCode(db_, codeID, {.name = "Sketch", .code = "x", .classID = source});
    MoveMarker(db_, codeID, {source, "Paint"});
    EXPECT_EQ(Text(source), "int a;\r\n/***Procedure Sketch***/") << "renamed in place";

    UpdateCode(db_, codeID, {.name = "Sketch", .code = "x", .classID = 1});
    MoveMarker(db_, codeID, {source, "Sketch"});
    EXPECT_EQ(Text(source), "int a;\r\n");
    EXPECT_EQ(Text(1), "");
}

TEST_F(ClassMarkers, ThatTwoProceduresShareStayForTheOther) {
    const std::string shared = "/***Procedure Draw***/";
    const std::int32_t classID = Class(kCpp, shared);
    const std::int32_t first = Code(classID, "Draw");
    const std::int32_t second = Code(classID, "Draw");
    TakeMarkerOut(db_, first);
    EXPECT_EQ(Text(classID), shared);

    RenameCode(db_, second, "Paint");
    RenameMarker(db_, classID, "Draw", "Paint");
    EXPECT_EQ(Text(classID), shared + "\r\n/***Procedure Paint***/");

    RenameCode(db_, second, "Draw");
    UpdateCode(db_, second, {.name = "Draw", .code = "x", .classID = 1});
    MoveMarker(db_, second, {classID, "Draw"});
    EXPECT_EQ(Text(classID), shared + "\r\n/***Procedure Paint***/");
}

TEST_F(ClassMarkers, OfATextThatIsTooLongForItsColumnMayStandInWhatWasCutOff) {
    const std::string start = "/***Procedure Draw***/";
    const std::string middle(64'000 - start.size() - 10, 'x');
    const std::int32_t classID = Class(kCpp, start + middle + "0123456789");
    const std::string id = std::to_string(classID);
    db_.GetConnection().RunScript("INSERT INTO tblOverlong VALUES (" + id +
                                  ", 2, 'classDI', 'abc/***Procedure Fill***/def');");
    const auto rest = [&] { return Select("SELECT text FROM tblOverlong").front(); };
    const std::int32_t draw = Code(classID, "Draw");
    const std::int32_t fill = Code(classID, "Fill");
    AddMarker(db_, fill);
    EXPECT_EQ(rest(), "abc/***Procedure Fill***/def") << "it has one";
    RenameCode(db_, fill, "F");
    RenameMarker(db_, classID, "Fill", "F");
    EXPECT_EQ(rest(), "abc/***Procedure F***/def");

    RenameCode(db_, draw, "Drawing");
    RenameMarker(db_, classID, "Draw", "Drawing");
    EXPECT_EQ(Text(classID), "/***Procedure Drawing***/" + middle + "0123456");
    EXPECT_EQ(rest(), "789abc/***Procedure F***/def") << "the text keeps its length";
    TakeMarkerOut(db_, draw);
    EXPECT_EQ(Text(classID), middle + "0123456789abc/***Procedure F***/");
    EXPECT_EQ(rest(), "def");
    TakeMarkerOut(db_, fill);
    EXPECT_EQ(Text(classID), middle + "0123456789abcdef");
    EXPECT_EQ(Select("SELECT * FROM tblOverlong"), Rows()) << "the column takes all of it";
}

TEST_F(ClassMarkers, ThatMakeATextTooLongForItsColumnPutItsEndBesideIt) {
    const std::string text(63'990, 'x');
    const std::int32_t classID = Class(kCpp, text);
    db_.GetConnection().RunScript(
        Sql("INSERT INTO tblOverlong VALUES (", classID, ", 2, 'classDI', 'of a text long gone')"));
    const auto rest = [&] { return Select("SELECT text FROM tblOverlong"); };
    const std::int32_t draw = Code(classID, "Draw");
    AddMarker(db_, draw);
    EXPECT_EQ(Text(classID), text + "\r\n/***Proc");
    EXPECT_EQ(rest(), Rows{"edure Draw***/"});
    TakeMarkerOut(db_, draw);
    EXPECT_EQ(Text(classID), text + "\r\n");
    EXPECT_EQ(rest(), Rows());
}

TEST_F(ClassMarkers, AreInBothClassesAndNotInNeitherWhenAMoveFails) {
    const std::int32_t source = Class(kCpp, "/***Procedure Draw***/");
    const std::int32_t target = Class(kCpp, "");
    const std::int32_t codeID = Code(source, "Draw");
    UpdateCode(db_, codeID, {.name = "Draw", .code = "x", .classID = target});
    db_.GetConnection().RunScript(
        "CREATE TRIGGER refuse BEFORE UPDATE OF classDI ON tblClass WHEN old.classID = 2 "
        "BEGIN SELECT RAISE(ABORT, 'refused'); END;");
    MoveMarker(db_, codeID, {source, "Draw"});
    ExpectFailedStatement();
    EXPECT_EQ(Text(source), "/***Procedure Draw***/");
    EXPECT_EQ(Text(target), "/***Procedure Draw***/");
}

}  // namespace
}  // namespace snippetarium::test
