#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "cli/console.h"
#include "support/host.h"

namespace snippetarium {

/// Who answers the program's questions: the person at the terminal, or an option of the command
/// line once for all.
enum class QuestionPolicy { Ask, Yes, No };

/// Message boxes as lines on the terminal: "title: message".
///
/// A question that nobody can answer, because no option does and the input is no terminal, is
/// refused: it gets the answer that does least (Cancel where there is one, else No), a message says
/// so, and WasRefused turns true, so that the program can end with a failure.
class TerminalBoxes final : public MessageBoxes {
  public:
    TerminalBoxes(Console& console, QuestionPolicy policy) : console_(console), policy_(policy) {}

    void Information(std::string_view message, std::string_view title) override;
    void Warning(std::string_view message, std::string_view title) override;
    void Error(std::string_view message, std::string_view title) override;
    StandardAnswer YesNo(std::string_view question, std::string_view title) override;
    StandardAnswer YesNoCancel(std::string_view question, std::string_view title) override;
    SeriesAnswer Series(std::string_view question) override;

    bool WasRefused() const { return wasRefused_; }
    /// The text of the first error box that was shown, if any was.
    const std::optional<std::string>& FirstError() const { return firstError_; }
    /// The text of the last information box that was shown, if any was.
    const std::optional<std::string>& LastInformation() const { return lastInformation_; }

    /// Runs the handler of a pressed Cancel. The handler asks whether to stop; where that question
    /// cannot be put to a person, the press itself is the answer: yes.
    void AnswerCancelPress(const std::function<void()>& handler);

  private:
    template <typename Answer>
    struct Question;

    void Print(std::string_view message, std::string_view title);
    bool CanAsk() const { return policy_ == QuestionPolicy::Ask && console_.CanAsk(); }
    template <typename Answer>
    Answer Resolve(std::string_view text, std::string_view title, const Question<Answer>& question);
    template <typename Answer>
    Answer ReadAnswer(const Question<Answer>& question);

    Console& console_;
    QuestionPolicy policy_;
    bool wasRefused_ = false;
    std::optional<std::string> firstError_;
    std::optional<std::string> lastInformation_;
};

}  // namespace snippetarium
