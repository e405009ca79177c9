#include "store/backup.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/usage_error.h"

namespace snippetarium {

namespace {

constexpr std::string_view kList = "list";

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"list", Occurs::AtMostOnce, "the word itself: show the backups that there are"},
};
constexpr CommandExample kExamples[] = {
    {"backup",      "Makes a backup beside the catalogue."},
    {"backup list", "The backups, the newest first."},
};
// clang-format on

void List(CommandContext& context) {
    Json backups = Json::array();
    for (const Backup& backup : ListBackups(context.Folder())) {
        if (context.WantsJson()) {
            backups.push_back(
                {{"time", backup.name.time}, {"size", backup.size}, {"path", backup.path}});
        } else {
            context.Output() << backup.name.time << "  " << backup.path << "  (" << backup.size
                             << " bytes)\n";
        }
    }
    if (context.WantsJson()) context.SetDocument({{"backups", std::move(backups)}});
}

void Run(CommandContext& context) {
    if (const auto word = context.Given().Value(kList)) {
        if (*word == kList) return List(context);
        throw UsageError("'backup' takes the word 'list' or nothing, not '" + *word + "'.");
    }
    const std::string path = WriteBackup(context.Catalogue(CatalogueUse::Read), BackupReason::User);
    if (context.WantsJson()) {
        context.SetDocument({{"path", path}});
    } else {
        context.Output() << "A backup was made: " << path << '\n';
    }
}

}  // namespace

constexpr CliCommand kBackupCommand = {
    .name = "backup",
    .summary = "make a backup of the catalogue, or list the backups",
    .description =
        "Copies the catalogue, whole and as it is at one moment, into the folder \"backups\" "
        "beside it. The ten newest backups are kept. One that is to be kept for ever can be moved "
        "elsewhere: it is a catalogue like any other.",
    .arguments = kArguments,
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
