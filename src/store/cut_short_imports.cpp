#include "store/cut_short_imports.h"

#include <algorithm>

#include "store/database.h"
#include "store/settings.h"
#include "store/sql_text.h"
#include "support/guard.h"
#include "support/message_boxes.h"

namespace snippetarium {

namespace {

// The statements go past ExecuteSQL: the statement that ran last, which the error message shows, is
// to be one of the import's. check_rules.cpp reads the same settings.

constexpr std::string_view kIsUnderWay = " WHERE name = 'import.underWay'";
constexpr std::string_view kCutShort = "import.cutShort ";
constexpr std::string_view kNew = "new";
constexpr std::string_view kTold = "told";

std::string SettingOf(const CutShortClass& aClass) {
    return Sql(kCutShort, aClass.classID);
}

std::string Line(const CutShortClass& aClass) {
    std::string line = Sql("\r\n    ", aClass.name, " in ", aClass.application);
    if (!aClass.pathInApp.empty()) line += Sql(" (", aClass.pathInApp, ")");
    return line;
}

std::string Message(const std::vector<CutShortClass>& classes) {
    std::string message =
        "An import ended in the midst of a class, so that some of its procedures may be "
        "missing:\r\n";
    for (const CutShortClass& aClass : classes) {
        if (!aClass.isTold) message += Line(aClass);
    }
    return message + "\r\n\r\nImport its file again and choose to overwrite the class.";
}

}  // namespace

void NoteClassUnderWay(Database& db) {
    db.GetConnection().ExecuteAction(
        "INSERT INTO tblSetting (name, value) SELECT 'import.underWay', max(classID) FROM "
        "tblClass");
}

void NoteClassComplete(Database& db) {
    db.GetConnection().ExecuteAction(Sql("DELETE FROM tblSetting", kIsUnderWay));
}

void ListCutShortClass(Database& db) {
    Connection& connection = db.GetConnection();
    if (connection.Execute(Sql("SELECT value FROM tblSetting", kIsUnderWay)).EndOfFile()) return;
    const std::string list =
        Sql("INSERT INTO tblSetting (name, value) SELECT '", kCutShort, "' || classID, '", kNew,
            "' FROM tblClass WHERE classID = (SELECT min(classID) FROM tblClass WHERE classID > "
            "(SELECT CAST(value AS INTEGER) FROM tblSetting",
            kIsUnderWay, "))");
    const std::string forget = Sql("DELETE FROM tblSetting", kIsUnderWay);
    const BoundStatement statements[] = {{list}, {forget}};
    connection.RunTransaction(statements);
}

std::vector<CutShortClass> CutShortClasses(Database& db) {
    const auto row = db.GetConnection().OpenCursor(
        "SELECT cls.classID, cls.className, cls.classPathInApp, a.appName, s.value = 'told' FROM "
        "tblSetting s CROSS JOIN tblClass cls LEFT JOIN tblApplication a ON a.appID = cls.appID "
        "WHERE substr(s.name, 1, ?1) = ?2 AND cls.classID = CAST(substr(s.name, ?1 + 1) AS "
        "INTEGER) "
        "ORDER BY cls.classID",
        static_cast<std::int64_t>(kCutShort.size()), kCutShort);
    std::vector<CutShortClass> classes;
    while (row->Next()) {
        classes.push_back({.classID = static_cast<std::int32_t>(row->Number(0)),
                           .name = std::string(row->Text(1)),
                           .pathInApp = std::string(row->Text(2)),
                           .application = std::string(row->Text(3)),
                           .isTold = row->Number(4) != 0});
    }
    return classes;
}

void TellOfCutShortImports(Database& db) {
    Guarded(db.Reporter(), Procedure::FindCutShortImports, [&] {
        if (db.IsReadOnly()) return;
        const std::vector<CutShortClass> classes = CutShortClasses(db);
        if (std::ranges::all_of(classes, &CutShortClass::isTold)) return;
        ShowInformation(db.GetHost().messages, Message(classes), kInformationTitle);
        for (const CutShortClass& aClass : classes)
            StoreSetting(db, SettingOf(aClass), kTold);
    });
}

}  // namespace snippetarium
