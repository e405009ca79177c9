#include "cli/terminal_boxes.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace snippetarium {
namespace {

/// Boxes whose terminal types the given lines.
struct TypedBoxes {
    explicit TypedBoxes(const std::string& typed, QuestionPolicy policy = QuestionPolicy::Ask,
                        bool inputIsTerminal = true)
        : input(typed),
          console(input, error, {.input = inputIsTerminal, .error = false}),
          boxes(console, policy) {}

    std::istringstream input;
    std::ostringstream error;
    Console console;
    TerminalBoxes boxes;
};

TEST(TerminalBoxes, MessagesArePrintedBehindTheirTitles) {
    TypedBoxes terminal("");
    terminal.boxes.Information("One\r\ntwo", "Information");
    terminal.boxes.Warning("Careful", "Warning");
    terminal.boxes.Error("Broken", "Error");
    EXPECT_EQ(terminal.error.str(), "Information: One\ntwo\nWarning: Careful\nError: Broken\n");
}

TEST(TerminalBoxes, StandardQuestionsAreAnsweredByWhatIsTyped) {
    using enum StandardAnswer;
    const struct {
        std::string typed;
        StandardAnswer yesNo;
        StandardAnswer yesNoCancel;
    } cases[] = {
        {"y\n", Yes, Yes},
        {"n\n", No, No},
        {" YES \r\n", Yes, Yes},
        {"No", No, No},
        {"", No, Cancel},
        {"c\ny\n", Yes, Cancel},
        {"\nwhat\ny\n", Yes, Yes},
        {"cancel\n", No, Cancel},
        {"yes to all\nn\n", No, No},
        {"yn\nyess\n", No, Cancel},
    };
    for (const auto& [typed, yesNo, yesNoCancel] : cases) {
        TypedBoxes first(typed);
        EXPECT_EQ(first.boxes.YesNo("Go on?", "Q"), yesNo) << typed;
        TypedBoxes second(typed);
        EXPECT_EQ(second.boxes.YesNoCancel("Go on?", "Q"), yesNoCancel) << typed;
        EXPECT_FALSE(second.boxes.WasRefused());
    }
}

TEST(TerminalBoxes, ASeriesQuestionHasFiveAnswers) {
    using enum SeriesAnswer;
    const struct {
        std::string typed;
        SeriesAnswer expected;
    } cases[] = {
        {"y\n", Yes},
        {"yes\n", Yes},
        {"Yes to all\n", YesToAll},
        {"n\n", No},
        {"no\n", No},
        {"no to all\n", NoToAll},
        {"c\n", Cancel},
        {"all\nno  to all\nn\n", No},
        {"", Cancel},
    };
    for (const auto& [typed, expected] : cases) {
        TypedBoxes terminal(typed);
        EXPECT_EQ(terminal.boxes.Series("Overwrite a.bas?"), expected) << typed;
    }
}

TEST(TerminalBoxes, AnAnswerThatFitsNothingIsAskedForAgain) {
    TypedBoxes terminal("maybe\ny\n");
    terminal.boxes.YesNo("Go\r\non?", "Q");
    EXPECT_EQ(terminal.error.str(), "Q: Go\non?\n[y/n] [y/n] ");
}

TEST(TerminalBoxes, EachQuestionTakesOneAnswer) {
    TypedBoxes terminal("n\nno to all\ny");
    EXPECT_EQ(terminal.boxes.YesNo("First?", "Q"), StandardAnswer::No);
    EXPECT_EQ(terminal.boxes.Series("Second?"), SeriesAnswer::NoToAll);
    EXPECT_EQ(terminal.boxes.YesNoCancel("Third?", "Q"), StandardAnswer::Yes);
    EXPECT_EQ(terminal.boxes.YesNoCancel("Fourth?", "Q"), StandardAnswer::Cancel);
}

TEST(TerminalBoxes, AnEndOfInputTypedForOneQuestionDoesNotAnswerTheNext) {
    TypedBoxes terminal("");
    EXPECT_EQ(terminal.boxes.YesNo("First?", "Q"), StandardAnswer::No);
    terminal.input.str("y\n");
    EXPECT_EQ(terminal.boxes.YesNo("Second?", "Q"), StandardAnswer::Yes);
}

TEST(TerminalBoxes, AnOptionAnswersEveryQuestionAndTheAnswerIsShown) {
    TypedBoxes yes("n\n", QuestionPolicy::Yes);
    EXPECT_EQ(yes.boxes.YesNo("Go on?", "Q"), StandardAnswer::Yes);
    EXPECT_EQ(yes.boxes.YesNoCancel("Go on?", "Q"), StandardAnswer::Yes);
    EXPECT_EQ(yes.boxes.Series("Go on?"), SeriesAnswer::YesToAll);
    EXPECT_EQ(yes.error.str(),
              "Q: Go on?\nAnswered: yes\nQ: Go on?\nAnswered: yes\n"
              "Snippetarium Question: Go on?\nAnswered: yes\n");
    TypedBoxes no("y\n", QuestionPolicy::No, false);
    EXPECT_EQ(no.boxes.YesNo("Go on?", "Q"), StandardAnswer::No);
    EXPECT_EQ(no.boxes.YesNoCancel("Go on?", "Q"), StandardAnswer::No);
    EXPECT_EQ(no.boxes.Series("Go on?"), SeriesAnswer::NoToAll);
    EXPECT_FALSE(no.boxes.WasRefused());
}

TEST(TerminalBoxes, WithoutATerminalAQuestionIsRefusedWithTheSafestAnswer) {
    TypedBoxes script("y\n", QuestionPolicy::Ask, false);
    EXPECT_FALSE(script.boxes.WasRefused());
    EXPECT_EQ(script.boxes.YesNo("Go on?", "Q"), StandardAnswer::No);
    EXPECT_TRUE(script.boxes.WasRefused());
    EXPECT_EQ(script.boxes.YesNoCancel("Go on?", "Q"), StandardAnswer::Cancel);
    EXPECT_EQ(script.boxes.Series("Go on?"), SeriesAnswer::Cancel);
    EXPECT_NE(script.error.str().find("Q: Go on?\nNobody can be asked"), std::string::npos);
    EXPECT_NE(script.error.str().find("--yes or --no"), std::string::npos);
}

}  // namespace
}  // namespace snippetarium
