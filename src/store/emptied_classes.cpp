#include "store/emptied_classes.h"

#include "store/database.h"
#include "store/deletion_stage.h"
#include "store/sql_text.h"

namespace snippetarium {

bool EmptyClasses(Database& db, std::string_view classIDs, const std::function<bool()>& deletion) {
    const bool isBegun = RunStage(db, Procedure::EmptyClasses, [&] {
        db.GetConnection().ExecuteAction(
            Sql("INSERT INTO tblClassesToEmpty SELECT classID FROM tblClass WHERE classID IN (",
                classIDs, ") AND classID NOT IN (SELECT classID FROM tblClassesToEmpty)"));
        return true;
    });
    const bool isDone = deletion();
    const bool isEnded = RunStage(db, Procedure::EmptyClasses, [&] {
        ForgetClassesToEmpty(db);
        return true;
    });
    return isBegun && isDone && isEnded;
}

void ForgetClassesToEmpty(Database& db) {
    db.GetConnection().ExecuteAction("DELETE FROM tblClassesToEmpty WHERE true");
}

}  // namespace snippetarium
