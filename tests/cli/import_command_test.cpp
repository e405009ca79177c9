#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "cli/run_command_line.h"
#include "store/reads_applications.h"
#include "store/writes_applications.h"
#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

/// A folder with sources beside the one with the catalogue.
class ImportCommandTest : public CommandTest {
  protected:
    ImportCommandTest() {
        MakeCatalogue();
        std::filesystem::create_directories(Sources() + "/sub/deep");
        WriteSource("Draw.bas", "Attribute VB_Name = \"modDraw\"\r\nSub Draw()\r\nEnd Sub\r\n");
        WriteSource("sub/deep/Grid.bas", "Sub Grid()\nEnd Sub\n");
        WriteSource("notes.txt", "not a source");
    }

    std::string Sources() const { return sources_.File("Paint"); }
    void WriteSource(const std::string& name, std::string_view bytes) const {
        WriteBytes(Sources() + "/" + name, bytes);
    }
    CommandResult Import(std::vector<std::string> options) const {
        options.insert(options.begin(), {"import", Sources()});
        return Run(options);
    }
    /// What the catalogue holds, as the contents tree shows it, without the keys.
    std::string Tree() const { return Run({"tree"}).output; }

    TemporaryFolder sources_;
};

TEST_F(ImportCommandTest, ImportsWhatTheDialogWouldListUnderTheFoldersName) {
    const CommandResult result = Import({});
    EXPECT_EQ(result.status, kDone) << result.error;
    EXPECT_EQ(result.output, "The following files were successfully imported:\n\n  Draw.bas\n");
    EXPECT_NE(result.error.find("Import Code: The code has been successfully imported."),
              std::string::npos);
    EXPECT_NE(Tree().find("a2  Paint  (1 class)\n  a2f2  modDraw  (1 procedure)\n    a2f2c1  "
                          "Draw()\n"),
              std::string::npos)
        << Tree();
    Change([&](Database& db) {
        std::string path = AppPathByID(db, 2);
        std::ranges::replace(path, '\\', '/');
        EXPECT_EQ(path, Sources());
    });
}

TEST_F(ImportCommandTest, ImportsSubfoldersAndNamedEntries) {
    EXPECT_EQ(Import({"--subfolders"}).output,
              "The following files were successfully imported:\n\n  Draw.bas\n  "
              "sub\\deep\\Grid.bas\n");
    EXPECT_EQ(Import({"sub/deep/Grid.bas", "./Draw.bas", "--application", "Other"}).output,
              "The following files were successfully imported:\n\n  sub\\deep\\Grid.bas\n  "
              "Draw.bas\n");
    EXPECT_NE(Tree().find("Other  (2 classes)"), std::string::npos);
}

TEST_F(ImportCommandTest, ListsAFileWithALineBreakInItsNameAsOne) {
    const std::string name = "Gr\r\n\r\nid.bas";
    WriteSource(name, "Sub Grid()\nEnd Sub\n");
    const auto document = DocumentOf(Run({"--json", "import", Sources(), name, "Draw.bas"}));
    EXPECT_EQ(document["imported"], (std::vector<std::string>{name, "Draw.bas"}));
}

TEST_F(ImportCommandTest, TakesAFileOnceHoweverOftenAndInWhateverFormItIsNamed) {
    EXPECT_EQ(Import({"Draw.bas", "./Draw.bas", "sub/../Draw.bas", "Draw.bas"}).output,
              "The following files were successfully imported:\n\n  Draw.bas\n");
    EXPECT_NE(Tree().find("Paint  (1 class)"), std::string::npos) << Tree();
}

TEST_F(ImportCommandTest, KnowsAFolderHoweverItIsWritten) {
    Import({"--application", "Other"});
    for (const std::string_view end : {"/", "/.", "/sub/..", "//"}) {
        const std::string folder = Sources() + std::string(end);
        EXPECT_EQ(Run({"import", folder, "--existing", "new"}).status, kDone);
    }
    EXPECT_NE(Tree().find("a2  Other  (1 class)"), std::string::npos) << Tree();
    EXPECT_EQ(Tree().find("a3"), std::string::npos) << Tree();
}

TEST_F(ImportCommandTest, PutsClassesUnderNoApplicationWhereTheNameIsEmpty) {
    EXPECT_EQ(Import({"--application", ""}).status, kDone);
    EXPECT_NE(Tree().find("a1f2  modDraw"), std::string::npos) << Tree();
    EXPECT_EQ(Import({"--application", "", "--existing", "overwrite"}).status, kDone);
    EXPECT_NE(Tree().find("a1f3  modDraw"), std::string::npos) << Tree();
}

TEST_F(ImportCommandTest, DoesWithAnExistingApplicationWhatTheOptionsSay) {
    Import({});
    const CommandResult cancelled = Import({"--existing", "cancel"});
    EXPECT_EQ(cancelled.status, kFailed);
    EXPECT_NE(cancelled.error.find("Nothing was imported."), std::string::npos);
    // Nobody can be asked here, and no option answers.
    EXPECT_EQ(Import({}).status, kFailed);

    const CommandResult left = Import({"--existing", "new"});
    EXPECT_EQ(left.status, kDone);
    EXPECT_NE(left.output.find("  Draw.bas was not imported, because its class modDraw is in the "
                               "catalogue already.\n"),
              std::string::npos);
    EXPECT_EQ(Import({"--no"}).output, left.output);
    EXPECT_EQ(Import({"--existing", "overwrite"}).status, kDone);
    EXPECT_EQ(Import({"--yes"}).status, kDone);
    EXPECT_NE(Tree().find("a2f4  modDraw"), std::string::npos) << Tree();
}

TEST_F(ImportCommandTest, PrintsOneDocument) {
    const auto document = DocumentOf(Run({"--json", "import", Sources(), "Draw.bas", "notes.txt"}));
    EXPECT_EQ(document["application"], "a2");
    EXPECT_EQ(document["name"], "Paint");
    EXPECT_EQ(document["ending"], "with problems");
    EXPECT_EQ(document["imported"], (std::vector<std::string>{"Draw.bas"}));
    EXPECT_EQ(document["problems"],
              (std::vector<std::string>{"notes.txt was not imported as its extension is not "
                                        "supported."}));
    EXPECT_EQ(document["notImported"], (std::vector<std::string>{"notes.txt"}));
}

TEST_F(ImportCommandTest, FailsWhereAFileIsNotInTheCatalogueAfterwards) {
    EXPECT_EQ(Import({"Draw.bas", "gone.bas"}).status, kFailed);
    EXPECT_NE(Tree().find("modDraw"), std::string::npos);
}

TEST_F(ImportCommandTest, ListsFilesOfEveryKindOnDemand) {
    WriteSource("page.html", "<html></html>");
    EXPECT_EQ(Import({}).output.find("page.html"), std::string::npos);
    EXPECT_NE(Import({"--every-kind", "--existing", "new"}).output.find("page.html"),
              std::string::npos);
}

TEST_F(ImportCommandTest, RefusesWhatMakesNoSense) {
    struct Case {
        std::vector<std::string> options;
        int status;
        std::string_view message;
    };
    const std::vector<Case> cases{
        {{"--existing", "keep"}, kWrongUsage, "--existing takes 'overwrite', 'new' or 'cancel'"},
        {{"--encoding", "Klingon"}, kWrongUsage, "'Klingon' is not known. Write it like windows-"},
        {{"--application", "bad \xff"}, kWrongUsage, "of --application is not valid UTF-8"},
        {{"--application", "two\nlines"}, kFailed, "A name cannot hold a line break"},
        {{"--path", "bad \xff"}, kWrongUsage, "of --path is not valid UTF-8"},
        {{"--language", "two\nlines"}, kFailed, "A name cannot hold a line break"},
        {{"--language", "bad \xff"}, kWrongUsage, "of --language is not valid UTF-8"},
        {{"bad \xff.bas"}, kWrongUsage, "of ENTRY is not valid UTF-8"},
        {{"../Draw.bas"}, kWrongUsage, "'../Draw.bas' is no file below the folder"},
        {{"sub\\..\\..\\Draw.bas"}, kWrongUsage, "is no file below the folder"},
        {{"/etc/Draw.bas"}, kWrongUsage, "is no file below the folder"},
        {{"."}, kWrongUsage, "is no file below the folder"},
        {{"Draw.bas", "--language", " "}, kFailed, "Please specify the programming language"},
        {{"Draw.bas", "--language", " "}, kFailed, "Nothing was imported. Add --language."},
    };
    for (const Case& test : cases) {
        const CommandResult result = Import(test.options);
        EXPECT_EQ(result.status, test.status) << test.message;
        EXPECT_NE(result.error.find(test.message), std::string::npos) << result.error;
    }
    for (const std::string& folder : {sources_.File("nowhere"), Sources() + "/Draw.bas"}) {
        const CommandResult missing = Run({"import", folder, "Draw.bas"});
        EXPECT_EQ(missing.status, kFailed);
        EXPECT_EQ(missing.error, "snippetarium-cli: There is no folder '" + folder + "'.\n");
    }
    EXPECT_EQ(Run({"import", Sources() + "/\xff"}).status, kWrongUsage);
    EXPECT_EQ(Tree().find("nowhere"), std::string::npos);
    const CommandResult empty = Run({"import", Sources() + "/sub"});
    EXPECT_EQ(empty.status, kFailed);
    EXPECT_NE(empty.error.find("holds no file that can be imported"), std::string::npos);
    EXPECT_EQ(Tree().find("modDraw"), std::string::npos);
}

}  // namespace
}  // namespace snippetarium::test
