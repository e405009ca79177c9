#include "store/settings.h"

#include "store/database.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

std::string ReadSetting(Database& db, std::string_view name) {
    const Recordset row = db.GetConnection().Execute(
        Sql("SELECT value FROM tblSetting WHERE name = ", SqlText(name), ";"));
    return row.EndOfFile() ? std::string() : std::string(row["value"].Text());
}

}  // namespace

std::string Setting(Database& db, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::Setting, [&] { return ReadSetting(db, name); });
}

void StoreSetting(Database& db, std::string_view name, std::string_view value) {
    Guarded(db.Reporter(), Procedure::StoreSetting, [&] {
        const std::string stored = ReadSetting(db, name);
        if (stored == value) return;
        const std::string isNamed = Sql(" WHERE name = ", SqlText(name), ";");
        if (value.empty()) {
            ExecuteSQL(db, "DELETE FROM tblSetting" + isNamed);
        } else if (!stored.empty()) {
            ExecuteSQL(db, Sql("UPDATE tblSetting SET value = ", SqlText(value), isNamed));
        } else {
            ExecuteSQL(db, Sql("INSERT INTO tblSetting (name, value) VALUES (", SqlText(name), ", ",
                               SqlText(value), ");"));
        }
    });
}

}  // namespace snippetarium
