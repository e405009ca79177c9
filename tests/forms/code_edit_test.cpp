#include "forms/code_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QTextBlock>
#include <QUrl>
#include <QVBoxLayout>
#include <random>

#include "tests/forms/form_driver.h"

namespace snippetarium::test {
namespace {

constexpr std::int32_t kVisualBasic = 1;
constexpr std::int32_t kCpp = 4;

class CodeEditTest : public ::testing::Test {
  protected:
    CodeEditTest() {
        edit_.resize(700, 500);
        edit_.show();
        RunEvents();
    }

    void Select(int from, int to) {
        QTextCursor cursor = edit_.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        edit_.setTextCursor(cursor);
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               const QString& text = {}) {
        PressKey(edit_, key, modifiers, text);
    }
    std::string Text() const { return edit_.toPlainText().toStdString(); }

    /// Each coloured piece of a line, as "first+length colour".
    static std::string ColoursOf(const QTextBlock& line) {
        std::string colours;
        for (const QTextLayout::FormatRange& range : line.layout()->formats()) {
            colours += std::to_string(range.start) + "+" + std::to_string(range.length) +
                       range.format.foreground().color().name().toStdString() + " ";
        }
        return colours;
    }
    static std::vector<std::string> ColoursOf(const CodeEdit& edit) {
        std::vector<std::string> colours;
        for (QTextBlock line = edit.document()->begin(); line.isValid(); line = line.next())
            colours.push_back(ColoursOf(line));
        return colours;
    }

    CodeEdit edit_{nullptr};
};

TEST_F(CodeEditTest, MovesLinesByTabAndKeepsTheIndentationAtEnter) {
    struct Case {
        const char* text;
        int from;
        int to;
        int key;
        const char* expected;
    };
    const Case cases[] = {
        {"ab", 0, 0, Qt::Key_Tab, "    ab"},
        {"ab", 1, 1, Qt::Key_Tab, "a   b"},
        {"\tx\nab", 4, 4, Qt::Key_Tab, "\tx\na\tb"},
        {"a\nb\nc", 0, 3, Qt::Key_Tab, "    a\n    b\nc"},
        // A selection of whole lines ends where the next line begins.
        {"a\nb\nc", 0, 4, Qt::Key_Tab, "    a\n    b\nc"},
        {"a\n\nc", 0, 4, Qt::Key_Tab, "    a\n\n    c"},
        {"\ta\nb", 0, 4, Qt::Key_Tab, "\t\ta\n\tb"},
        {"    a\n  b\n\t\tc\nd", 0, 14, Qt::Key_Backtab, "a\nb\n\tc\nd"},
        {"      a", 7, 7, Qt::Key_Backtab, "  a"},
        {"a", 0, 1, Qt::Key_Backtab, "a"},
        {"  a", 3, 3, Qt::Key_Return, "  a\n  "},
        {"\t a b", 4, 4, Qt::Key_Return, "\t a \n\t b"},
        {"  a", 1, 1, Qt::Key_Return, " \n  a"},
        {"  abc", 3, 5, Qt::Key_Enter, "  a\n  "},
    };
    for (const Case& row : cases) {
        edit_.SetCode("");
        edit_.SetCode(QString(row.text).replace("\n", "\r\n").toStdString());
        Select(row.from, row.to);
        Press(row.key);
        EXPECT_EQ(Text(), row.expected) << row.text << " " << row.key;
        edit_.undo();
        EXPECT_EQ(Text(), row.text) << "one step takes it back";
    }
}

TEST_F(CodeEditTest, KeepsWholeLinesSelectedSoThatTabCanBeRepeated) {
    edit_.SetCode("a\r\nb\r\nc");
    Select(0, 3);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Backtab);
    EXPECT_EQ(Text(), "    a\n    b\nc");
}

TEST_F(CodeEditTest, GivesBackEachCharacterThatWasNotTouched) {
    const std::string odd =
        "a\xC2\xA0"
        "b\r\nlone\rbreak\xE2\x80\xA8"
        "soft\xE2\x80\xA9paragraph\r\n\xF4\x8F\xB8\x80\tend\r\n";
    edit_.SetCode(odd);
    EXPECT_EQ(edit_.Code(), odd);
    edit_.moveCursor(QTextCursor::Start);
    Press(Qt::Key_X, Qt::NoModifier, "x");
    const std::string typed = edit_.Code();
    EXPECT_EQ(typed.substr(0, 7),
              "xa\xC2\xA0"
              "b\r\n");
    EXPECT_NE(typed.find("\xE2\x80\xA8soft"), std::string::npos);
    EXPECT_EQ(typed.substr(typed.size() - 10), "\xF4\x8F\xB8\x80\tend\r\n");
    edit_.undo();
    EXPECT_EQ(edit_.Code(), odd);
    // Showing again what is shown leaves the cursor and what can be undone.
    edit_.SetCode("one\r\ntwo");
    Select(4, 4);
    Press(Qt::Key_X, Qt::NoModifier, "x");
    edit_.SetCode("one\r\nxtwo");
    EXPECT_EQ(edit_.textCursor().position(), 5);
    edit_.undo();
    EXPECT_EQ(edit_.Code(), "one\r\ntwo");
}

TEST_F(CodeEditTest, HasTheColoursOfItsTextAfterAnyChange) {
    constexpr const char* kPieces[] = {"int ", "/*", "*/", "\"", "x = 1;\n", "// c\n", "{", "}\n"};
    std::mt19937 random(7);
    const auto below = [&random](std::size_t end) { return static_cast<int>(random() % end); };
    edit_.SetLanguage(kCpp);
    edit_.SetCode("int Area(int x) {\r\n    return x * 2; // twice\r\n}\r\n");
    for (int change = 0; change < 60; ++change) {
        const int length = edit_.document()->characterCount() - 1;
        const int from = below(static_cast<std::size_t>(length) + 1);
        Select(from, change % 3 == 0 ? below(static_cast<std::size_t>(length) + 1) : from);
        edit_.textCursor().insertText(kPieces[below(std::size(kPieces))]);
        if (change % 7 == 6) edit_.undo();
        if (change % 5 != 4) continue;
        CodeEdit fresh(nullptr);
        fresh.resize(700, 4000);
        fresh.show();
        edit_.resize(700, 4000);
        fresh.SetLanguage(kCpp);
        fresh.SetCode(edit_.Code());
        const auto expected = ColoursOf(fresh);
        ASSERT_TRUE(WaitUntil([&] { return ColoursOf(edit_) == expected; })) << Text();
    }
}

TEST_F(CodeEditTest, MovesColoursAtOnceWhileANewReadingWaits) {
    edit_.SetLanguage(kVisualBasic);
    edit_.SetCode("x = 1 ' note\r\nDim y");
    const std::string before = ColoursOf(edit_.document()->lastBlock());
    ASSERT_EQ(before.substr(0, 3), "0+3");
    Select(14 - 1, 14 - 1);
    edit_.textCursor().insertText("  ");
    EXPECT_EQ(ColoursOf(edit_.document()->lastBlock()).substr(0, 3), "2+3");
}

TEST_F(CodeEditTest, TakesPastedTextAndHandsFilesOn) {
    int filled = 0;
    QStringList files;
    QObject::connect(&edit_, &CodeEdit::Filled, [&] { ++filled; });
    QObject::connect(&edit_, &CodeEdit::FileDropped,
                     [&](const QString& path) { files.push_back(path); });
    QApplication::clipboard()->setText("Dim x\nDim y");
    edit_.paste();
    EXPECT_EQ(edit_.Code(), "Dim x\r\nDim y");
    edit_.paste();
    EXPECT_EQ(filled, 1) << "only where the editor was empty";
    auto* const file = new QMimeData;
    file->setUrls({QUrl("https://example.org/x"), QUrl::fromLocalFile("/tmp/a b.bas")});
    QApplication::clipboard()->setMimeData(file);
    edit_.paste();
    EXPECT_EQ(files, QStringList{"/tmp/a b.bas"});
    EXPECT_EQ(edit_.Code(), "Dim x\r\nDim yDim x\r\nDim y");
    edit_.ReplaceCode("new");
    EXPECT_EQ(edit_.Code(), "new");
    edit_.undo();
    EXPECT_EQ(edit_.Code(), "Dim x\r\nDim yDim x\r\nDim y");
}

TEST_F(CodeEditTest, LetsTheKeyboardLeaveIt) {
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    auto* const above = new QLineEdit;
    auto* const edit = new CodeEdit(nullptr);
    auto* const below = new QLineEdit;
    for (QWidget* control : std::initializer_list<QWidget*>{above, edit, below})
        layout->addWidget(control);
    window.show();
    window.activateWindow();
    RunEvents();
    edit->setFocus();
    PressKey(*edit, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(window.focusWidget(), below);
    edit->setFocus();
    PressKey(*edit, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window.focusWidget(), above);
    EXPECT_EQ(edit->toPlainText(), "");
}

}  // namespace
}  // namespace snippetarium::test
