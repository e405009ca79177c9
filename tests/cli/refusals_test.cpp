#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "engine/create_database.h"
#include "store/catalogue_content.h"
#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

using Words = std::vector<std::string>;

/// The files of a folder, with what is in them.
std::map<std::string, std::string> ContentsOf(const std::string& folder) {
    std::map<std::string, std::string> contents;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        contents[entry.path().string()] =
            entry.is_regular_file() ? ReadBytes(entry.path().string()) : "";
    }
    return contents;
}

/// Something that cannot be opened as a catalogue, and how the program says so.
struct BadCatalogue {
    std::string name;
    std::function<void(const std::string& file)> make;
    int code;
    std::string message;
};

void MakeCut(const std::string& file) {
    CreateDatabase(file, CreationScript());
    std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2);
}

const std::vector<BadCatalogue>& BadCatalogues() {
    static const std::vector<BadCatalogue> kCases = {
        {"none", [](const std::string&) {}, 3024, "new"},
        {"empty", [](const std::string& file) { WriteBytes(file, ""); }, 3343, "is empty"},
        {"text", [](const std::string& file) { WriteBytes(file, std::string(9000, 'x')); }, 3343,
         "is not a catalogue"},
        {"foreign",
         [](const std::string& file) {
             CreateDatabase(file, "CREATE TABLE t(x); PRAGMA application_id = 1;");
         },
         3343, "a database of another program"},
        {"newer",
         [](const std::string& file) {
             CreateDatabase(file, CreationScript() + "PRAGMA user_version = 999;");
         },
         3343, "newer"},
        {"cut", MakeCut, 3049, "shorter"},
        {"folder", [](const std::string& file) { std::filesystem::create_directory(file); }, 3051,
         "is not a file"},
    };
    return kCases;
}

TEST(Refusals, OfABadCatalogueSayWhyAndLeaveEverythingAsItWas) {
    const Words commands[] = {
        {"tree"}, {"tree", "a2"}, {"query", "qryAppNameRS"}, {"compact"}, {"backup"}};
    for (const BadCatalogue& bad : BadCatalogues()) {
        const TemporaryFolder folder;
        bad.make(folder.File(kCatalogueFileName));
        const auto before = ContentsOf(folder.Path());
        for (Words words : commands) {
            SCOPED_TRACE(bad.name + ": " + words.front());
            words.insert(words.begin(), {"--folder", folder.Path()});
            const CommandResult result = RunProgram(words);
            EXPECT_EQ(result.status, kFailed);
            EXPECT_EQ(result.output, "");
            EXPECT_TRUE(result.error.starts_with("snippetarium-cli: ")) << result.error;
            EXPECT_NE(result.error.find(bad.message), std::string::npos) << result.error;

            words.insert(words.begin(), "--json");
            const CommandResult json = RunProgram(words);
            EXPECT_EQ(json.status, kFailed);
            auto error = DocumentOf(json)["error"];
            EXPECT_EQ(error["code"], bad.code);
            EXPECT_NE(json.error.find(error["text"].get<std::string>()), std::string::npos);
            EXPECT_TRUE(ContentsOf(folder.Path()) == before);
        }
    }
}

TEST(Refusals, OfACheckTellWhatIsWrong) {
    for (const BadCatalogue& bad : BadCatalogues()) {
        SCOPED_TRACE(bad.name);
        const TemporaryFolder folder;
        bad.make(folder.File(kCatalogueFileName));
        const auto before = ContentsOf(folder.Path());
        const CommandResult result = RunProgram({"--folder", folder.Path(), "check"});
        EXPECT_EQ(result.status, kFailed);
        EXPECT_NE(result.error, "");
        auto document = DocumentOf(RunProgram({"--folder", folder.Path(), "check", "--json"}));
        EXPECT_TRUE(document.contains("error") || document["sound"] == false) << document;
        EXPECT_TRUE(ContentsOf(folder.Path()) == before);
    }
}

TEST(Refusals, OfAFolderNameIt) {
    const TemporaryFolder folder;
    WriteBytes(folder.File("file"), "");
    const Words commands[] = {{"new"},     {"tree"},   {"query", "qryAppNameRS"}, {"check"},
                              {"compact"}, {"backup"}, {"backup", "list"},        {"restore", "x"},
                              {"salvage"}};
    for (const std::string& missing : {folder.File("missing"), folder.File("file")}) {
        for (Words words : commands) {
            SCOPED_TRACE(words.front() + " " + missing);
            words.insert(words.begin(), {"--folder", missing});
            const CommandResult result = RunProgram(words);
            EXPECT_EQ(result.status, kFailed);
            EXPECT_EQ(result.output, "");
            EXPECT_NE(result.error.find("The folder '" + missing + "' does not exist."),
                      std::string::npos)
                << result.error;
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
