#pragma once

#include <string>
#include <string_view>

#include "editors/class_record.h"
#include "editors/code_record.h"
#include "store/writes_applications.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {

/// A test on a catalogue with application 2, the Visual Basic class 2 and its procedure 1, and the
/// Java class 3. All but the procedure have names that end in their IDs.
class EditorsFixture : public WriteFixture {
  protected:
    EditorsFixture() {
        AddApplication(db_, {.name = "App2"});
        SaveClassRecord(
            db_,
            {.name = "Class2", .appID = 2, .languageID = 1, .declarations = "Option Explicit\r\n"});
        SaveClassRecord(db_, {.name = "Class3", .appID = 2, .languageID = 2});
        SaveCodeRecord(db_, {.name = "Draw", .classID = 2, .code = "Sub Draw()\r\nEnd Sub"});
    }

    std::string TextOfClass(std::int32_t classID) {
        return LoadClassRecord(db_, classID).value().declarations;
    }
    /// What every row says that the editors may change.
    Rows Everything() {
        return Select(
            "SELECT a.appName, a.appComment, cls.className, cls.appID, cls.languageID, "
            "cls.classDI, cls.classComment, cd.codeName, cd.code, cd.codeComment, cd.classID, "
            "cl.languageID FROM ((tblApplication a LEFT JOIN tblClass cls ON cls.appID = a.appID) "
            "LEFT JOIN tblCode cd ON cd.classID = cls.classID) "
            "LEFT JOIN tblCode_Link_Language cl ON cl.codeID = cd.codeID "
            "ORDER BY a.appID, cls.classID, cd.codeID");
    }
    /// Expects that the user was told so, and nothing was written since `before`.
    void ExpectRefusal(std::string_view message, const Rows& before) {
        EXPECT_EQ(TakeBox().text, message);
        EXPECT_TRUE(host_.messages.shown.empty());
        EXPECT_EQ(Everything(), before);
    }
};

}  // namespace snippetarium::test
