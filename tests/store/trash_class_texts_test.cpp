#include "store/sql_text.h"
#include "store/trash.h"
#include "tests/store/trash_fixture.h"

namespace snippetarium::test {
namespace {

/// What deletions and the trash do with the markers in the text of a class.
class TrashAndMarkers : public TrashFixture {
  protected:
    std::string TextOfClass(std::int32_t classID) {
        return Field(Sql("SELECT classDI FROM tblClass WHERE classID = ", classID));
    }
    std::string RestOfClass2() {
        const Rows rows = Select("SELECT text FROM tblOverlong WHERE ownerTableID = 2");
        return rows.empty() ? "" : rows.front();
    }
};

TEST_F(TrashAndMarkers, PutsAMarkerWhereItWasAlsoWhenTheTextHasChanged) {
    Delete(Code(1));
    db_.GetConnection().RunScript(
        "UPDATE tblClass SET classDI = replace(classDI, 'int end', 'long end') WHERE classID = 2");
    RestoreNewest();
    EXPECT_EQ(TextOfClass(2),
              "int top;\r\n/***Procedure Draw()***/\r\nint middle;\r\n/***Procedure "
              "it's***/\r\nlong end;");
}

TEST_F(TrashAndMarkers, MarksAProcedureByTheNameAndInTheClassThatItComesBackTo) {
    Delete(Code(1));
    db_.GetConnection().RunScript("INSERT INTO tblCode(codeName, classID) VALUES ('Draw()', 2)");
    RestoreNewest();
    EXPECT_NE(TextOfClass(2).find("int top;\r\n/***Procedure Draw() (2)***/\r\nint middle;"),
              std::string::npos);

    Delete(Code(8));
    db_.GetConnection().RunScript(
        "DELETE FROM tblClass WHERE classID = 6;"
        "INSERT INTO tblClass(className, appID, languageID, classDI) VALUES ('Loose', 1, 1, 'x')");
    RestoreNewest();
    EXPECT_EQ(Field("SELECT classDI FROM tblClass WHERE className = 'Loose'"),
              "x\r\n'***Procedure Loosen***\r\n");
}

TEST_F(TrashAndMarkers, LetAProcedureWithoutAMarkerStayWithoutUnlessItIsNewToItsClass) {
    Delete(Code(5));
    RestoreNewest();
    EXPECT_EQ(TextOfClass(4), "-");

    Delete(Code(5));
    db_.GetConnection().RunScript("INSERT INTO tblCode(codeName, classID) VALUES ('words', 4)");
    RestoreNewest();
    EXPECT_EQ(TextOfClass(4), "'***Procedure words (2)***\r\n");
}

TEST_F(TrashAndMarkers, MarkTheProceduresThatGetNewNamesInAClassThatIsStillThere) {
    KeepInTrash(db_, Class(2));
    const std::string before = TextOfClass(2);
    db_.GetConnection().RunScript(
        "DELETE FROM tblCode WHERE classID = 2;"
        "INSERT INTO tblCode(codeName, classID) VALUES ('Draw()', 2)");
    RestoreNewest();
    EXPECT_EQ(Select("SELECT codeName FROM tblCode WHERE classID = 2 ORDER BY codeName"),
              (Rows{"Draw()", "Draw() (2)", "it's"}));
    EXPECT_EQ(TextOfClass(2), before + "\r\n/***Procedure Draw() (2)***/");
}

TEST_F(TrashAndMarkers, MeetInATextThatIsTooLongForItsColumn) {
    const std::string draw = "/***Procedure Draw()***/";
    const std::string its = "/***Procedure it's***/";
    const std::string start = draw + std::string(kLongTextLimit - draw.size(), 'x');
    for (const std::string& rest : {its + "abc", "abc" + its, std::string("abc")}) {
        SCOPED_TRACE(rest);
        db_.GetConnection().RunScript(Sql("UPDATE tblClass SET classDI = ", SqlText(start),
                                          " WHERE classID = 2; UPDATE tblOverlong SET text = ",
                                          SqlText(rest), " WHERE ownerTableID = 2"));
        const Rows before = Dump();
        for (const Owner& procedure : {Code(1), Code(2)}) {
            const std::string& marker = procedure.id == 1 ? draw : its;
            Delete(procedure);
            EXPECT_EQ((TextOfClass(2) + RestOfClass2()).find(marker), std::string::npos);
            RestoreNewest();
            if (procedure.id == 2 && rest == "abc") continue;  // it had none
            ASSERT_EQ(DifferenceTo(before), "") << marker;
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
