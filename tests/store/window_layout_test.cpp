#include "store/window_layout.h"

#include "store/reads_other.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

using WindowLayout = WriteFixture;

const std::string kTest = "SELECT * FROM tblWindowSize WHERE w_hID = 1;";
constexpr WindowSize kSize{15000, 12000, -60, 450, 1, 3, true, 4500, 5000};

TEST_F(WindowLayout, IsWrittenIntoTheRowThatIsThere) {
    ExpectStatements(
        {{"the row",
          [](Database& db) { SaveWindowSize(db, kSize); },
          {kTest,
           "UPDATE tblWindowSize SET tWidth = 15000, tHeight = 12000, tLeft = -60, tTop = 450, "
           "leftChildIndex = 1, rightChildIndex = 3, wrap = 1, leftChildWidth = 4500, "
           "rightChildWidth = 5000 WHERE w_hID = 1;"}}});
    EXPECT_TRUE(WindowSizeRS(db_)["wrap"].Boolean());
    EXPECT_EQ(WindowSizeRS(db_)["tLeft"].Long(), -60);
}

TEST_F(WindowLayout, IsAddedWhereTheRowIsMissing) {
    ExecuteSQL(db_, "DELETE FROM tblWindowSize");
    ExpectStatements(
        {{"no row",
          [](Database& db) { SaveWindowSize(db, kSize); },
          {kTest,
           "INSERT INTO tblWindowSize (tWidth, tHeight, tLeft, tTop, leftChildIndex, "
           "rightChildIndex, wrap, leftChildWidth, rightChildWidth) VALUES (15000, 12000, -60, "
           "450, 1, 3, 1, 4500, 5000 )"}}});
    EXPECT_EQ(Select("SELECT * FROM tblWindowSize"),
              Rows{"1|15000|12000|-60|450|1|3|1|4500|5000|left|left|right|left|-"});
}

TEST_F(WindowLayout, KeepsTheMainWindowWithinSixteenBits) {
    WindowSize size;
    size.width = 57600;
    size.height = 32767;
    size.left = -40000;
    size.top = -32768;
    size.leftChildWidth = 40000;
    SaveWindowSize(db_, size);
    EXPECT_EQ(Select("SELECT tWidth, tHeight, tLeft, tTop, leftChildWidth FROM tblWindowSize"),
              Rows{"32767|32767|-32768|-32768|40000"});
}

TEST_F(WindowLayout, SavesTheSidesOfThePanes) {
    ExpectStatements(
        {{"sides",
          [](Database& db) {
              SavePanePositions(
                  db, {.content = "right", .search = "left", .index = "it's", .bookmark = ""});
          },
          {"UPDATE tblWindowSize SET fContentPos = 'right', fSearchPos = 'left', "
           "fIndexPos = 'it''s', fBookmarkPos = '';"}}});
    EXPECT_EQ(Select("SELECT fContentPos, fSearchPos, fIndexPos, fBookmarkPos FROM tblWindowSize"),
              Rows{"right|left|it's|"});
}

}  // namespace
}  // namespace snippetarium::test
