#include "store/trash.h"

#include "store/check.h"
#include "tests/store/trash_fixture.h"

namespace snippetarium::test {
namespace {

class TrashEntries : public TrashFixture {};

TEST_F(TrashEntries, TellsItsEntriesTheNewestFirst) {
    Delete(Code(1));
    host_.clock.Advance(std::chrono::hours(24));
    Delete(Application(2));
    EXPECT_EQ(KeepInTrash(db_, Code(77)), 0) << "there is none";
    const std::vector<TrashEntry> entries = ListTrash(db_);
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].name, "Paint");
    EXPECT_EQ(entries[0].owner.kind, OwnerKind::Application);
    EXPECT_EQ(entries[0].classCount, 3);
    EXPECT_EQ(entries[0].codeCount, 4);
    EXPECT_EQ(entries[0].deletedOn.substr(0, 10), "2024-05-18");
    EXPECT_EQ(KeptUntil(entries[0]), "2024-06-17");
    EXPECT_EQ(entries[1].name, "Draw()");
    EXPECT_EQ(entries[1].className, "grid.cpp");
    EXPECT_EQ(entries[1].appName, "Paint");
    EXPECT_EQ(entries[1].codeCount, 1);

    RestoreFromTrash(db_, 99);
    EXPECT_NE(TakeBox().text.find("no entry 99 in the trash"), std::string::npos);
}

TEST_F(TrashEntries, KeepsADeletionForThirtyDays) {
    constexpr std::chrono::hours kDay(24);
    Delete(Code(1));
    host_.clock.Advance(30 * kDay);
    Delete(Code(2));
    EXPECT_EQ(ListTrash(db_).size(), 2U);
    db_.Close();
    OpenCatalogue(db_);
    EXPECT_EQ(ListTrash(db_).size(), 2U);

    host_.clock.Advance(std::chrono::seconds(1));
    db_.Close();
    db_.SetMode(AccessMode::Read);
    OpenCatalogue(db_);
    EXPECT_EQ(ListTrash(db_).size(), 2U) << "who only reads removes nothing";
    db_.Close();
    db_.SetMode(AccessMode::ReadWrite);
    OpenCatalogue(db_);
    ASSERT_EQ(ListTrash(db_).size(), 1U);
    EXPECT_EQ(ListTrash(db_).front().name, "it's");

    host_.clock.Advance(30 * kDay);
    Delete(Code(3));
    ASSERT_EQ(ListTrash(db_).size(), 1U);
    EXPECT_EQ(ListTrash(db_).front().name, "Draw");
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

TEST_F(TrashEntries, IsEmptiedByAge) {
    for (const std::int32_t codeID : {1, 2, 3}) {
        Delete(Code(codeID));
        host_.clock.Advance(std::chrono::hours(24));
    }
    EXPECT_EQ(EmptyTrash(db_, std::chrono::days(4)), 0);
    EXPECT_EQ(EmptyTrash(db_, std::chrono::days(2)), 2);
    EXPECT_EQ(ListTrash(db_).front().name, "Draw");
    EXPECT_EQ(EmptyTrash(db_), 1);
    ExpectEmptyTrash();
    Delete(Code(5));
    EXPECT_EQ(ListTrash(db_).front().trashID, 4) << "no number means two deletions";
}

}  // namespace
}  // namespace snippetarium::test
