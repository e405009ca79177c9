#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QTreeView>
#include <algorithm>

#include "forms/quick_hit_delegate.h"
#include "tests/forms/desktop_fixture.h"

namespace snippetarium::test {
namespace {

class QuickSearchFormTest : public DesktopFixture {
  protected:
    void SetUp() override {
        StartProgram();
        Get<QAction>("actQuickSearch").trigger();
        RunEvents();
    }

    QLineEdit& Line() { return Get<QLineEdit>("txtQuick"); }
    QListView& List() { return Get<QListView>("lstHits"); }
    /// What the list shows once the entry was typed and all is found.
    std::vector<std::string> Type(const char* entry) {
        Line().setText(entry);
        int quiet = 0;
        WaitUntil([&] { return ++quiet > 60; });
        std::vector<std::string> names;
        for (int row = 0; row < List().model()->rowCount(); ++row)
            names.push_back(List().model()->index(row, 0).data().toString().toStdString());
        return names;
    }
    std::string Selected() {
        return Get<QTreeView>("trVwClass").currentIndex().data().toString().toStdString();
    }
};

TEST_F(QuickSearchFormTest, ListsHitsAsOneTypesAndGoesToTheChosenOne) {
    EXPECT_TRUE(Line().hasFocus());
    EXPECT_EQ(Type("Draw77").front(), "Draw77");
    const std::vector<std::string> names = Type("name:(draw77");
    // Behind those with the word itself stand names that are a slip away.
    ASSERT_GT(names.size(), 11U);
    EXPECT_EQ(
        std::ranges::count_if(names, [](const auto& name) { return name.starts_with("Draw77"); }),
        11);
    EXPECT_TRUE(names[10].starts_with("Draw77"));
    EXPECT_EQ(List().currentIndex().row(), 0);
    PressKey(Line(), Qt::Key_Down);
    PressKey(Line(), Qt::Key_Down);
    PressKey(Line(), Qt::Key_Up);
    PressKey(Line(), Qt::Key_Return);
    EXPECT_FALSE(Line().isVisible());
    EXPECT_EQ(Selected(), names[1]);
    auto& page = Get<QPlainTextEdit>("txtPage");
    EXPECT_TRUE(page.hasFocus());
    ASSERT_FALSE(page.extraSelections().isEmpty());
    EXPECT_EQ(page.extraSelections().front().cursor.selectedText().toLower(), "draw77");
    // Enter right behind the last letter goes to what this entry finds, not to what is listed yet.
    Get<QAction>("actQuickSearch").trigger();
    Line().setText("Draw123");
    PressKey(Line(), Qt::Key_Return);
    WaitUntil([&] { return !Line().isVisible(); });
    EXPECT_EQ(Selected(), "Draw123");
}

TEST_F(QuickSearchFormTest, TellsOfMoreAndOfNothingAndFetchesMoreAtTheLastRow) {
    EXPECT_EQ(Type("name:draw").size(), 100U);
    EXPECT_EQ(Get<QLabel>("lblMore").text(), "and 900 more");
    for (int row = 0; row < 13; ++row)
        PressKey(Line(), Qt::Key_PageDown);
    WaitUntil([&] { return List().model()->rowCount() == 200; });
    EXPECT_EQ(Get<QLabel>("lblMore").text(), "and 800 more");
    EXPECT_TRUE(Type("nowhereatall").empty());
    EXPECT_EQ(Get<QLabel>("lblMore").text(), "Nothing found.");
    EXPECT_FALSE(List().isVisible());
    PressKey(Line(), Qt::Key_Return);
    EXPECT_TRUE(Line().isVisible());
}

TEST_F(QuickSearchFormTest, GoesAwayAtEscAndWhenTheFocusLeavesIt) {
    const std::string selected = Selected();
    Type("draw");
    PressKey(Line(), Qt::Key_Escape);
    EXPECT_FALSE(Line().isVisible());
    EXPECT_TRUE(Get<QPlainTextEdit>("txtPage").hasFocus());
    EXPECT_EQ(Selected(), selected);
    Get<QAction>("actQuickSearch").trigger();
    EXPECT_EQ(Line().selectedText(), "draw");
    Get<QTreeView>("trVwClass").setFocus();
    EXPECT_FALSE(Line().isVisible());
}

TEST(QuickHitLine, ShowsTheFirstMarkOfALongLineWithItsIndentationCut) {
    struct Row {
        MatchingLine line;
        std::string shown;
        std::vector<TextRange> marks;
    };
    const std::string front(60, 'x');
    const Row rows[] = {
        {{.text = "\t  Sub Draw", .matches = {{7, 4}}}, "Sub Draw", {{4, 8}}},
        {{.text = "ä𝄞 Draw", .matches = {{7, 4}}}, "ä𝄞 Draw", {{4, 8}}},
        {{.text = front + "Draw x", .matches = {{60, 4}}},
         "…" + front.substr(20) + "Draw x",
         {{41, 45}}},
        {{.text = "f(int x,\r\n\t  int y)", .matches = {{6, 7}, {12, 3}}},
         "f(int x, int y)",
         {{6, 9}, {8, 11}}},
        {{}, "", {}},
    };
    for (const Row& row : rows) {
        const MarkedLine line = ShownLine(row.line);
        EXPECT_EQ(line.text.toStdString(), row.shown);
        EXPECT_EQ(line.marks, row.marks) << row.shown;
    }
}

}  // namespace
}  // namespace snippetarium::test
