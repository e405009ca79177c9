#include "store/trash_names.h"

#include <algorithm>
#include <array>
#include <set>

#include "store/database.h"
#include "store/sql_text.h"
#include "store/unique_names.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

/// Remarks name so many new names one by one.
constexpr std::size_t kNamedOneByOne = 10;

/// A level of the tree: its rows and what they stand in.
struct Level {
    OwnerKind kind;
    std::string_view word;
    std::string_view table;
    std::string_view trashTable;
    std::string_view id;
    std::string_view name;
    std::string_view scratch;
    /// The column that names the parent; empty where there is none.
    std::string_view parent;
    std::string_view parentScratch;
};

// clang-format off
constexpr std::array kLevels = {
    Level{OwnerKind::Application, "application", "tblApplication", "tblTrashApplication", "appID", "appName", "tblBackApplication", "", ""},
    Level{OwnerKind::Class, "class", "tblClass", "tblTrashClass", "classID", "className", "tblBackClass", "appID", "tblBackApplication"},
    Level{OwnerKind::Procedure, "procedure", "tblCode", "tblTrashCode", "codeID", "codeName", "tblBackCode", "classID", "tblBackClass"},
};
// clang-format on

/// " AND x.classID = 7" for a level with parents.
std::string InParent(const Level& level, std::string_view prefix, std::string_view parentID) {
    if (level.parent.empty()) return {};
    return Sql(" AND ", prefix, level.parent, " = ", parentID);
}

/// The rows that come back into something that is there, beside more of their name than `namesakes`
/// that are not of this entry: id, name, and the parent then and now.
std::string ClashesSql(const Level& level, const TrashEntry& entry, std::int32_t namesakes) {
    const bool hasParent = !level.parent.empty();
    const std::string parents =
        hasParent ? Sql(" INNER JOIN ", level.parentScratch, " p ON p.old = t.", level.parent)
                  : std::string();
    return Sql(
        "SELECT t.", level.id, " AS id, t.", level.name, " AS name, ",
        hasParent ? "p.old AS oldParent, p.new AS newParent" : "0 AS oldParent, 0 AS newParent",
        " FROM ", level.trashTable, " t INNER JOIN ", level.scratch, " m ON m.old = t.", level.id,
        parents, " WHERE t.trashID = ", entry.trashID, " AND m.isThere = 0",
        hasParent ? " AND p.isThere = 1" : "", " AND (SELECT count(*) FROM ", level.table,
        " x WHERE x.", level.name, " = t.", level.name, InParent(level, "x.", "p.new"), " AND x.",
        level.id, " NOT IN (SELECT new FROM ", level.scratch, " WHERE isThere = 1)) > ", namesakes,
        " ORDER BY t.", level.id);
}

/// Gives names to the clashing rows of one level.
class Renaming {
  public:
    Renaming(Database& db, const TrashEntry& entry, const Level& level)
        : db_(db), entry_(entry), level_(level) {}

    void Run(std::int32_t namesakes, std::vector<NewName>& names) {
        Recordset row = db_.GetConnection().Execute(ClashesSql(level_, entry_, namesakes));
        for (; !row.EndOfFile(); row.MoveNext()) {
            const std::string old = row["name"].Text();
            const std::int32_t parentID = row["newParent"].Long();
            names.push_back({.owner = {level_.kind, row["id"].Long()},
                             .parentID = parentID,
                             .oldName = old,
                             .name = FreeName(old, row["oldParent"].Long(), parentID)});
        }
    }

  private:
    std::string FreeName(const std::string& name, std::int32_t oldParent, std::int32_t newParent) {
        for (std::int32_t number = 2;; ++number) {
            std::string candidate = NumberedName(name, number);
            if (IsTaken(level_.table, "", newParent, candidate)) continue;
            const std::string ofEntry = Sql(" AND trashID = ", entry_.trashID);
            if (IsTaken(level_.trashTable, ofEntry, oldParent, candidate)) continue;
            if (given_.insert(std::to_string(newParent) + " " + FoldCase(candidate)).second)
                return candidate;
        }
    }

    bool IsTaken(std::string_view table, std::string_view condition, std::int32_t parentID,
                 std::string_view name) {
        return !db_.GetConnection()
                    .Execute(Sql("SELECT ", level_.id, " FROM ", table, " WHERE ", level_.name,
                                 " = ", SqlText(name), condition,
                                 InParent(level_, "", std::to_string(parentID))))
                    .EndOfFile();
    }

    Database& db_;
    const TrashEntry& entry_;
    const Level& level_;
    std::set<std::string> given_;
};

const Level& OfKind(OwnerKind kind) {
    return kLevels.at(static_cast<std::size_t>(kind) - 1);
}

/// How many had the name of the entry beside it when it was deleted: none where it comes back to
/// another place.
std::int32_t Namesakes(Database& db, const TrashEntry& entry, const TrashPlace& place) {
    const bool isOwnPlace = entry.owner.kind == OwnerKind::Application ||
                            (entry.owner.kind == OwnerKind::Class && place.appID == entry.appID) ||
                            place.classID == entry.classID;
    if (!isOwnPlace) return 0;
    return ScalarLong(db, Sql("SELECT namesakes FROM tblTrash WHERE trashID = ", entry.trashID));
}

}  // namespace

std::vector<NewName> FindNewNames(Database& db, const TrashEntry& entry, const TrashPlace& place) {
    std::vector<NewName> names;
    for (const Level& level : kLevels) {
        const bool isEntry = level.kind == entry.owner.kind;
        Renaming(db, entry, level).Run(isEntry ? Namesakes(db, entry, place) : 0, names);
    }
    return names;
}

std::string RenamingScript(const TrashEntry& entry, const std::vector<NewName>& names) {
    std::string script;
    for (const NewName& renamed : names) {
        const Level& level = OfKind(renamed.owner.kind);
        script += Sql("UPDATE ", level.trashTable, " SET ", level.name, " = ",
                      SqlText(renamed.name), " WHERE trashID = ", entry.trashID, " AND ", level.id,
                      " = ", renamed.owner.id, ";\n");
    }
    return script;
}

std::vector<std::string> RenamingRemarks(const std::vector<NewName>& names) {
    std::vector<std::string> remarks;
    for (std::size_t i = 0; i < std::min(names.size(), kNamedOneByOne); ++i) {
        const std::string word(OfKind(names[i].owner.kind).word);
        remarks.push_back("The " + word + " '" + names[i].oldName + "' is called '" +
                          names[i].name + "' now, because there is another '" + names[i].oldName +
                          "' beside it.");
    }
    if (names.size() > kNamedOneByOne) {
        remarks.push_back("So it is with " + std::to_string(names.size() - kNamedOneByOne) +
                          " more names.");
    }
    return remarks;
}

}  // namespace snippetarium
