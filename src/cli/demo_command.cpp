#include <stdlib.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command_context.h"
#include "cli/demo_sample.h"
#include "cli/query_output.h"
#include "cli/run_command_line.h"
#include "store/program_folder.h"
#include "support/error.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandExample kExamples[] = {
    {"demo", "Makes the sample and shows a first round of commands on it."},
};
// clang-format on

constexpr std::string_view kSearch =
    "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM "
    "(tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON "
    "cls.classID = cd.classID WHERE cd.Code LIKE '%mod 400%' OR cls.classDI LIKE '%mod 400%';";

std::string MakeTemporaryFolder() {
    std::string name =
        (std::filesystem::temp_directory_path() / "snippetarium-demo-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw Error(error_number::kPermissionDenied,
                    "No folder for the sample can be made like '" + name + "'.");
    }
    return name;
}

/// Runs the demonstration's steps on a catalogue of its own and tells what it does. Each command is
/// run as if it had been typed.
class Demonstration {
  public:
    explicit Demonstration(CommandContext& context)
        : context_(context), output_(context.WantsJson() ? hidden_ : context.Output()) {}

    void Run() {
        output_ << "A sample catalogue, in a folder of its own:\n\n"
                << "$ export SNIPPETARIUM_FOLDER='" << folder_ << "'\n";
        RunCommand({"new"});
        Fill();
        RunCommand({"tree"});
        RunCommand({"query", "qryAuthorsRSByOwner", "2", "1"});
        RunCommand({"query", "qryClassWithCodeCountByAppID", "2"});
        Search();
        RunCommand({"compact"});
        RunCommand({"check"});
        SayWhatIsNext();
    }

    Json Document() const {
        Json document;
        document["folder"] = folder_;
        document["commands"] = commands_;
        document["found"] = found_;
        return document;
    }

  private:
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

    void Fill() {
        Database db(context_.GetHost(), CatalogueProviders(), folder_);
        db.Open();
        const std::size_t count = AddDemoSample(db);
        CloseCatalogue(db);
        output_ << "(" << count << " statements fill it: an application with its classes, "
                << "procedures, keywords, authors and dates.)\n\n";
    }

    void Search() {
        Database db(context_.GetHost(), CatalogueProviders(), folder_);
        db.SetMode(AccessMode::Read);
        db.Open();
        output_ << "A search of the code for 'mod 400' runs this statement:\n" << kSearch << "\n\n";
        Recordset topics = db.GetConnection().ExecuteSearch(kSearch);
        found_ = topics.RowCount();
        PrintRows(output_, std::move(topics));
        CloseCatalogue(db);
        output_ << "\n";
    }

    void SayWhatIsNext() {
        const std::string program =
            FindProgramFolderSources({}).executableFolder + "/" + std::string(kProgramName);
        output_ << "The catalogue stays in " << folder_ << " until you delete it. To go on:\n\n"
                << "  export SNIPPETARIUM_FOLDER='" << folder_ << "'\n"
                << "  " << program << " tree --depth 1\n"
                << "  " << program << " --json query qryCodeByID 1\n"
                << "  " << program << " --help\n";
    }

    CommandContext& context_;
    std::ostringstream hidden_;
    std::ostream& output_;
    std::string folder_ = MakeTemporaryFolder();
    std::vector<std::string> commands_;
    std::size_t found_ = 0;
};

void Run(CommandContext& context) {
    Demonstration demonstration(context);
    demonstration.Run();
    if (context.WantsJson()) context.SetDocument(demonstration.Document());
}

}  // namespace

constexpr CliCommand kDemoCommand = {
    .name = "demo",
    .summary = "make a small sample catalogue and show what can be done with it",
    .description =
        "Makes a catalogue in a new temporary folder, fills it with a small application, and runs "
        "a first round of commands on it. The catalogue stays, so that you can go on with it; "
        "your own is not touched.",
    .arguments = {},
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
