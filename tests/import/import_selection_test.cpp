#include "import/import_selection.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "store/writes_applications.h"
#include "support/message_boxes.h"
#include "tests/fake_file_system.h"
#include "tests/store/catalogue_fixture.h"

namespace snippetarium::test {
namespace {

using Names = std::vector<std::string>;

TEST(LanguageTexts, NameEachLanguageOnceInTheOrderOfTheFiles) {
    // clang-format off
    const std::vector<std::pair<Names, std::string>> cases{
        {{"a.bas", "b.FRM", "c.cpp"},       "Visual Basic, C++"},
        {{"c.cpp", "sub\\a.bas"},           "C++, Visual Basic"},
        {{"a.c", "a.h", "b.c"},             "C, C/C++ Header"},
        // The text holds this name with a comma behind it already.
        {{"a.h", "b.hxx"},                  "C/C++ Header"},
        {{"b.hxx", "a.h"},                  "C++ Header, C/C++ Header"},
        // No name is a name like any other.
        {{"a.hpp"},                         ""},
        {{"a.hpp", "b.hpp", "c.bas"},       ", Visual Basic"},
        {{"c.bas", "a.hpp"},                "Visual Basic"},
        {{},                                ""},
    };
    // clang-format on
    for (const auto& [entries, text] : cases)
        EXPECT_EQ(LanguageText(entries), text) << ::testing::PrintToString(entries);
}

class ImportSelectionTest : public OpenCatalogueFixture {
  protected:
    ImportSelectionTest() {
        for (const char* const path :
             {"/home/ann/Paint/Main.frm", "/home/ann/Paint/Tool.bas", "/home/ann/Paint/x.cs",
              "/home/ann/Paint/sub/Grid.cpp", "/home/ann/Tides/Tide.bas"})
            files_.AddFile(path, "x");
    }
    void TakePaint() { EXPECT_TRUE(selection_.ChangeFolder("/home/ann/Paint")); }
    void Add(std::vector<std::size_t> chosen) { selection_.AddOne(chosen); }
    void Remove(std::vector<std::size_t> chosen) { selection_.RemoveOne(chosen); }

    FakeFileSystem files_;
    ImportState state_;
    ImportSelection selection_{db_, files_, state_};
};

TEST_F(ImportSelectionTest, TakesAFolderWithItsOwnFiles) {
    EXPECT_EQ(selection_.EnabledButtons(), (MoveButtons{false, false, false, false}));
    TakePaint();
    EXPECT_EQ(selection_.Folder(), "/home/ann/Paint");
    EXPECT_EQ(selection_.SourceFiles(), (Names{"Main.frm", "Tool.bas", "x.cs"}));
    EXPECT_EQ(selection_.Texts().applicationPath, "/home/ann/Paint");
    EXPECT_EQ(selection_.Texts().application, "");
    EXPECT_EQ(selection_.EnabledButtons(), (MoveButtons{true, true, false, false}));
}

TEST_F(ImportSelectionTest, MovesEntriesAndFillsTheTextsAlong) {
    TakePaint();
    Add({2, 0});
    EXPECT_EQ(selection_.SourceFiles(), (Names{"Tool.bas"}));
    EXPECT_EQ(selection_.SelectedFiles(), (Names{"Main.frm", "x.cs"}));
    EXPECT_EQ(selection_.Texts().language, "Visual Basic, C#");
    EXPECT_EQ(selection_.Texts().application, "Paint");
    EXPECT_EQ(selection_.EnabledButtons(), (MoveButtons{true, true, true, true}));

    Remove({0});
    EXPECT_EQ(selection_.SourceFiles(), (Names{"Tool.bas", "Main.frm"}));
    EXPECT_EQ(selection_.Texts().language, "C#");
    selection_.AddAll();
    EXPECT_EQ(selection_.EnabledButtons(), (MoveButtons{false, false, true, true}));
    selection_.RemoveAll();
    EXPECT_EQ(selection_.SourceFiles(), (Names{"x.cs", "Tool.bas", "Main.frm"}));
    EXPECT_EQ(selection_.Texts().language, "");
    EXPECT_EQ(selection_.EnabledButtons(), (MoveButtons{true, true, false, false}));
}

TEST_F(ImportSelectionTest, NamesTheApplicationByItsPathInTheCatalogueFirst) {
    AddApplication(db_, {.name = "Paint Shop", .path = "\\home\\ann\\Paint"});
    TakePaint();
    Add({0});
    EXPECT_EQ(selection_.Texts().application, "Paint Shop");
    selection_.Texts().application = "Mine";
    Add({0});
    EXPECT_EQ(selection_.Texts().application, "Mine");
}

TEST_F(ImportSelectionTest, AsksBeforeASelectionIsLost) {
    TakePaint();
    Add({0});
    host_.messages.Expect(StandardAnswer::No);
    EXPECT_FALSE(selection_.ChangeFolder("/home/ann/Tides"));
    const ShownBox question = TakeBox();
    EXPECT_EQ(question.kind, BoxKind::YesNo);
    EXPECT_EQ(question.title, "Snippetarium Question");
    EXPECT_TRUE(question.text.starts_with("Snippetarium must store application name for the code"));
    EXPECT_EQ(selection_.Folder(), "/home/ann/Paint");
    EXPECT_EQ(selection_.SelectedFiles(), (Names{"Main.frm"}));

    // The folder list goes back, which is no other folder and asks nothing.
    EXPECT_TRUE(selection_.ChangeFolder("/home/ann/Paint"));
    EXPECT_EQ(selection_.SelectedFiles(), (Names{"Main.frm"}));
    EXPECT_EQ(selection_.SourceFiles(), (Names{"Tool.bas", "x.cs"}));

    host_.messages.Expect(StandardAnswer::Yes);
    EXPECT_TRUE(selection_.ChangeFolder("/home/ann/Tides"));
    TakeBox();
    EXPECT_EQ(selection_.SelectedFiles(), Names{});
    EXPECT_EQ(selection_.SourceFiles(), (Names{"Tide.bas"}));
    EXPECT_EQ(selection_.Texts().application, "");
    EXPECT_EQ(selection_.Texts().language, "");
    EXPECT_EQ(selection_.Texts().applicationPath, "/home/ann/Tides");
}

TEST_F(ImportSelectionTest, StaysWhereItIsWhenAFolderCannotBeRead) {
    TakePaint();
    EXPECT_FALSE(selection_.ChangeFolder("/home/bob"));
    EXPECT_NE(TakeBox().text.find("/home/bob"), std::string::npos);
    EXPECT_EQ(selection_.Folder(), "/home/ann/Paint");
    EXPECT_EQ(selection_.SourceFiles().size(), 3U);
}

TEST_F(ImportSelectionTest, ListsEveryNameOnceHoweverTheBoxesWereChecked) {
    TakePaint();
    const Names own{"Main.frm", "Tool.bas", "x.cs"};
    const Names all{"Main.frm", "Tool.bas", "x.cs", "sub\\Grid.cpp"};
    selection_.Texts().applicationPath = "elsewhere";
    selection_.SetIncludeSubfolder(true);
    EXPECT_EQ(selection_.SourceFiles(), all);
    EXPECT_EQ(selection_.Texts().applicationPath, "/home/ann/Paint");
    selection_.SetIncludeSubfolder(true);
    EXPECT_EQ(selection_.SourceFiles(), all);
    selection_.Texts().applicationPath = "elsewhere";
    selection_.SetIncludeSubfolder(false);
    EXPECT_EQ(selection_.SourceFiles(), own);
    EXPECT_EQ(selection_.Texts().applicationPath, "elsewhere");

    selection_.SetIncludeSubfolder(true);
    Add({0, 3});
    selection_.SetIncludeSubfolder(false);
    selection_.SetIncludeSubfolder(true);
    EXPECT_EQ(selection_.SourceFiles(), (Names{"Tool.bas", "x.cs"}));
    EXPECT_EQ(selection_.SelectedFiles(), (Names{"Main.frm", "sub\\Grid.cpp"}));
}

TEST_F(ImportSelectionTest, HidesASelectedNameInAnyLetterCase) {
    files_.AddFile("/home/ann/Twins/a.c", "x");
    EXPECT_TRUE(selection_.ChangeFolder("/home/ann/Twins"));
    Add({0});
    files_.AddFile("/home/ann/Twins/A.C", "x");
    EXPECT_TRUE(selection_.ChangeFolder("/home/ann/Twins"));
    EXPECT_EQ(selection_.SourceFiles(), Names{});
}

TEST_F(ImportSelectionTest, TakesWhatIsDroppedBelowTheFolderThatHoldsItAll) {
    files_.AddFile("/opt/a.bas", "x");
    files_.AddFile("/srv/b.bas", "x");
    struct {
        Names dropped;
        std::string folder;
        Names selected;
        // clang-format off
    } const cases[] = {
        {{"/home/ann/Paint/sub", "/home/ann/Paint/x.cs"}, "/home/ann/Paint", {"sub\\Grid.cpp", "x.cs"}},
        {{"/home/ann/Paint/sub", "/home/ann/Tides/Tide.bas"}, "/home/ann", {"Paint\\sub\\Grid.cpp", "Tides\\Tide.bas"}},
        {{"/opt/a.bas", "/srv/b.bas", "/srv"}, "/", {"opt\\a.bas", "srv\\b.bas"}},
    };
    // clang-format on
    for (const auto& [dropped, folder, selected] : cases) {
        ImportSelection selection(db_, files_, state_);
        EXPECT_TRUE(selection.Drop(dropped));
        EXPECT_EQ(selection.Folder(), folder);
        EXPECT_EQ(selection.SelectedFiles(), selected);
    }
}

TEST_F(ImportSelectionTest, ForgetsThatADroppedListingWasCancelledHoweverItEnded) {
    TakePaint();
    host_.events.At(host_.events.yields + 1, [&] {
        state_.importCancelled = true;
        throw std::runtime_error("The window is gone.");
    });
    EXPECT_FALSE(selection_.Drop(Names{"/home/ann/Paint/sub"}));
    TakeBox();
    EXPECT_TRUE(selection_.SetIncludeSubfolder(true));
    EXPECT_EQ(selection_.SourceFiles().size(), 4U);
}

TEST_F(ImportSelectionTest, DoesNotListAnewWhileTheProgressWindowIsOpen) {
    TakePaint();
    host_.progress.Open("a walk");
    selection_.SetIncludeSubfolder(true);
    EXPECT_EQ(selection_.SourceFiles().size(), 3U);
    EXPECT_EQ(host_.progress.opened.size(), 1U);
    host_.progress.Close();
}

TEST_F(ImportSelectionTest, KeepsWhatCannotBeListedForTheReport) {
    files_.AddUnlisted("/home/ann/Paint", {"own", UnlistedReason::DeadLink});
    files_.AddUnlisted("/home/ann/Paint/sub", {"below", UnlistedReason::DeadLink});
    TakePaint();
    EXPECT_EQ(selection_.Problems().size(), 1U);
    selection_.SetIncludeSubfolder(true);
    EXPECT_EQ(selection_.Problems().size(), 2U);
    selection_.SetIncludeSubfolder(true);
    EXPECT_EQ(selection_.Problems().size(), 2U);
    EXPECT_TRUE(selection_.ChangeFolder("/home/ann/Tides"));
    EXPECT_EQ(selection_.Problems().size(), 0U);
}

}  // namespace
}  // namespace snippetarium::test
