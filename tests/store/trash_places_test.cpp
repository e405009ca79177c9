#include "store/trash.h"
#include "tests/store/trash_fixture.h"

namespace snippetarium::test {
namespace {

/// Where deleted things come back to, and under which names.
class TrashPlaces : public TrashFixture {};

struct TakenName {
    Owner owner;
    std::string_view meanwhile;
    std::string_view name;
};

TEST_F(TrashPlaces, BringsBackUnderANumberedNameWhatAnotherIsCalledNow) {
    const std::string longest(252, 'x');
    const TakenName cases[] = {
        {Application(2), "INSERT INTO tblApplication(appName) VALUES ('PAINT')", "Paint (2)"},
        {Application(3),
         "INSERT INTO tblApplication(appName) VALUES ('Text'), ('text (2)'), ('Text (3)')",
         "Text (4)"},
        {Class(2), "INSERT INTO tblClass(className, appID) VALUES ('Grid.cpp', 2)", "grid.cpp (2)"},
        {Class(3), "INSERT INTO tblClass(className, appID) VALUES ('Form1', 2)", "Form1 (2)"},
        {Class(5), "INSERT INTO tblClass(className, appID) VALUES ('Main', 2)", "Main"},
        {Code(6), "INSERT INTO tblCode(codeName, classID) VALUES ('run', 5)", "Run (2)"},
        {Code(3), "UPDATE tblCode SET codeName = 'DRAW' WHERE codeID = 4", "Draw"},
    };
    db_.Close();
    const std::string sample = ReadBytes(CataloguePath());
    for (const TakenName& test : cases) {
        SCOPED_TRACE(test.meanwhile);
        WriteBytes(CataloguePath(), sample);
        OpenCatalogue(db_);
        Delete(test.owner);
        db_.GetConnection().RunScript(test.meanwhile);
        const TrashReturn returned = RestoreNewest();
        EXPECT_EQ(returned.name, test.name);
        EXPECT_EQ(returned.remarks.empty(), test.name.find('(') == std::string_view::npos);
        db_.Close();
    }
}

TEST_F(TrashPlaces, NumbersTheNamesOfWhatComesBackIntoAnEmptiedClassOrApplication) {
    db_.GetConnection().RunScript(
        "INSERT INTO tblCode(codeName, code, classID) VALUES ('Nowhere (2)', 'second', 1), "
        "('nowhere', 'third', 1)");
    Delete(Application(1));
    db_.GetConnection().RunScript(
        "INSERT INTO tblCode(codeName, code, classID) VALUES ('NOWHERE', 'new', 1);"
        "INSERT INTO tblClass(className, appID) VALUES ('Loose', 1)");
    const TrashReturn returned = RestoreNewest();
    EXPECT_EQ(returned.remarks.size(), 3U);
    EXPECT_EQ(Select("SELECT codeName, code FROM tblCode WHERE classID = 1 ORDER BY codeID"),
              (Rows{"Nowhere (3)|Sub Nowhere()", "Nowhere (2)|second", "nowhere (4)|third",
                    "NOWHERE|new"}));
    EXPECT_EQ(Select("SELECT className FROM tblClass WHERE appID = 1 ORDER BY classID"),
              (Rows{"Class/Module Undefined", "Loose (2)", "Loose"}));
}

TEST_F(TrashPlaces, FindsAnotherPlaceForWhatLostItsOwn) {
    const struct {
        std::string_view what;
        Owner owner;
        std::string_view meanwhile;
        std::string_view appName;
        std::string_view className;
    } cases[] = {
        // clang-format off
        {"class, application made again", Class(5), "DELETE FROM tblApplication WHERE appID = 3; INSERT INTO tblApplication(appName) VALUES ('TEXT')", "TEXT", "Main"},
        {"class, no application", Class(5), "DELETE FROM tblApplication WHERE appID = 3", "Text", "Main"},
        {"class that moved with its renamed application", Class(5), "UPDATE tblApplication SET appName = 'New' WHERE appID = 3", "New", "Main"},
        {"procedure, class made again", Code(6), "DELETE FROM tblClass WHERE classID = 5; INSERT INTO tblClass(className, appID) VALUES ('main', 3)", "Text", "main"},
        {"procedure, class of its name elsewhere", Code(6), "DELETE FROM tblClass WHERE classID = 5; INSERT INTO tblClass(className, appID) VALUES ('Main', 2)", "Application Undefined", "Class/Module Undefined"},
        {"procedure, no class", Code(1), "DELETE FROM tblClass WHERE classID = 2", "Application Undefined", "Class/Module Undefined"},
        {"procedure, class moved", Code(6), "UPDATE tblClass SET appID = 2, className = 'Moved' WHERE classID = 5", "Paint", "Moved"},
        // clang-format on
    };
    db_.Close();
    const std::string sample = ReadBytes(CataloguePath());
    for (const auto& test : cases) {
        SCOPED_TRACE(test.what);
        WriteBytes(CataloguePath(), sample);
        OpenCatalogue(db_);
        Delete(test.owner);
        db_.GetConnection().RunScript(test.meanwhile);
        const TrashReturn returned = RestoreNewest();
        EXPECT_EQ(returned.appName, test.appName);
        EXPECT_EQ(returned.className, test.className);
        const bool isMoved = test.meanwhile.starts_with("UPDATE");
        EXPECT_EQ(returned.remarks.size(), isMoved ? 0U : 1U);
        db_.Close();
    }
}

TEST_F(TrashPlaces, JoinsAClassAndItsApplicationInWhateverOrderTheyComeBack) {
    const Rows before = Dump();
    for (const bool classFirst : {true, false}) {
        Delete(Class(2));
        Delete(Application(2));
        const std::vector<TrashEntry> entries = ListTrash(db_);
        ASSERT_EQ(entries.size(), 2U);
        RestoreFromTrash(db_, entries[classFirst ? 1 : 0].trashID);
        RestoreFromTrash(db_, entries[classFirst ? 0 : 1].trashID);
        EXPECT_EQ(DifferenceTo(before), "") << classFirst;
    }
}

}  // namespace
}  // namespace snippetarium::test
