#include <gtest/gtest.h>

#include <filesystem>

#include "engine/create_database.h"
#include "store/catalogue_content.h"
#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

using CareCommandsTest = CommandTest;

TEST_F(CareCommandsTest, NewMakesACatalogueAndNeverTouchesOneThatIsThere) {
    EXPECT_EQ(Run({"new"}).output, "An empty catalogue was made: " + Catalogue() + "\n");
    Execute("INSERT INTO tblApplication(appName) VALUES('Kept');");
    const std::string before = ReadBytes(Catalogue());

    const CommandResult again = Run({"new"});
    EXPECT_EQ(again.status, kFailed);
    EXPECT_EQ(again.output, "");
    EXPECT_NE(again.error.find("There is a catalogue in '" + folder_.Path() + "' already"),
              std::string::npos);
    EXPECT_TRUE(ReadBytes(Catalogue()) == before);

    // Also one that is a link to a disk that is not there just now.
    std::filesystem::remove(Catalogue());
    std::filesystem::create_symlink(folder_.File("elsewhere.mde"), Catalogue());
    EXPECT_EQ(Run({"new"}).status, kFailed);
    EXPECT_FALSE(std::filesystem::exists(folder_.File("elsewhere.mde")));
}

TEST_F(CareCommandsTest, CompactShrinksTheFile) {
    MakeSample();
    Change([](Database& db) {
        const std::string code(60000, 'x');
        for (int i = 0; i < 20; ++i)
            ExecuteSQL(db, "INSERT INTO tblCode(codeName, code, classID) VALUES ('Big', '" + code +
                               "', 2)");
        ExecuteSQL(db, "DELETE FROM tblCode WHERE codeName = 'Big'");
    });
    const std::string tree = Run({"tree"}).output;
    const auto before = std::filesystem::file_size(Catalogue());
    auto document = DocumentOf(Run({"--json", "compact"}));
    EXPECT_EQ(document["file"], Catalogue());
    EXPECT_EQ(document["sizeBefore"], before);
    EXPECT_EQ(document["sizeAfter"], std::filesystem::file_size(Catalogue()));
    EXPECT_LT(document["sizeAfter"], before / 2);
    EXPECT_EQ(Run({"tree"}).output, tree);
    EXPECT_EQ(Run({"compact"}).output.find(Catalogue() + ": "), 0U);
}

TEST_F(CareCommandsTest, CompactTellsTheFailureThatItShowed) {
    MakeSample();
    std::filesystem::create_directories(folder_.File(kCompactionFileName) + "/in the way");
    const CommandResult result = Run({"--json", "compact"});
    EXPECT_EQ(result.status, kFailed);
    EXPECT_NE(result.error.find("QRT Error Code: 11153"), std::string::npos) << result.error;
    EXPECT_NE(result.error.find("\nsnippetarium-cli: The catalogue was not compacted.\n"),
              std::string::npos);
    auto error = DocumentOf(result)["error"];
    EXPECT_NE(result.error.find("Error Number: " + error["code"].dump() + "\n"), std::string::npos);
    EXPECT_NE(error["text"], "The catalogue was not compacted.");
}

TEST_F(CareCommandsTest, CheckFailsForAFaultAndMendsIt) {
    MakeSample();
    EXPECT_EQ(Run({"check"}).output, Catalogue() + ": sound\n");
    Execute("INSERT INTO tblKeyword_link_searchWord VALUES(77, 1);");

    const CommandResult faulty = Run({"check"});
    EXPECT_EQ(faulty.status, kFailed);
    EXPECT_TRUE(faulty.output.starts_with("fault: ")) << faulty.output;
    EXPECT_NE(faulty.error.find("has faults"), std::string::npos);
    const CommandResult json = Run({"--json", "check"});
    EXPECT_EQ(json.status, kFailed);
    auto document = DocumentOf(json);
    EXPECT_EQ(document["sound"], false);
    ASSERT_EQ(document["findings"].size(), 1U);
    EXPECT_EQ(document["findings"][0]["count"], 1);
    EXPECT_EQ(document["findings"][0]["canBeMended"], true);

    EXPECT_EQ(Run({"check", "--mend"}).output, Catalogue() + ": sound\n");
    EXPECT_EQ(Run({"check"}).status, kDone);
    EXPECT_EQ(DocumentOf(Run({"--json", "backup", "list"}))["backups"].size(), 1U);
    EXPECT_EQ(Run({"check", "--mend"}).status, kDone);
    EXPECT_EQ(DocumentOf(Run({"--json", "backup", "list"}))["backups"].size(), 1U);
}

TEST_F(CareCommandsTest, TextIndexIsShownDroppedAndMadeAnew) {
    MakeSample();
    const auto waitingCodes = [](CommandResult result) {
        return DocumentOf(result)["tables"][2]["waiting"].get<int>();
    };
    EXPECT_GT(waitingCodes(Run({"--json", "text-index"})), 0);
    const CommandResult rebuilt = Run({"--json", "text-index", "--rebuild"});
    EXPECT_EQ(waitingCodes(rebuilt), 0);
    EXPECT_EQ(DocumentOf(rebuilt)["tables"][2]["segments"], 1);
    EXPECT_NE(Run({"text-index"}).output.find("tblCode"), std::string::npos);
    const std::string found = Run({"search", "code", "DateSerial"}).output;
    EXPECT_EQ(Run({"text-index", "--drop"}).output, "There is no index of texts.\n");
    EXPECT_EQ(Run({"search", "code", "DateSerial"}).output, found);
    EXPECT_EQ(Run({"check"}).status, kDone);
    EXPECT_EQ(Run({"text-index", "--drop", "--rebuild"}).status, kWrongUsage);
}

TEST_F(CareCommandsTest, BackupAndRestoreGoBackToWhatWas) {
    MakeSample();
    EXPECT_EQ(DocumentOf(Run({"--json", "backup", "list"})).dump(), R"({"backups":[]})");
    const std::string tree = Run({"tree"}).output;
    const CommandResult made = Run({"backup"});
    EXPECT_EQ(made.status, kDone) << made.error;
    auto backup = DocumentOf(Run({"--json", "backup", "list"}))["backups"][0];
    EXPECT_EQ(made.output, "A backup was made: " + backup["path"].get<std::string>() + "\n");
    EXPECT_EQ(Run({"backup", "list"}).output.find(backup["time"].get<std::string>() + "  "), 0U);

    for (const std::string which : {"time", "path"}) {
        Execute("UPDATE tblApplication SET appName = 'Changed' WHERE appID = 2");
        auto document = DocumentOf(Run({"--json", "--yes", "restore", backup[which]}));
        EXPECT_EQ(document["restored"], backup["path"]);
        EXPECT_EQ(Run({"tree"}).output, tree);
        // What was there before can be had back as well.
        EXPECT_EQ(Run({"--yes", "restore", document["kept"]}).status, kDone);
        EXPECT_NE(Run({"tree"}).output.find("Changed"), std::string::npos);
    }
}

TEST_F(CareCommandsTest, RestoreAndSalvageAskFirst) {
    MakeSample();
    ASSERT_EQ(Run({"backup"}).status, kDone);
    const std::string backup = DocumentOf(Run({"--json", "backup", "list"}))["backups"][0]["path"];
    const std::string before = ReadBytes(Catalogue());
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"restore", backup}, {"salvage"}}) {
        SCOPED_TRACE(words.front());
        const CommandResult unasked = Run(words);
        EXPECT_EQ(unasked.status, kFailed);
        EXPECT_NE(unasked.error.find("--yes or --no"), std::string::npos) << unasked.error;
        std::vector<std::string> refused = words;
        refused.emplace_back("--no");
        EXPECT_EQ(Run(refused).status, kFailed);
        EXPECT_TRUE(ReadBytes(Catalogue()) == before);
        EXPECT_EQ(unasked.output, "");
    }
}

TEST_F(CareCommandsTest, RestoreRefusesWhatIsNoBackup) {
    MakeSample();
    WriteBytes(folder_.File("text"), "no catalogue at all");
    const std::string before = ReadBytes(Catalogue());
    const struct {
        std::string backup;
        std::string_view message;
    } cases[] = {
        {"2001-01-01 00-00-00", "backup list"},
        {folder_.File("text"), "is not a catalogue"},
        {Catalogue(), "is the catalogue itself"},
        {folder_.Path(), "is not a file"},
    };
    for (const auto& [backup, message] : cases) {
        const CommandResult result = Run({"--yes", "restore", backup});
        EXPECT_EQ(result.status, kFailed);
        EXPECT_EQ(result.output, "");
        EXPECT_NE(result.error.find(message), std::string::npos) << result.error;
        EXPECT_TRUE(ReadBytes(Catalogue()) == before);
    }
}

TEST_F(CareCommandsTest, SalvageRecoversADamagedCatalogue) {
    MakeSample();
    const std::string tree = Run({"tree"}).output;
    EXPECT_EQ(DocumentOf(Run({"--json", "--yes", "salvage"}))["complete"], true);
    EXPECT_EQ(Run({"tree"}).output, tree);

    std::string bytes = ReadBytes(Catalogue());
    bytes.replace(bytes.size() / 2, 8192, 8192, '\xff');
    WriteBytes(Catalogue(), bytes);
    EXPECT_EQ(Run({"check"}).status, kFailed);
    const CommandResult result = Run({"--yes", "salvage"});
    EXPECT_EQ(result.status, kDone) << result.error;
    EXPECT_NE(result.output.find("rows recovered"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("The file of before was kept: "), std::string::npos);
    EXPECT_EQ(Run({"tree"}).output, tree);
}

}  // namespace
}  // namespace snippetarium::test
