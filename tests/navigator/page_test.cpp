#include "navigator/page.h"

#include <string>

#include "editors/class_record.h"
#include "editors/code_record.h"
#include "navigator/page_history.h"
#include "tests/editors/editors_fixture.h"

namespace snippetarium::test {
namespace {

/// Application 2 with the Visual Basic class 2, its procedure 1 "Draw", and the Java class 3.
class PageTest : public EditorsFixture {
  protected:
    static std::string Heading(const Page& page) {
        std::string text;
        for (const HeadingLine& line : page.heading)
            text += std::string(line.label) + "=" + line.text + " " + line.targetKey + "\n";
        return text;
    }
    static std::string Links(const Page& page) {
        std::string links;
        for (const auto& [range, key] : page.links) {
            links += page.text.substr(range.begin, range.end - range.begin) + " -> " + key + "\n";
        }
        return links;
    }
};

TEST_F(PageTest, OfAProcedureHasItsHeadingItsCommentAndItsCode) {
    db_.GetConnection().RunScript(
        "UPDATE tblCode SET codeComment = '''Author: Ann Lee' || char(13, 10) || '''Draws the "
        "grid.', code = 'Sub Draw()' || char(13, 10) || 'End Sub' WHERE codeID = 1;"
        "INSERT INTO tblAuthor VALUES (1, 'Ann', '', 'Lee');"
        "INSERT INTO tbl_Author_Link VALUES (1, 1, 3);"
        "INSERT INTO tblOverlong VALUES (1, 3, 'code', ' rest');");
    const NodeIDs node{2, 2, 1};
    const Page page = ReadPage(db_, node);
    EXPECT_EQ(page.name, "Draw");
    EXPECT_EQ(Heading(page),
              "Kind=procedure \nApplication=App2 a2\nClass=Class2 a2f2\nLanguage=Visual Basic \n"
              "Authors=Ann Lee \nComment=Author: Ann Lee \n");
    EXPECT_EQ(page.text, "'Draws the grid.\nSub Draw()\nEnd Sub rest");
    EXPECT_EQ(page.languageID, 1);
    EXPECT_EQ(TextToCopy(db_, node),
              "'Author: Ann Lee\n'Draws the grid.\nSub Draw()\nEnd Sub rest");
}

TEST_F(PageTest, OfAClassHasItsMarkersAsLinks) {
    SaveCodeRecord(db_, {.name = "Draw (2)", .classID = 2, .code = "x"});
    const Page page = ReadPage(db_, {2, 2});
    EXPECT_EQ(page.text, "Option Explicit\n'***Procedure Draw***\n'***Procedure Draw (2)***\n");
    EXPECT_EQ(Links(page),
              "'***Procedure Draw*** -> a2f2c1\n'***Procedure Draw (2)*** -> a2f2c2\n");

    ExecuteSQL(db_,
               "UPDATE tblClass SET classDI = 'int a; /***Procedure f()***/ int b;', languageID = "
               "5, classComment = 'it''s Author: Ann' WHERE classID = 3");
    SaveCodeRecord(db_, {.name = "f()", .classID = 3, .code = "x"});
    const Page java = ReadPage(db_, {2, 3});
    EXPECT_EQ(java.text, "it's Author: Ann\nint a; /***Procedure f()***/ int b;");
    EXPECT_EQ(Links(java), "/***Procedure f()***/ -> a2f3c3\n");
}

TEST_F(PageTest, OfAnApplicationListsItsClasses) {
    ExecuteSQL(db_,
               "UPDATE tblApplication SET appComment = 'All of it', appVersion = '1.2' "
               "WHERE appID = 2");
    const Page page = ReadPage(db_, {2});
    EXPECT_EQ(Heading(page), "Kind=application \nVersion=1.2 \nComment=All of it \n");
    EXPECT_EQ(page.text,
              "All of it\n\nClasses:\n  Class2  (1 procedure)\n  Class3  (0 procedures)\n");
    // Of one name, they are told apart by their files.
    SaveClassRecord(db_, {.name = "class3", .appID = 2, .languageID = 1, .pathInApp = "b\\c.bas"});
    const std::string text = ReadPage(db_, {2}).text;
    EXPECT_NE(text.find("  class3  (0 procedures)  b/c.bas\n"), std::string::npos) << text;
    EXPECT_NE(text.find("  Class3  (0 procedures)\n"), std::string::npos) << text;
    EXPECT_EQ(Links(page), "Class2 -> a2f2\nClass3 -> a2f3\n");
    EXPECT_EQ(ReadPage(db_, {1}).name, "Application Undefined");
    EXPECT_EQ(ReadPage(db_, {9}).node, NodeIDs());
    EXPECT_EQ(ReadPage(db_, {2, 2, 9}).text, "");
}

TEST(PageHistory, GoesBackAndForwardAndForgetsWhatIsGone) {
    PageHistory history;
    EXPECT_FALSE(history.CanGoBack());
    EXPECT_EQ(history.Back(), NodeIDs());
    for (const std::int32_t appID : {2, 3, 3, 4})
        history.Visit({appID});
    EXPECT_EQ(history.Back(), (NodeIDs{3}));
    EXPECT_EQ(history.Back(), (NodeIDs{2}));
    EXPECT_FALSE(history.CanGoBack());
    EXPECT_EQ(history.Forward(), (NodeIDs{3}));
    history.Visit({2, 5, 6});
    EXPECT_FALSE(history.CanGoForward());
    history.Visit({3});
    history.Forget({2});  // 3, 3: one page is left of them
    EXPECT_EQ(history.Current(), (NodeIDs{3}));
    EXPECT_FALSE(history.CanGoBack());
    history.Visit({4});
    history.Back();
    history.Replace({3}, {4});
    EXPECT_EQ(history.Current(), (NodeIDs{4}));
    EXPECT_FALSE(history.CanGoForward());
    history.Forget({4});
    EXPECT_EQ(history.Current(), NodeIDs());
    for (std::int32_t appID = 1; appID <= 500; ++appID)
        history.Visit({appID});
    int steps = 0;
    for (; history.CanGoBack(); ++steps)
        history.Back();
    EXPECT_EQ(steps + 1, static_cast<int>(PageHistory::kMostPages));
}

}  // namespace
}  // namespace snippetarium::test
