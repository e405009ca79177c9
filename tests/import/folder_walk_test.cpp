#include "import/folder_walk.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "import/file_kind.h"
#include "support/message_boxes.h"
#include "tests/fake_file_system.h"
#include "tests/fakes.h"

namespace snippetarium::test {
namespace {

using Names = std::vector<std::string>;

class FolderWalkTest : public ::testing::Test {
  protected:
    WalkedFiles ListAll(std::string_view root) {
        WalkedFiles found;
        FolderWalk walk(host_.host, files_, state_);
        ListAllSubfolderFiles(walk, root, found, kListPattern);
        return found;
    }
    void AddFiles(const Names& paths) {
        for (const std::string& path : paths)
            files_.AddFile(path, "x");
    }

    FakeHost host_;
    FakeFileSystem files_;
    ImportState state_;
};

TEST_F(FolderWalkTest, TakesWhatThePatternTakesInSubfoldersAndNothingOfTheRoot) {
    AddFiles({"/p/Root.bas", "/p/b/Two.FRM", "/p/b/x.cs", "/p/b/y.java", "/p/b/z.CPP",
              "/p/b/page.htm", "/p/b/notes.txt", "/p/a/deep/er/One.bas"});
    for (const std::string_view root : {"/p", "/p/", "\\p\\"}) {
        EXPECT_EQ(ListAll(root).entries,
                  (Names{"b\\Two.FRM", "b\\y.java", "b\\z.CPP", "a\\deep\\er\\One.bas"}))
            << root;
    }
    EXPECT_FALSE(host_.progress.IsOpen());
}

TEST_F(FolderWalkTest, PassesOverTheFoldersOfAWebEditorAtAnyDepth) {
    AddFiles({"/p/_VTI_pvt/a.asp", "/p/_vti_cnf/b.asp", "/p/c/_Vti_Cnf/c.asp", "/p/_vti/d.asp"});
    EXPECT_EQ(ListAll("/p").entries, (Names{"_vti\\d.asp"}));
    EXPECT_EQ(host_.progress.TextsOf(ProgressText::FolderLine),
              (Names{"Current folder: c", "Current folder: _vti"}));
}

TEST_F(FolderWalkTest, ShowsWhereItIsAndFillsTheTotalBarBySubfoldersOfTheRoot) {
    AddFiles({"/p/a/1.c", "/p/a/2.c", "/p/b/in/3.c", "/p/c/4.c"});
    ListAll("/p");
    EXPECT_EQ(host_.progress.opened,
              (Names{"Snippetarium is counting code files, please wait..."}));
    EXPECT_EQ(host_.progress.TextsOf(ProgressText::UnitLabel), (Names{"Folder Progress:"}));
    EXPECT_EQ(host_.progress.TextsOf(ProgressText::TotalLabel), (Names{"Total Progress:"}));
    EXPECT_EQ(
        host_.progress.TextsOf(ProgressText::FolderLine),
        (Names{"Current folder: a", "Current folder: b", "Subfolder: in", "Current folder: c"}));
    const double third = 100.0 / 3;
    // The third step would reach 101, so it is not made.
    EXPECT_EQ(host_.progress.totalValues,
              (std::vector<double>{1, 1 + third, 1 + third + third, 100}));
    EXPECT_EQ(host_.progress.unitValues.front(), 1);
    EXPECT_EQ(host_.progress.unitValues.at(1), 51);  // half of the files of a
    EXPECT_TRUE(std::ranges::all_of(host_.progress.unitValues,
                                    [](double value) { return value >= 0 && value <= 100; }));
}

TEST_F(FolderWalkTest, StopsAtTheFileWhereItIsCancelledAndLeavesNoFlagBehind) {
    AddFiles({"/p/a/1.c", "/p/a/2.c", "/p/a/3.c", "/p/b/4.c"});
    host_.PressCancelAt(2);
    host_.messages.Expect(StandardAnswer::Yes);
    EXPECT_EQ(ListAll("/p").entries, (Names{"a\\1.c", "a\\2.c"}));
    EXPECT_EQ(host_.messages.shown,
              (std::vector<ShownBox>{
                  {BoxKind::YesNo, "Import Code File",
                   "Some code has been imported.  Are you sure you want to stop? \r\n\r\n"
                   "           Click Yes to stop.  Click No to continue."}}));
    EXPECT_FALSE(state_.importCancelled);
    EXPECT_FALSE(host_.progress.IsOpen());
    EXPECT_LT(host_.progress.totalValues.back(), 100);
}

TEST_F(FolderWalkTest, NotesOnceWhatCannotBeListedAndGoesOn) {
    AddFiles({"/p/a/1.c", "/p/locked/2.c", "/p/z/3.c"});
    files_.unreadableFolders.insert("/p/locked");
    const UnlistedName odd{"x\\y.c", UnlistedReason::Backslash};
    files_.AddUnlisted("/p/a", odd);
    const WalkedFiles found = ListAll("/p");
    EXPECT_EQ(found.entries, (Names{"a\\1.c", "z\\3.c"}));
    ASSERT_EQ(found.problems.size(), 2U);
    EXPECT_EQ(found.problems[0], DescribeUnlisted(odd));
    EXPECT_NE(found.problems[1].find("/p/locked"), std::string::npos) << found.problems[1];
    EXPECT_TRUE(host_.messages.shown.empty());
}

TEST_F(FolderWalkTest, OfARootThatIsNotThereIsReportedAndClosesItsWindow) {
    EXPECT_TRUE(ListAll("/nowhere").entries.empty());
    ASSERT_EQ(host_.messages.shown.size(), 1U);
    EXPECT_NE(host_.messages.shown[0].text.find("QRT Error Code: 10992"), std::string::npos);
    EXPECT_FALSE(host_.progress.IsOpen());
}

TEST(FileLists, LoseExactlyTheEntriesOfSubfolders) {
    Names list{"a\\b.c", "c.c", "d\\", "e.c", "f\\g\\h.c"};
    RemoveSubfolderEntries(list);
    EXPECT_EQ(list, (Names{"c.c", "e.c"}));
}

TEST(FileLists, ShowAFoldersOwnFilesByThePatternInItsOrder) {
    FakeFileSystem files;
    for (const char* const path : {"/p/b.CS", "/p/a.bas", "/p/x.htm", "/p/sub/c.bas"})
        files.AddFile(path, "");
    files.AddUnlisted("/p", {"odd", UnlistedReason::DeadLink});
    const WalkedFiles list = ReadFileList(files, "/p", kListPattern);
    EXPECT_EQ(list.entries, (Names{"b.CS", "a.bas"}));
    EXPECT_EQ(list.problems.size(), 1U);
    Names target{"before.c"};
    CopyFileListEntries(list.entries, target);
    EXPECT_EQ(target, (Names{"before.c", "b.CS", "a.bas"}));
}

}  // namespace
}  // namespace snippetarium::test
