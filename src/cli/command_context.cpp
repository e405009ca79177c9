#include "cli/command_context.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <system_error>

#include "engine/engine_error.h"
#include "store/program_folder.h"
#include "support/message_boxes.h"

namespace snippetarium {

namespace {

void RequireFolder(const std::string& folder) {
    std::error_code error;
    if (std::filesystem::is_directory(folder, error)) return;
    throw Error(error_number::kPathNotFound, "The folder '" + folder + "' does not exist.");
}

void RequireCatalogue(const std::string& folder, const std::string& file) {
    std::error_code error;
    if (std::filesystem::exists(file, error)) return;
    throw EngineError(EngineErrorCode::FileNotFound,
                      "There is no catalogue in the folder '" + folder +
                          "'. To make an empty one there, run: " + std::string(kProgramName) +
                          " --folder '" + folder + "' new");
}

/// A command that only reads must not keep the desktop program from writing, so it leaves the right
/// to write alone. Only a catalogue of an older version cannot be read like that: it has to be
/// brought up to date first.
void OpenForReading(Database& db) {
    db.SetMode(AccessMode::Read);
    try {
        return db.Open();
    } catch (const EngineError& error) {
        if (error.Code() != EngineErrorCode::ReadOnly) throw;
    }
    db.SetMode(AccessMode::ReadWrite);
    db.Open();
}

void OpenForChanging(Database& db) {
    db.SetMode(AccessMode::ReadWrite);
    db.Open();
    if (!db.IsReadOnly()) return;
    throw EngineError(EngineErrorCode::CannotLock,
                      "Nothing was changed, because the catalogue is in use by another program. "
                      "Close that program and run the command again.");
}

}  // namespace

void CommandContext::SetDocument(const Json& document) {
    // Sources come from anywhere; a byte that is no UTF-8 must not keep the rest from being
    // printed.
    document_ = document.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

void CommandContext::RequireConsent(std::string_view question) const {
    if (AskYesNo(host_.messages, question, kQuestionTitle) == StandardAnswer::Yes) return;
    throw Error(error_number::kInvalidCall, "Nothing was changed.");
}

void CommandContext::FailAfterwards(std::string_view message) {
    isFailure_ = true;
    PrintMessage(streams_, message);
}

std::string CommandContext::Folder() const {
    const std::string folder = OpenProgramFolder(line_.folder).path;
    RequireFolder(folder);
    return folder;
}

Database& CommandContext::ClosedCatalogue() {
    if (!database_) {
        const std::string folder = Folder();
        database_.emplace(host_, CatalogueProviders(), folder);
        RequireCatalogue(folder, database_->FilePath());
    }
    return *database_;
}

Database& CommandContext::Catalogue(CatalogueUse use) {
    Database& db = ClosedCatalogue();
    if (db.GetConnection().IsOpen()) return db;
    if (use == CatalogueUse::Read) {
        OpenForReading(db);
    } else {
        OpenForChanging(db);
    }
    return db;
}

void CommandContext::CloseCatalogue() {
    if (!database_) return;
    snippetarium::CloseCatalogue(*database_);
    database_.reset();
}

}  // namespace snippetarium
