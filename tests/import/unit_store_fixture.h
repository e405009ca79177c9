#pragma once

#include <string>
#include <utility>

#include "import/unit_store.h"
#include "store/writes_applications.h"
#include "tests/import/import_fixture.h"

namespace snippetarium::test {

/// A test that stores files into the application Paint, as one job or as several.
class UnitStoreTest : public ImportFixture {
  protected:
    UnitStoreTest() { AddApplication(db_, {.name = "Paint"}); }

    StoreResult Store(const CutFile& file, const std::string& entry = "Draw.bas") {
        return store_.Store(file, {.entry = entry});
    }
    /// As a later job would, with that answer to the question.
    StoreResult StoreAgain(const CutFile& file, OverwriteChoice choice,
                           const std::string& entry = "Draw.bas") {
        state_ = {.overwriteChoice = choice};
        return UnitStore(db_, state_, noise_, target_).Store(file, {.entry = entry});
    }
    std::string TakeErrors() { return std::exchange(state_.importErrorLog, {}); }
    Rows Classes() {
        return Select(
            "SELECT classID, className, classPathInApp FROM tblClass WHERE classID > 1 "
            "ORDER BY classID");
    }
    Rows CodeNames() { return Select("SELECT codeName FROM tblCode ORDER BY codeID"); }

    StoreTarget target_{.appID = 2, .language = "Visual Basic"};
    UnitStore store_{db_, state_, noise_, target_};
};

}  // namespace snippetarium::test
