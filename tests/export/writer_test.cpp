#include "export/writer.h"

#include <gtest/gtest.h>

#include "export/expand.h"
#include "store/sql_text.h"
#include "support/text_file.h"
#include "support/utf8.h"
#include "tests/export/export_fixture.h"
#include "tests/fake_file_system.h"

namespace snippetarium::test {
namespace {

class WriterTest : public ExportFixture {};

TEST_F(WriterTest, ExpandsTheMarkersOfTheClassesOwnProcedures) {
    const std::int32_t classID = MakeClass({.name = "Grid", .languageID = kVisualBasic});
    const std::int32_t other = MakeClass({.name = "Other", .languageID = kVisualBasic});
    AddCode(db_, {.name = "Draw", .code = "Sub Draw", .classID = classID, .comment = "'draws"});
    AddCode(db_, {.name = "Load", .code = "Sub Load", .classID = classID});
    AddCode(db_, {.name = "Save", .code = "Sub Save", .classID = other});
    ExecuteSQL(
        db_, "INSERT INTO tblCode(codeName, code, codeComment, classID) VALUES('Empty', 'x', '', " +
                 std::to_string(classID) + ")");
    EXPECT_EQ(ExpandVbProcedures(db_,
                                 "'***Procedure Draw***\r\n'***Procedure Load***\r\n'***Procedure "
                                 "Save***\r\n'***Procedure Empty***\r\n",
                                 classID),
              "'draws\r\nSub Draw\r\nSub Load\r\n'***Procedure Save***\r\n\r\nx\r\n");
    EXPECT_EQ(
        ExpandCProcedures(
            db_, "/***Procedure Draw***/|/***Procedure Load***/|/***Procedure Empty***/", classID),
        "'drawsSub Draw|Sub Load|x");
    EXPECT_EQ(ExpandPageProcedures(
                  db_, "<!--**Procedure Draw**-->\r\n<!--**Procedure draw**-->\r\n", classID),
              "'draws\r\nSub Draw\r\n<!--**Procedure draw**-->\r\n");
}

TEST_F(WriterTest, WritesAClassInTheLayoutOfItsLanguage) {
    const struct {
        std::int32_t languageID;
        std::string declarations;
        std::string expected;
    } cases[] = {
        {kVisualBasic, "Attribute\r\nOption Explicit\r\n'***Procedure Draw***\r\nDim x",
         "Attribute\r\n\r\n'head\r\nOption Explicit\r\n'c\r\ncode\r\nDim x\r\n"},
        {kC, "{\r\n/***Procedure Draw***/\r\n}", "'head\r\n{\r\n'ccode\r\n}\r\n"},
        {kAsp, "<% x %>\r\n<!--**Procedure Draw**-->\r\n</html>",
         "<% x %>\r\n'head\r\n'c\r\ncode\r\n</html>\r\n"},
    };
    for (const auto& [languageID, declarations, expected] : cases) {
        const std::int32_t classID = MakeClass({.name = "Grid",
                                                .declarations = declarations,
                                                .comment = "'head",
                                                .languageID = languageID});
        AddCode(db_, {.name = "Draw", .code = "code", .classID = classID, .comment = "'c"});
        EXPECT_EQ(Put(classID, "out"), Remarks{});
        EXPECT_EQ(Read("out"), expected);
    }
}

TEST_F(WriterTest, CompletesAMarkerThatEndsTheClassesText) {
    // A class's text is stored without the line break that the writer adds.
    const std::int32_t classID = MakeClass(
        {.name = "Grid", .declarations = "class X\r\n'***Procedure Draw***", .languageID = 3});
    AddCode(db_, {.name = "Draw", .code = "void Draw() {}", .classID = classID});
    Put(classID, "Grid.cs");
    EXPECT_EQ(Read("Grid.cs"), "class X\r\nvoid Draw() {}\r\n");
}

TEST_F(WriterTest, NamesTheProceduresForWhichTheClassHasNoPlace) {
    const std::int32_t classID =
        MakeClass({.name = "Grid", .declarations = "/***Procedure Draw***/", .languageID = kC});
    for (const char* name : {"Draw", "draw", "Load"})
        AddCode(db_, {.name = name, .code = name, .classID = classID});
    const std::string_view rest = " into it, or export the procedure by itself.";
    const std::string why =
        "' of the class 'Grid' is not in the file, because the class's text does not say where. "
        "Put the line /***Procedure ";
    EXPECT_EQ(Put(classID, "f.c"),
              (Remarks{"The procedure 'draw" + why + "draw***/" + std::string(rest),
                       "The procedure 'Load" + why + "Load***/" + std::string(rest)}));
    EXPECT_EQ(Read("f.c"), "Draw\r\n");
}

/// A file of any bytes, stored as an import stores it: one procedure cut out of the middle.
struct ImportedFile {
    std::string description;
    std::string bytes;
};

TEST_F(WriterTest, GivesImportedFilesBackByteForByte) {
    using namespace std::string_literals;
    const std::vector<ImportedFile> imported = {
        {"the platform's line ends", "int a;\r\n[f() {}]\r\nint b;\r\n"},
        {"bare line feeds", "int a;\n[f() {}]\nint b;\n"},
        {"both kinds", "int a;\n[f() {\r\n}]\nint b;\r\n\n"},
        {"no last line end", "int a;\n[f() {}]\nint b;"},
        {"empty lines at the end", "int a;\r\n[f() {}]\r\n\r\n\r\n"},
        {"nothing behind the procedure", "int a;\n[f() {}]"},
        {"windows-1252", "// caf\xE9 \x80\r\n[f(\"\xFC\") {}]\r\n"},
        {"bytes of no character", "// \x81\xFF\0 \r\n[f() {}]\r\n"s},
        {"UTF-8", "// caf\xC3\xA9\n[f() {}]\n"},
        {"UTF-8 with a byte-order mark", "\xEF\xBB\xBF// caf\xC3\xA9\n[f() {}]\n"},
        {"UTF-16", "\xFF\xFE/\0/\0\xE9\0\n\0[\0f\0(\0)\0]\0\n\0"s},
        {"UTF-16, the other way round", "\xFE\xFF\0/\0/\x20\xAC\0\r\0\n\0[\0f\0]\0\r\0\n"s},
        {"a lone carriage return", "int a;\r\r\n[f() {}]\r\n\r"},
    };
    for (const auto& [description, bytes] : imported) {
        TextFile file = DecodeTextFile(bytes);
        // Stored without its last line break.
        if (file.text.ends_with("\r\n")) file.text.resize(file.text.size() - 2);
        const std::size_t begin = file.text.find('[');
        const std::size_t length = file.text.find(']') + 1 - begin;
        const std::string code = file.text.substr(begin, length);
        file.text.replace(begin, length, MarkerText(MarkerFamily::C, "f()"));
        const std::int32_t classID =
            MakeClass({.name = "f.c", .declarations = file.text, .languageID = kC});
        AddCode(db_, {.name = "f()", .code = code, .classID = classID});
        SetForm(classID, file.form.Serialise());

        EXPECT_EQ(Put(classID, "f.c"), Remarks{}) << description;
        EXPECT_EQ(Read("f.c"), bytes) << description;
    }
}

TEST_F(WriterTest, TellsWhenAFileCannotKeepItsEncoding) {
    const std::int32_t classID = MakeClass(
        {.name = "Grid", .declarations = "a\r\n\xE2\x82\xAC\r\n\xD0\x96", .languageID = kC});
    SetForm(classID, "encoding=windows-1252;mark=no;ends=lf");
    EXPECT_EQ(
        Put(classID, "f.c"),
        Remarks{
            "The file '" + Path("f.c") +
            "' is now written in UTF-8, because windows-1252 lacks characters of its lines 3."});
    EXPECT_EQ(Read("f.c"),
              "\xEF\xBB\xBF"
              "a\n\xE2\x82\xAC\n\xD0\x96\n");

    for (const std::string_view form : {"what", "encoding=nobodys-encoding"}) {
        ExecuteSQL(db_, Sql("UPDATE tblSourceForm SET form = ", SqlText(form)));
        EXPECT_EQ(Put(classID, "f.c"),
                  Remarks{"What the file of the class 'Grid' looked like is not known any more ('" +
                          std::string(form) + "'), so it is written in UTF-8."});
        EXPECT_EQ(Read("f.c"), "a\r\n\xE2\x82\xAC\r\n\xD0\x96\r\n");
    }
}

/// A text in two pieces as import stores one that is too long.
struct CutText {
    std::string stored;
    std::string rest;
};

CutText Cut(const std::string& text) {
    const std::string stored(CutToCharacters(text, kLongTextLimit));
    return {stored, text.substr(stored.size())};
}

TEST_F(WriterTest, AppendsWhatTheColumnsCouldNotTake) {
    const std::string umlauts = [] {
        std::string text;
        for (std::size_t i = 0; i < kLongTextLimit - 3; ++i)
            text += "\xC3\xA4";
        return text;
    }();
    // The cut goes through a marker, and through a line break.
    const CutText text = Cut(umlauts + "/***Procedure f***/\r\nend");
    const CutText header = Cut(umlauts + "//\r\nhead");
    const CutText code = Cut(umlauts + "code");
    const CutText comment = Cut(umlauts + "comment");
    const std::int32_t classID = MakeClass(
        {.name = "Grid", .declarations = text.stored, .comment = header.stored, .languageID = kC});
    const std::int32_t codeID = AddCode(
        db_, {.name = "f", .code = code.stored, .classID = classID, .comment = comment.stored});
    AddRest({OwnerKind::Class, classID}, "classDI", text.rest);
    AddRest({OwnerKind::Class, classID}, "classComment", header.rest);
    AddRest({OwnerKind::Procedure, codeID}, "code", code.rest);
    AddRest({OwnerKind::Procedure, codeID}, "codeComment", comment.rest);
    AddRest({OwnerKind::Application, classID}, "classDI", "somebody else's");
    AddRest({OwnerKind::Procedure, codeID + 1}, "code", "somebody else's");

    const std::string procedure = umlauts + "comment" + umlauts + "code";
    EXPECT_EQ(Put(classID, "f.c"), Remarks{});
    EXPECT_TRUE(Read("f.c") == umlauts + "//\r\nhead\r\n" + umlauts + procedure + "\r\nend\r\n");
    EXPECT_TRUE(
        WriteProcedureFile(db_, files_, Path("p.c"), codeID, OutputMode::Replace).isWritten);
    EXPECT_TRUE(Read("p.c") == procedure + "\r\n");
}

TEST_F(WriterTest, LeavesOutTheRestOfATextThatWasChangedAndSaysSo) {
    const std::int32_t classID = MakeClass(
        {.name = "Grid", .declarations = "/***Procedure f***/", .comment = "//", .languageID = kC});
    const std::int32_t codeID = AddCode(db_, {.name = "f",
                                              .code = std::string(kLongTextLimit + 1, 'x'),
                                              .classID = classID,
                                              .comment = "c"});
    AddRest({OwnerKind::Class, classID}, "classDI", "\xC3\xA4\xC3\xA4");
    AddRest({OwnerKind::Class, classID}, "classComment", "1");
    AddRest({OwnerKind::Procedure, codeID}, "code", "22");
    AddRest({OwnerKind::Procedure, codeID}, "codeComment", "333");
    const Remarks remarks = Put(classID, "f.c");
    EXPECT_TRUE(Read("f.c") == "//\r\nc" + std::string(kLongTextLimit + 1, 'x') + "\r\n");
    ASSERT_EQ(remarks.size(), 4U);
    EXPECT_EQ(remarks[0],
              "The class 'Grid' was too long for the catalogue and has been changed since: the 2 "
              "characters behind its first 64,000 are not written.");
    EXPECT_TRUE(remarks[1].starts_with("The comment of the class 'Grid' was")) << remarks[1];
    EXPECT_TRUE(remarks[2].starts_with("The comment of the procedure 'f' was")) << remarks[2];
    EXPECT_TRUE(remarks[3].starts_with("The procedure 'f' was")) << remarks[3];
}

TEST_F(WriterTest, AppendsInTheFormOfTheFile) {
    using namespace std::string_literals;
    const std::int32_t classID =
        MakeClass({.name = "Grid", .declarations = "a\r\n\xC3\xA9", .languageID = kC});
    SetForm(classID, "encoding=UTF-8;mark=yes;ends=crlf;last=open");
    const struct {
        std::string_view description;
        std::string before;
        std::string after;
    } cases[] = {
        {"line feeds", "x\n", "x\na\n\xC3\xA9\n"},
        {"a last line that does not end", "x\r\ny", "x\r\ny\r\na\r\n\xC3\xA9\r\n"},
        {"another encoding", "\xE4\r\n", "\xE4\r\na\r\n\xE9\r\n"},
        {"UTF-16", "\xFF\xFEx\0\n\0"s, "\xFF\xFEx\0\n\0a\0\n\0\xE9\0\n\0"s},
        {"an empty file", "", "a\r\n\xC3\xA9\r\n"},
    };
    for (const auto& [description, before, after] : cases) {
        WriteBytes(Path("f.c"), before);
        EXPECT_EQ(Put(classID, "f.c", OutputMode::Append), Remarks{});
        EXPECT_EQ(Read("f.c"), after) << description;
    }
    // A file that is not there is written as if replaced.
    Put(classID, "new.c", OutputMode::Append);
    EXPECT_EQ(Read("new.c"),
              "\xEF\xBB\xBF"
              "a\r\n\xC3\xA9");
}

TEST_F(WriterTest, AppendsNothingThatTheFileCannotHold) {
    const std::int32_t classID =
        MakeClass({.name = "Grid", .declarations = "\xD0\x96", .languageID = kC});
    WriteBytes(Path("f.c"), "\xE4\r\n");
    EXPECT_FALSE(
        WriteClassFile(db_, files_, Path("f.c"), ReadClassFile(db_, classID), OutputMode::Append)
            .isWritten);
    EXPECT_EQ(Read("f.c"), "\xE4\r\n");
    ExpectError(Procedure::WriteClassFile, "windows-1252, which lacks characters");
}

TEST_F(WriterTest, WritesAProcedureAsItStandsInItsClassesFile) {
    const struct {
        std::int32_t languageID;
        std::string comment;
        std::string code;
        std::string expected;
    } cases[] = {
        {kVisualBasic, "'c", "Sub\r\nEnd", "'c\nSub\nEnd\n"},
        {kVisualBasic, "", "Sub\r\nEnd", "Sub\nEnd\n"},
        {kC, "/*c*/\r\n", "f() {}", "/*c*/\nf() {}\n"},
        {kJava, "", "f() {}\r\n", "f() {}\n"},
        {kAsp, "'c", "Sub \xC3\xA9", "'c\nSub \xE9\n"},
    };
    for (const auto& [languageID, comment, code, expected] : cases) {
        const std::int32_t classID = MakeClass({.name = "Grid", .languageID = languageID});
        SetForm(classID, "encoding=windows-1252;ends=lf;last=open;others=1-2");
        const std::int32_t codeID =
            AddCode(db_, {.name = "f", .code = code, .classID = classID, .comment = comment});
        const WriteResult result =
            WriteProcedureFile(db_, files_, Path("p"), codeID, OutputMode::Replace);
        EXPECT_TRUE(result.isWritten);
        EXPECT_EQ(result.remarks, Remarks{});
        EXPECT_EQ(Read("p"), expected);
    }
    EXPECT_FALSE(WriteProcedureFile(db_, files_, Path("q"), 99, OutputMode::Replace).isWritten);
    ExpectError(Procedure::WriteProcedureFile, "no procedure with the number 99");
    EXPECT_FALSE(files_.FileExists(Path("q")));
}

}  // namespace
}  // namespace snippetarium::test
