#include "import/import_start.h"

#include <string>

#include "store/database.h"
#include "store/owner.h"
#include "store/reads_applications.h"
#include "store/writes_applications.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNoNameQuestion =
    "Please specify an application name.\r\n\r\n"
    "If you do not supply an application name, all the classes/code imported will be listed under "
    "the category: Application Undefined.\r\n\r\n"
    "Would you like to supply an application name?";

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

/// What is missing among what the import cannot do without.
struct Refusal {
    ImportControl focus;
    std::string_view message;
};

std::optional<Refusal> FindRefusal(const ImportTexts& texts, std::size_t fileCount) {
    using enum ImportControl;
    if (fileCount == 0) {
        return Refusal{SelectedFiles, "Please select file(s) that you wish to import."};
    }
    if (IsBlank(texts.applicationPath)) {
        return Refusal{ApplicationPath, "Please specify an application path."};
    }
    if (IsBlank(texts.language)) {
        return Refusal{Language, "Please specify the programming language for your application."};
    }
    return std::nullopt;
}

ImportStart StartInExisting(ImportState& state, std::int32_t appID, StandardAnswer overwrite) {
    if (overwrite == StandardAnswer::Cancel) return {};
    state.overwriteChoice =
        overwrite == StandardAnswer::Yes ? OverwriteChoice::Yes : OverwriteChoice::No;
    return {.mayStart = true, .appID = appID};
}

/// Here nobody is asked what to overwrite, but an answer that was given counts.
ImportStart StartWithoutName(Database& db, ImportState& state, const ImportAnswers& answers) {
    const StandardAnswer answer =
        answers.supplyName ? *answers.supplyName
                           : AskYesNo(db.GetHost().messages, kNoNameQuestion, kQuestionTitle);
    if (answer == StandardAnswer::Yes) return {.focus = ImportControl::Application};
    if (answers.overwrite)
        return StartInExisting(state, kUndefinedApplicationID, *answers.overwrite);
    return {.mayStart = true, .appID = kUndefinedApplicationID};
}

StandardAnswer AskToOverwrite(Database& db, const std::string& application) {
    return AskYesNoCancel(
        db.GetHost().messages,
        "The application '" + application +
            "' exists in the database. If the classes you would like to import now are also found "
            "in the database, would you like to overwrite the old contents?\r\n\r\n"
            "Click Yes to overwrite the old contents, click No to import new class contents only, "
            "click cancel to stop importing.",
        kQuestionTitle);
}

ImportStart StartWithName(Database& db, ImportState& state, const ImportTexts& texts,
                          const ImportAnswers& answers) {
    const std::int32_t appID = AppIDUsingAppName(db, texts.application);
    if (appID < 1) {
        const std::string path = ToCataloguePath(texts.applicationPath);
        return {.mayStart = true,
                .appID = AddApplication(db, {.name = texts.application, .path = path})};
    }
    return StartInExisting(
        state, appID,
        answers.overwrite ? *answers.overwrite : AskToOverwrite(db, texts.application));
}

}  // namespace

ImportStart StartImport(Database& db, ImportState& state, const ImportTexts& texts,
                        std::size_t fileCount, const ImportAnswers& answers) {
    return Guarded(db.Reporter(), Procedure::StartImport, [&]() -> ImportStart {
        state.overwriteChoice = OverwriteChoice::None;
        if (const auto refusal = FindRefusal(texts, fileCount)) {
            ShowInformation(db.GetHost().messages, refusal->message, kInformationTitle);
            return {.focus = refusal->focus};
        }
        if (IsBlank(texts.application)) return StartWithoutName(db, state, answers);
        return StartWithName(db, state, texts, answers);
    });
}

}  // namespace snippetarium
