#include "store/restore.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <system_error>

#include "cli/command_context.h"
#include "store/backup.h"
#include "support/error.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"BACKUP", Occurs::Once, "a backup's time, as 'backup list' shows it, or the path of a catalogue file"},
};
constexpr CommandExample kExamples[] = {
    {"restore '2026-11-21 06-16-02'", "Asks, and then goes back to that backup."},
    {"--yes restore ~/QRT_SN.mde",    "Takes another file as the catalogue, without asking."},
};
// clang-format on

std::string FindBackup(const std::string& folder, const std::string& given) {
    for (const Backup& backup : ListBackups(folder)) {
        if (backup.name.time == given) return backup.path;
    }
    std::error_code error;
    if (std::filesystem::exists(given, error)) return given;
    throw Error(error_number::kFileNotFound,
                "There is no backup of the time '" + given + "' and no file of that name. '" +
                    std::string(kProgramName) + " backup list' shows the backups.");
}

void Run(CommandContext& context) {
    const std::string folder = context.Folder();
    const std::string backup = FindBackup(folder, *context.Given().Value("BACKUP"));
    context.RequireConsent("Put the file '" + backup + "' in the place of the catalogue in '" +
                           folder + "'? The catalogue that is there now is kept.");
    const std::string kept = RestoreCatalogue(context.GetHost(), folder, backup);
    if (context.WantsJson()) {
        context.SetDocument({{"restored", backup}, {"kept", kept.empty() ? Json() : Json(kept)}});
        return;
    }
    context.Output() << "Restored: " << backup << '\n';
    if (!kept.empty()) context.Output() << "The catalogue of before was kept: " << kept << '\n';
}

}  // namespace

constexpr CliCommand kRestoreCommand = {
    .name = "restore",
    .summary = "go back to a backup of the catalogue",
    .description =
        "Puts a backup, or any other catalogue file, in the catalogue's place, after it has been "
        "copied and found sound. The catalogue that was there is kept as a backup, or, if it is "
        "damaged, beside the new one under another name. No other program may have it open.",
    .arguments = kArguments,
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
