#include <filesystem>
#include <map>

#include "editors/class_record.h"
#include "editors/code_record.h"
#include "navigator/language_guess.h"
#include "navigator/name_proposal.h"
#include "store/class_markers.h"
#include "store/unique_names.h"
#include "support/paths.h"
#include "tests/import/import_fixture.h"

namespace snippetarium::test {
namespace {

// What an editor makes of a text that somebody typed or pasted.

struct ProposalCase {
    std::int32_t languageID;
    std::string_view className;
    std::string_view code;
    std::string_view name;
};
// clang-format off
constexpr ProposalCase kProposals[] = {
    {1, "", "Private Sub Draw(x)\nEnd Sub", "Draw(x)"},
    {1, "", "'Draws.\r\nSub Draw()", "Draw()"},
    {1, "", "Dim a As Integer\n\nProperty Get Size() As Long\nEnd Property\nSub B()\nEnd Sub", "Get Size()"},
    {1, "", "Dim a As Integer", ""},
    {8, "", "Sub Main\nEnd Sub", "Main"},
    {8, "", "Function F(a, b)", "F(a, b)"},
    {2, "Grid", "void draw(int x) {}", "Grid.draw(int x)"},
    {2, "Grid", "@Override\npublic String name() {\n    return \"}", "Grid.name()"},
    {2, "Grid", "public Grid(int rows)", "Grid.Grid(int rows)"},
    {2, "Class/Module Undefined", "void draw(int x) {}", "draw(int x)"},
    {2, "", "class Line { void draw() {} }", "Line.draw()"},
    {2, "Grid", "int size;", ""},
    {3, "Grid", "public string Name { get { return name; } }", "Grid.Name"},
    {3, "Grid", "    static int Sum(int a, int b) => a + b;", "Grid.Sum(int a, int b)"},
    {3, "Grid", "~Grid()\n{\n}", "Grid.~Grid()"},
    {4, "grid.cpp", "int Grid::Size() const {\n    if (a) {", "Grid::Size()"},
    {4, "grid.cpp", "/* Adds. */\ntemplate <class T>\nT Sum(T a, T b)", "Sum(T a, T b)"},
    {4, "grid.cpp", "int Sum(int a, int b = 2)", "Sum(int a, int b = 2)"},
    {5, "grid.c", "static int sum(int a,\n               int b)\n{ return a + b; }", "sum(int a, int b)"},
    {10, "grid.h", "inline int two(void) { return 2; }", "two(void)"},
    {11, "grid.hpp", "inline int two() { return 2; }", "two()"},
    {7, "grid.js", "function draw(x) {", "draw(x)"},
    {7, "grid.js", "const sum = (a, b) => a + b;", "sum(a, b)"},
    {7, "grid.js", "add(name) {\n  return 1;\n}", "add(name)"},
    {7, "grid.js", "size: function () { return 1; }", "size()"},
    {6, "page.asp", "Function LoadEntries(name)\nEnd Function", "LoadEntries(name)"},
    {6, "page.asp", "function check(form) { return 1; }", "check(form)"},
    {6, "page.asp", "<%\nSub Draw(a)\nEnd Sub\n%>", "Draw(a)"},
    {9, "page.html", "function sky(canvas) {\n}", "sky(canvas)"},
    {9, "page.html", "<script>\nfunction sky(canvas) {\n}\n</script>", "sky(canvas)"},
    {12, "", "Sub Draw()", ""},
    {0, "", "Sub Draw()", ""},
    {4, "", "", ""},
    {7, "", "}}}}{{{{", ""},
};
// clang-format on

TEST(NameProposal, IsTheNameOfTheFirstProcedureFinishedOrNot) {
    for (const auto& [languageID, className, code, name] : kProposals) {
        EXPECT_EQ(ProposedName({code, languageID, className}), name) << languageID << ": " << code;
    }
    const std::string longName(300, 'n');
    EXPECT_EQ(ProposedName({"Sub " + longName + "()", 1, ""}), longName.substr(0, 255));
}

TEST(NameProposal, OfEveryBeginningOfATextEndsSoon) {
    for (const auto& [languageID, className, code, name] : kProposals) {
        for (std::size_t length = 0; length < code.size(); ++length)
            ProposedName({code.substr(0, length), languageID, className});
    }
    std::string brackets;
    for (int i = 0; i < 16'000; ++i)
        brackets += "({[<";
    const auto start = std::chrono::steady_clock::now();
    for (std::int32_t languageID = 1; languageID <= 11; ++languageID)
        ProposedName({brackets, languageID, "Grid"});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{20});
}

/// The delivered samples, imported.
class SamplesTest : public ImportFixture {
  protected:
    SamplesTest() {
        const std::filesystem::path folder =
            std::filesystem::path(SNIPPETARIUM_SOURCES) / "data/samples";
        std::vector<std::string> entries;
        for (const auto& item : std::filesystem::recursive_directory_iterator(folder)) {
            if (!item.is_regular_file()) continue;
            entries.push_back(item.path().filename().string());
            bytes_[entries.back()] = ReadBytes(item.path().string());
            AddFile(entries.back(), bytes_[entries.back()]);
        }
        Import(entries);
        host_.messages.shown.clear();
    }
    std::vector<CodeRecord> Procedures() {
        std::vector<CodeRecord> records;
        for (const std::string& id : Select("SELECT codeID FROM tblCode ORDER BY codeID"))
            records.push_back(LoadCodeRecord(db_, std::stoi(id)).value());
        return records;
    }
    /// What a source is in, by the extension of its file; a page by its script, if that is all.
    std::int32_t LanguageOf(const CodeRecord& record) {
        if (record.code.find("<%") != std::string::npos) return 6;
        static const std::map<std::string, std::int32_t, std::less<>> kByExtension = {
            {"frm", 1}, {"bas", 1}, {"cls", 1},  {"vbs", 8}, {"js", 7}, {"c", 5},
            {"h", 5},   {"cs", 3},  {"java", 2}, {"cpp", 4}, {"hpp", 4}};
        const std::string path = LoadClassRecord(db_, record.classID)->pathInApp;
        const auto found = kByExtension.find(FileExtension(path));
        return found == kByExtension.end() ? record.languageID : found->second;
    }

    std::map<std::string, std::string> bytes_;
};

TEST_F(SamplesTest, AreGuessedToBeWhatTheyAre) {
    const std::pair<std::string_view, std::int32_t> files[] = {
        {"frmTides.frm", 1},   {"modCalendar.bas", 1}, {"clsHarbour.cls", 1}, {"nightly.vbs", 8},
        {"stars.js", 7},       {"map.html", 9},        {"ring_buffer.c", 5},  {"ring_buffer.h", 5},
        {"default.asp", 6},    {"entries.inc", 6},     {"Temperature.cs", 3}, {"Ledger.java", 2},
        {"word_count.cpp", 4}, {"word_count.hpp", 4}};
    for (const auto& [file, languageID] : files)
        EXPECT_EQ(GuessedLanguage(bytes_.at(std::string(file))), languageID) << file;
    int guessed = 0;
    for (const CodeRecord& record : Procedures()) {
        const std::int32_t guess = GuessedLanguage(record.code);
        if (guess == 0) continue;
        ++guessed;
        EXPECT_EQ(guess, LanguageOf(record)) << record.code;
    }
    EXPECT_GT(guessed, 20) << "of " << Procedures().size();
}

struct GuessCase {
    std::int32_t languageID;
    std::string_view text;
};
// clang-format off
constexpr GuessCase kGuesses[] = {
    {1, "Private Sub cmdOk_Click()\n    Unload Me\nEnd Sub"},
    {1, "Public Function Sum(a As Integer, b As Integer) As Integer\n    Sum = a + b\nEnd Function"},
    {1, "Dim i As Long\nFor i = 1 To 10\n    Debug.Print i\nNext"},
    {1, "Sub Save()\n    On Error GoTo Failed\n    Exit Sub\nFailed:\n    MsgBox Err.Description\nEnd Sub"},
    {8, "Sub Main(a, b)\n    WScript.Echo a\nEnd Sub"},
    {8, "Dim fso\nSet fso = CreateObject(\"Scripting.FileSystemObject\")\nfso.DeleteFile \"x\""},
    {8, "Function Twice(x)\n    Twice = 2 * x ' as in As Integer\nEnd Function"},
    {5, "#include <stdio.h>\n\nint main(void)\n{\n    printf(\"%d\\n\", 1);\n    return 0;\n}"},
    {5, "char *copy(const char *s) {\n    char *t = malloc(strlen(s) + 1);\n    return t ? strcpy(t, s) : NULL;\n}"},
    {4, "#include <iostream>\nint main() { std::cout << \"using System;\"; }"},
    {4, "template <typename T>\nT Max(T a, T b) {\n    return a < b ? b : a;\n}"},
    {4, "void Grid::Draw() const {\n    for (const auto& row : rows_) row->Draw();\n}"},
    {2, "public static void main(String[] args) {\n    System.out.println(\"x\");\n}"},
    {2, "@Override\npublic boolean equals(Object other) {\n    return other instanceof Grid;\n}"},
    {2, "import java.util.*;\n\nclass A {}"},
    {3, "using System;\n\nclass A { static void Main(string[] args) { } }"},
    {3, "public string Name { get; set; }"},
    {3, "foreach (var item in items)\n{\n    Console.WriteLine(item);\n}"},
    {7, "function add(a, b) {\n    return a + b;\n}"},
    {7, "const add = (a, b) => {\n    if (a === b) console.log('System.out');\n};"},
    {7, "document.getElementById('x').onclick = function () { };"},
    {9, "<!DOCTYPE html>\n<html></html>"},
    {9, "<div class=\"x\">\n  <p>text</p>\n</div>"},
    {6, "<html><%= Request(\"x\") %></html>"},
    {6, "<%\nResponse.Write 1\n%>"},
    // What may be one or the other is neither.
    {0, "int sum(int a, int b) {\n    return a + b;\n}"},
    {0, "x = x + 1;"},
    {0, "Sub Draw()\nEnd Sub"},
    {0, "// using System; import java.util; std::vector"},
    {0, "\"function (\" + 'console.log'"},
    {0, "This is a sentence for the next loop."},
    {0, "a < b && c > d"},
    {0, "<?xml version=\"1.0\"?>\n<catalogue><entry/></catalogue>"},
    {0, ""},
    {0, " \r\n\t"},
};
// clang-format on

TEST(LanguageGuess, IsMadeWhereTheTextTells) {
    for (const auto& [languageID, text] : kGuesses)
        EXPECT_EQ(GuessedLanguage(text), languageID) << text;
}

}  // namespace
}  // namespace snippetarium::test
