#include "store/trash.h"

#include <charconv>

#include "store/database.h"
#include "store/sql_text.h"
#include "store/trash_entry.h"
#include "support/guard.h"
#include "support/local_time.h"

namespace snippetarium {

namespace {

constexpr std::string_view kColumns =
    "SELECT trashID, deletedOn, kind, ownerID, name, appID, appName, classID, className, "
    "classCount, codeCount FROM tblTrash";

TrashEntry EntryOf(const Recordset& row) {
    return {
        .trashID = row["trashID"].Long(),
        .deletedOn = row["deletedOn"].Text(),
        .owner = {static_cast<OwnerKind>(row["kind"].Long()), row["ownerID"].Long()},
        .name = row["name"].Text(),
        .appID = row["appID"].Long(),
        .appName = row["appName"].Text(),
        .classID = row["classID"].Long(),
        .className = row["className"].Text(),
        .classCount = row["classCount"].Long(),
        .codeCount = row["codeCount"].Long(),
    };
}

int NumberAt(std::string_view text, std::size_t offset, std::size_t length) {
    const std::string_view digits = text.substr(offset, length);
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace

std::string TrashTimeText(std::chrono::system_clock::time_point moment) {
    return LocalTimeText(moment, "%Y-%m-%d %H:%M:%S");
}

std::string KeptUntil(const TrashEntry& entry) {
    if (entry.deletedOn.size() < 10) return {};
    const std::chrono::year_month_day deleted{
        std::chrono::year(NumberAt(entry.deletedOn, 0, 4)),
        std::chrono::month(static_cast<unsigned>(NumberAt(entry.deletedOn, 5, 2))),
        std::chrono::day(static_cast<unsigned>(NumberAt(entry.deletedOn, 8, 2)))};
    const std::chrono::year_month_day last{std::chrono::sys_days(deleted) + kTrashKeptFor};
    return IsoText({.year = static_cast<int>(last.year()),
                    .month = static_cast<int>(static_cast<unsigned>(last.month())),
                    .day = static_cast<int>(static_cast<unsigned>(last.day()))});
}

std::vector<TrashEntry> ListTrash(Database& db) {
    return Guarded(db.Reporter(), Procedure::ListTrash, [&] {
        std::vector<TrashEntry> entries;
        Recordset row = db.GetConnection().Execute(Sql(kColumns, " ORDER BY trashID DESC"));
        for (; !row.EndOfFile(); row.MoveNext())
            entries.push_back(EntryOf(row));
        return entries;
    });
}

TrashEntry ReadTrashEntry(Database& db, std::int32_t trashID) {
    const Recordset row = db.GetConnection().Execute(Sql(kColumns, " WHERE trashID = ", trashID));
    if (!row.EndOfFile()) return EntryOf(row);
    throw Error(error_number::kInvalidCall, "There is no entry " + std::to_string(trashID) +
                                                " in the trash. It may have been "
                                                "brought back already, or been kept long enough.");
}

std::int64_t EmptyTrash(Database& db, std::chrono::days age) {
    return Guarded(db.Reporter(), Procedure::EmptyTrash, [&] {
        const std::string limit = TrashTimeText(db.GetHost().clock.Now() - age);
        return ExecuteSQL(db, Sql("DELETE FROM tblTrash WHERE deletedOn <= ", SqlText(limit)));
    });
}

void PurgeTrash(Database& db, std::chrono::system_clock::time_point today) {
    GuardedStage(db.Reporter(), Procedure::PurgeTrash, [&] {
        // Not through ExecuteSQL: the statement that ran last is the user's.
        const std::string old =
            Sql("FROM tblTrash WHERE deletedOn < ", SqlText(TrashTimeText(today - kTrashKeptFor)));
        if (db.GetConnection().Execute("SELECT trashID " + old).EndOfFile()) return;
        db.GetConnection().ExecuteAction("DELETE " + old);
    });
}

}  // namespace snippetarium
