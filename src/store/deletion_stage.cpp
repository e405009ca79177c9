#include "store/deletion_stage.h"

#include "store/database.h"
#include "support/guard.h"

namespace snippetarium {

bool RunStage(Database& db, Procedure procedure, const std::function<bool()>& body) {
    if (GuardedStage(db.Reporter(), procedure, body)) return true;
    GuardedStage(db.Reporter(), procedure, [&] { ExecuteSQL(db, "DELETE FROM tblIDsToDelete"); });
    return false;
}

void StepCounter::Count() {
    ++done_;
    if (onProgress_) onProgress_(static_cast<double>(done_) / static_cast<double>(steps_));
}

}  // namespace snippetarium
