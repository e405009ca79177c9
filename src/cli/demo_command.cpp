#include <stdlib.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command_context.h"
#include "cli/run_command_line.h"
#include "cli/sample_sources.h"
#include "store/program_folder.h"
#include "support/disk_file_system.h"
#include "support/error.h"
#include "support/node_key.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandExample kExamples[] = {
    {"demo", "Imports the samples, looks at them, and exports them again."},
};
// clang-format on

/// A procedure of the samples that is worth reading.
constexpr std::string_view kShownProcedure =
    "SELECT codeID FROM tblCode WHERE codeName LIKE "
    "'IsLeapYear%'";

std::string MakeTemporaryFolder() {
    std::string name =
        (std::filesystem::temp_directory_path() / "snippetarium-demo-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw Error(error_number::kPermissionDenied,
                    "No folder for the samples can be made like '" + name + "'.");
    }
    return name;
}

/// The folder of a sample's path that names its project.
std::string ProjectOf(const EmbeddedFile& file) {
    return std::string(file.path.substr(0, file.path.find('/')));
}

/// Runs the demonstration's steps on a catalogue of its own and tells what it does. Each command is
/// run as if it had been typed.
class Demonstration {
  public:
    explicit Demonstration(CommandContext& context)
        : context_(context), output_(context.WantsJson() ? hidden_ : context.Output()) {
        for (const EmbeddedFile& file : SampleSources())
            projects_.insert(ProjectOf(file));
    }

    void Run() {
        WriteSources();
        output_ << "$ export SNIPPETARIUM_FOLDER='" << folder_ << "'\n";
        RunCommand({"new"});
        for (const std::string& project : projects_)
            RunCommand({"import", Sources(project), "--subfolders", "--every-kind"});
        RunCommand({"tree"});
        RunCommand({"show", ShownKey()});
        ExportAll();
        Compare();
        RunCommand({"check"});
        SayWhatIsNext();
    }

    Json Document() const {
        Json document;
        document["folder"] = folder_;
        document["commands"] = commands_;
        document["files"] = SampleSources().size();
        return document;
    }

  private:
    std::string Sources(std::string_view path) const {
        return folder_ + "/sources/" + std::string(path);
    }
    std::string Exported(std::string_view path) const {
        return folder_ + "/export/" + std::string(path);
    }

    void WriteSources() {
        DiskFileSystem files;
        for (const EmbeddedFile& file : SampleSources()) {
            files.MakeFolders(ParentFolder(Sources(file.path)));
            files.WriteFile(Sources(file.path), file.text);
        }
        output_ << projects_.size()
                << " small projects, in the languages that can be imported, lie in " << Sources("")
                << "\n\n";
    }

    void RunCommand(const std::vector<std::string>& words) {
        std::string line(kProgramName);
        for (const std::string& word : words)
            line += " " + word;
        commands_.push_back(line);
        output_ << "$ " << line << "\n" << std::flush;
        std::vector<std::string> arguments = {std::string(global_option::kFolder), folder_};
        arguments.insert(arguments.end(), words.begin(), words.end());
        const Streams& streams = context_.GetStreams();
        if (RunCommandLine(arguments, {streams.input, output_, streams.error, streams.terminals}) !=
            kDone) {
            throw Error(error_number::kInternal, "The demonstration ended at '" + line + "'.");
        }
        output_ << "\n";
    }

    /// Runs the body on the catalogue, opened for reading.
    template <typename Body>
    void Read(Body body) const {
        Database db(context_.GetHost(), CatalogueProviders(), folder_);
        db.SetMode(AccessMode::Read);
        db.Open();
        body(db);
        CloseCatalogue(db);
    }

    std::string ShownKey() const {
        std::string key;
        Read([&](Database& db) {
            const std::int32_t codeID = ScalarLong(db, kShownProcedure);
            const std::string code = std::to_string(codeID);
            const std::int32_t classID =
                ScalarLong(db, "SELECT classID FROM tblCode WHERE codeID = " + code);
            const std::int32_t appID = ScalarLong(
                db, "SELECT appID FROM tblClass WHERE classID = " + std::to_string(classID));
            key = ProcedureNodeKey({appID, classID, codeID});
        });
        return key;
    }

    /// Each project is an application that bears its folder's name.
    void ExportAll() {
        for (const std::string& project : projects_) {
            std::int32_t appID = 0;
            Read([&](Database& db) {
                appID = ScalarLong(
                    db, "SELECT appID FROM tblApplication WHERE appName = '" + project + "'");
            });
            RunCommand({"export", ApplicationNodeKey(appID), Exported(project)});
        }
    }

    void Compare() const {
        const DiskFileSystem files;
        for (const EmbeddedFile& file : SampleSources()) {
            if (files.ReadFile(Exported(file.path)) == file.text) continue;
            throw Error(error_number::kInternal,
                        "The export of '" + std::string(file.path) + "' is not what was imported.");
        }
        output_ << "The export equals the samples: " << SampleSources().size()
                << " files, byte for byte.\n\n";
    }

    void SayWhatIsNext() {
        const std::string program =
            FindProgramFolderSources({}).executableFolder + "/" + std::string(kProgramName);
        output_ << "The catalogue stays in " << folder_ << " until you delete it. To go on:\n\n"
                << "  export SNIPPETARIUM_FOLDER='" << folder_ << "'\n"
                << "  " << program << " import YOUR-SOURCES --subfolders\n"
                << "  " << program << " tree --depth 1\n"
                << "  " << program << " --help\n";
    }

    CommandContext& context_;
    std::ostringstream hidden_;
    std::ostream& output_;
    std::string folder_ = MakeTemporaryFolder();
    std::set<std::string> projects_;
    std::vector<std::string> commands_;
};

void Run(CommandContext& context) {
    Demonstration demonstration(context);
    demonstration.Run();
    if (context.WantsJson()) context.SetDocument(demonstration.Document());
}

}  // namespace

constexpr CliCommand kDemoCommand = {
    .name = "demo",
    .summary = "import sample sources into a new catalogue and export them again",
    .description =
        "Makes a catalogue in a new temporary folder, imports small projects in every language "
        "into it, shows what became of them, exports them, and compares the export with the "
        "samples. The catalogue stays, so that you can go on with it; your own is not touched.",
    .arguments = {},
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
