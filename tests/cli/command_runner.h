#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/run_command_line.h"
#include "store/database.h"
#include "tests/cli/sample_catalogue.h"
#include "tests/fakes.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {

/// What a run of the program left behind.
struct CommandResult {
    int status = -1;
    std::string output;
    std::string error;
};

/// Runs the program in this process, without a terminal, with this on its standard input.
inline CommandResult RunProgram(const std::vector<std::string>& arguments,
                                const std::string& typed = {}) {
    std::istringstream input(typed);
    std::ostringstream output;
    std::ostringstream error;
    const int status = RunCommandLine(arguments, {input, output, error, {}});
    return {status, output.str(), error.str()};
}

/// The one document that a run printed.
inline nlohmann::ordered_json DocumentOf(const CommandResult& result) {
    const auto document = nlohmann::ordered_json::parse(result.output, nullptr, false);
    EXPECT_FALSE(document.is_discarded()) << "not one JSON document: " << result.output;
    return document;
}

/// A folder, with a catalogue in it where the test makes one.
class CommandTest : public ::testing::Test {
  protected:
    CommandResult Run(std::vector<std::string> words, const std::string& typed = {}) const {
        words.insert(words.begin(), {"--folder", folder_.Path()});
        return RunProgram(words, typed);
    }
    /// Runs the demonstration, which makes its folder in this one, with these options.
    CommandResult RunDemonstration(std::vector<std::string> options = {}) const {
        const char* const before = std::getenv("TMPDIR");
        const std::string saved = before == nullptr ? "" : before;
        setenv("TMPDIR", folder_.Path().c_str(), 1);
        options.emplace_back("demo");
        CommandResult result = RunProgram(options);
        saved.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", saved.c_str(), 1);
        return result;
    }
    void MakeCatalogue() const { ASSERT_EQ(Run({"new"}).status, kDone); }
    /// A catalogue with the application 2 and its classes 2 and 3 (sample_catalogue.h).
    void MakeSample() const {
        MakeCatalogue();
        Change([](Database& db) { AddSampleCatalogue(db); });
    }
    /// Changes the catalogue as another program would, between two runs of this one.
    void Change(const std::function<void(Database&)>& change) const {
        FakeHost host;
        Database db(host.host, CatalogueProviders(), folder_.Path());
        db.Open();
        change(db);
        db.Close();
        EXPECT_TRUE(host.messages.shown.empty());
    }
    void Execute(std::string_view sql) const {
        Change([sql](Database& db) { ExecuteSQL(db, sql); });
    }
    std::string Catalogue() const { return folder_.File(kCatalogueFileName); }

    TemporaryFolder folder_;
};

}  // namespace snippetarium::test
