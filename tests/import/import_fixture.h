#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "import/analysers.h"
#include "import/import_job.h"
#include "import/import_state.h"
#include "keywords/noise_words.h"
#include "tests/fake_file_system.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {

/// A test that imports files of a disk in memory into a new catalogue. Files of Visual Basic are
/// cut by the program's own analyser.
class ImportFixture : public WriteFixture {
  protected:
    static constexpr std::string_view kFolder = "/home/ann/Paint";

    void AddFile(std::string_view entry, std::string_view bytes) {
        files_.AddFile(JoinPath(kFolder, entry), bytes);
    }
    /// Imports the entries into the undefined application.
    ImportOutcome Import(std::vector<std::string> entries) {
        request_.entries = std::move(entries);
        ImportJob job(db_, files_, state_, noise_, analysers_);
        return job.Run(request_);
    }
    /// A kind whose files are cut by the test.
    void SetAnalyser(CodeFileKind kind, Analyser analyser) {
        analysers_[kind] = std::move(analyser);
    }
    std::string ClassText(std::int32_t classID) {
        const Rows rows =
            Select("SELECT classDI FROM tblClass WHERE classID = " + std::to_string(classID));
        return rows.empty() ? "no class" : rows.front();
    }

    FakeFileSystem files_;
    ImportState state_;
    NoiseWords noise_;
    Analysers analysers_ = ProgramAnalysers();
    ImportRequest request_{.folder = std::string(kFolder),
                           .target = {.appID = 1, .language = "Visual Basic"}};
};

}  // namespace snippetarium::test
