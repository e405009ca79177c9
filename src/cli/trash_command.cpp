#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/node_output.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"
#include "navigator/node.h"
#include "store/owner_place.h"
#include "store/trash.h"
#include "support/error.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::string_view kAction = "ACTION";
constexpr std::string_view kID = "ID";
constexpr std::string_view kOlderThan = "--older-than";
constexpr std::int32_t kMostDays = 100'000;

// clang-format off
constexpr CommandArgument kArguments[] = {
    {kAction, Occurs::AtMostOnce, "list, restore or empty; without it, list"},
    {kID,     Occurs::AtMostOnce, "what to restore: its ID in the trash, as the list shows it"},
};
constexpr CommandOption kOptions[] = {
    {kOlderThan, "DAYS", "empty: remove only what was deleted so many days ago or earlier"},
};
constexpr CommandExample kExamples[] = {
    {"trash",                       "What is in the trash, the latest deletion first."},
    {"trash restore 7",             "Puts entry 7 back where it was."},
    {"--yes trash empty",           "Empties the trash without asking."},
    {"trash empty --older-than 10", "Asks, and then removes what was deleted 10 days ago or earlier."},
};
// clang-format on

std::string_view NameOf(OwnerKind kind) {
    switch (kind) {
        case OwnerKind::Application:
            return "application";
        case OwnerKind::Class:
            return "class";
        case OwnerKind::Procedure:
            break;
    }
    return "procedure";
}

/// Where an entry was, or is again: "Paint, Grid.cls".
std::string Where(OwnerKind kind, const std::string& appName, const std::string& className) {
    if (kind == OwnerKind::Application) return {};
    return kind == OwnerKind::Class ? appName : appName + ", " + className;
}

Json DocumentOf(const TrashEntry& entry) {
    return {{"trashID", entry.trashID},
            {"kind", NameOf(entry.owner.kind)},
            {"id", entry.owner.id},
            {"name", entry.name},
            {"application", entry.appName},
            {"class", entry.owner.kind == OwnerKind::Application ? Json() : Json(entry.className)},
            {"deletedOn", entry.deletedOn},
            {"keptUntil", KeptUntil(entry)},
            {"classes", entry.classCount},
            {"procedures", entry.codeCount}};
}

void List(CommandContext& context) {
    const std::vector<TrashEntry> entries = ListTrash(context.Catalogue(CatalogueUse::Read));
    if (context.WantsJson()) {
        Json documents = Json::array();
        for (const TrashEntry& entry : entries)
            documents.push_back(DocumentOf(entry));
        return context.SetDocument({{"entries", std::move(documents)}});
    }
    if (entries.empty()) {
        context.Output() << "The trash is empty.\n";
        return;
    }
    TextTable table({"ID", "deleted on", "kept until", "kind", "procedures", "name", "where"});
    for (const TrashEntry& entry : entries) {
        table.AddRow({{std::to_string(entry.trashID), TextTable::Align::Right},
                      {entry.deletedOn},
                      {KeptUntil(entry)},
                      {std::string(NameOf(entry.owner.kind))},
                      {std::to_string(entry.codeCount), TextTable::Align::Right},
                      {entry.name},
                      {Where(entry.owner.kind, entry.appName, entry.className)}});
    }
    table.Print(context.Output());
}

void RequireEntry(Database& db, std::int32_t trashID) {
    if (std::ranges::count(ListTrash(db), trashID, &TrashEntry::trashID) > 0) return;
    throw Error(error_number::kInvalidCall, "There is no entry " + std::to_string(trashID) +
                                                " in the trash. '" + std::string(kProgramName) +
                                                " trash list' shows the entries.");
}

void Restore(CommandContext& context) {
    const auto trashID = context.Given().Number(kID, 1, std::numeric_limits<std::int32_t>::max());
    if (!trashID) {
        throw UsageError("'trash restore' takes the ID of what to restore; 'trash list' shows it.");
    }
    Database& db = context.Catalogue(CatalogueUse::Change);
    RequireEntry(db, *trashID);
    const TrashReturn returned = RestoreFromTrash(db, *trashID);
    const OwnerKind kind = returned.owner.kind;
    const std::string key = KeyOf(PlaceOf(db, returned.owner));
    if (context.WantsJson()) {
        return context.SetDocument(
            {{"key", key},
             {"kind", NameOf(kind)},
             {"id", returned.owner.id},
             {"name", returned.name},
             {"application", returned.appName},
             {"class", kind == OwnerKind::Application ? Json() : Json(returned.className)},
             {"remarks", returned.remarks}});
    }
    const std::string where = Where(kind, returned.appName, returned.className);
    context.Output() << "Restored: " << NameOf(kind) << " '" << OneLine(returned.name) << "'"
                     << (where.empty() ? "" : " in " + OneLine(where)) << "  (" << key << ")\n";
    for (const std::string& remark : returned.remarks)
        context.Output() << OneLine(remark) << '\n';
}

void Empty(CommandContext& context) {
    const auto days = context.Given().Number(kOlderThan, 0, kMostDays);
    Database& db = context.Catalogue(CatalogueUse::Change);
    context.RequireConsent(days ? "Remove for good what was deleted " +
                                      Counted(static_cast<std::size_t>(*days), "day", "days") +
                                      " ago or earlier?"
                                : std::string("Remove everything that is in the trash for good?"));
    const std::int64_t removed = EmptyTrash(db, std::chrono::days(days.value_or(0)));
    if (context.WantsJson()) return context.SetDocument({{"removed", removed}});
    context.Output() << "Removed from the trash: " << removed << '\n';
}

void RefuseIfGiven(const CommandContext& context, std::string_view name, std::string_view action) {
    if (!context.Given().Has(name)) return;
    throw UsageError("'trash " + std::string(action) + "' takes no " + std::string(name) + ".");
}

void Run(CommandContext& context) {
    const std::string action = context.Given().Value(kAction).value_or("list");
    if (action != "restore") RefuseIfGiven(context, kID, action);
    if (action != "empty") RefuseIfGiven(context, kOlderThan, action);
    if (action == "list") return List(context);
    if (action == "restore") return Restore(context);
    if (action == "empty") return Empty(context);
    throw UsageError("'trash' takes list, restore or empty, not '" + action + "'.");
}

}  // namespace

constexpr CliCommand kTrashCommand = {
    .name = "trash",
    .summary = "list, bring back or remove what was deleted",
    .description =
        "A deleted application, class or procedure is kept in the trash for 30 days, with all that "
        "belongs to it. Restoring puts it back where it was, or says where it went when that place "
        "is gone. The trash is a part of the catalogue's file: emptying it and then compacting "
        "makes the file smaller.",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
