#include <algorithm>
#include <iterator>
#include <map>

#include "store/class_markers.h"
#include "store/class_text.h"
#include "store/database.h"
#include "store/job_progress.h"
#include "store/sql_text.h"
#include "store/trash_entry.h"
#include "store/trash_ids.h"
#include "store/trash_marker.h"
#include "store/trash_names.h"
#include "store/trash_place.h"
#include "store/trash_script.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

// Bringing an entry back. First, without changing anything: where does it go, which IDs and which
// names can its rows have. Then one script does it all in one transaction: renames what has to be
// renamed, while it is still in the trash, copies the rows, puts the marker back, and removes the
// entry.

/// Of the time that a large entry takes, what has gone by before its one transaction begins. How
/// far that is cannot be seen from here.
constexpr double kShareOfNumbering = 0.2;

/// The name that the entry comes back under.
std::string NameOf(const TrashEntry& entry, const std::vector<NewName>& names) {
    const auto renamed = std::ranges::find_if(names, [&](const NewName& candidate) {
        return candidate.owner.kind == entry.owner.kind && candidate.owner.id == entry.owner.id;
    });
    return renamed == names.end() ? entry.name : renamed->name;
}

std::string NewApplicationScript(const TrashEntry& entry, const TrashPlace& place) {
    if (!place.isNewApplication) return {};
    return Sql("INSERT INTO tblApplication(appID, appName) VALUES (", place.appID, ", ",
               SqlText(entry.appName), ");\n");
}

std::string TextScript(const ClassText& stored, std::string_view text) {
    std::string script;
    for (const std::string& statement : ClassTextStatements(stored, text))
        script += statement + ";\n";
    return script;
}

/// Puts the marker of a procedure back into the text of its class. One that had none stays without
/// it where it was; what is new to a class, or bears a new name, always gets one.
std::string MarkerScript(Database& db, const TrashEntry& entry, const TrashPlace& place,
                         std::string_view newName) {
    if (place.classID == kUndefinedClassID) return {};
    const Recordset kept = db.GetConnection().Execute(
        Sql("SELECT classText FROM tblTrash WHERE trashID = ", entry.trashID));
    const bool isItsClass = place.classID == entry.classID;
    if (kept["classText"].IsNull() && isItsClass && newName == entry.name) return {};
    const ClassText now = ReadClassText(db, place.classID);
    return TextScript(
        now, PutMarkersBack(now.text, MarkedProceduresOf(db, place.classID),
                            {.codeName = entry.name,
                             .newName = newName,
                             .textBefore = isItsClass ? kept["classText"].TextView() : ""}));
}

/// Gives markers to the procedures that come back under new names into a class that is there: their
/// old ones are another's now.
std::string NewNamesMarkerScript(Database& db, const std::vector<NewName>& names) {
    std::map<std::int32_t, std::vector<std::string>> ofClasses;
    for (const NewName& renamed : names) {
        if (renamed.owner.kind == OwnerKind::Procedure && renamed.parentID != kUndefinedClassID)
            ofClasses[renamed.parentID].push_back(renamed.name);
    }
    std::string script;
    for (const auto& [classID, codeNames] : ofClasses) {
        MarkedProcedures procedures = MarkedProceduresOf(db, classID);
        std::ranges::copy(codeNames, std::back_inserter(procedures.codeNames));
        const ClassText now = ReadClassText(db, classID);
        std::string text = now.text;
        for (const std::string& codeName : codeNames)
            text = AppendMarker(text, procedures, codeName);
        script += TextScript(now, text);
    }
    return script;
}

/// The names of the class and the application in which the entry is now.
Recordset ReadWhere(Database& db, const Owner& owner) {
    switch (owner.kind) {
        case OwnerKind::Application:
            return db.GetConnection().Execute(Sql(
                "SELECT appName, null AS className FROM tblApplication WHERE appID = ", owner.id));
        case OwnerKind::Class:
            return db.GetConnection().Execute(
                Sql("SELECT a.appName, c.className FROM tblClass c LEFT JOIN tblApplication a ON "
                    "c.appID = a.appID WHERE c.classID = ",
                    owner.id));
        case OwnerKind::Procedure:
            return db.GetConnection().Execute(
                Sql("SELECT a.appName, c.className FROM (tblCode d LEFT JOIN tblClass c ON "
                    "d.classID = c.classID) LEFT JOIN tblApplication a ON c.appID = a.appID WHERE "
                    "d.codeID = ",
                    owner.id));
    }
    return {};
}

}  // namespace

TrashReturn RestoreFromTrash(Database& db, std::int32_t trashID) {
    return Guarded(db.Reporter(), Procedure::RestoreFromTrash, [&] {
        JobProgress progress(db.GetHost(), "Restoring", JobProgress::Cancelling::Impossible);
        const TrashEntry entry = ReadTrashEntry(db, trashID);
        progress.SetStage("Restoring " + entry.name);
        progress.Show(0.0);
        const TrashPlace place = FindTrashPlace(db, entry);
        db.GetConnection().RunScript(NumberingScript(entry, place));
        const std::vector<NewName> names = FindNewNames(db, entry, place);
        progress.Show(kShareOfNumbering);

        TrashReturn returned;
        returned.owner = {entry.owner.kind, ReadNewID(db, entry)};
        returned.name = NameOf(entry, names);
        db.GetConnection().RunScript(RenamingScript(entry, names) +
                                     NewApplicationScript(entry, place) +
                                     TrashScript("restore.sql", {{"entry", Sql(trashID)}}) +
                                     (entry.owner.kind == OwnerKind::Procedure
                                          ? MarkerScript(db, entry, place, returned.name)
                                          : NewNamesMarkerScript(db, names)) +
                                     ForgetNumberingScript());
        progress.Show(1.0);
        if (const Recordset where = ReadWhere(db, returned.owner); !where.EndOfFile()) {
            returned.appName = where["appName"].Text();
            returned.className = where["className"].Text();
        }
        if (!place.remark.empty()) returned.remarks.push_back(place.remark);
        std::ranges::move(RenamingRemarks(names), std::back_inserter(returned.remarks));
        return returned;
    });
}

}  // namespace snippetarium
