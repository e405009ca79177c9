#pragma once

#include <functional>
#include <string_view>

#include "support/host.h"

class QWidget;

namespace snippetarium {

class ErrorReporter;

/// Message boxes as windows over the one that is active. Texts are shown as they are: a name that
/// looks like markup is no markup.
class QtMessageBoxes final : public MessageBoxes {
  public:
    QtMessageBoxes() = default;
    QtMessageBoxes(const QtMessageBoxes&) = delete;
    QtMessageBoxes& operator=(const QtMessageBoxes&) = delete;

    /// The reporter counts events that run while a box is up; it is made of these boxes, and so
    /// comes later.
    void SetReporter(ErrorReporter& reporter) { reporter_ = &reporter; }
    /// Opens the help for the window of a series of questions.
    void SetOpenHelp(std::function<void(std::string_view topic)> openHelp) {
        openHelp_ = std::move(openHelp);
    }

    /// Called before each box and question.
    void SetPreparation(std::function<void()> prepare) { prepare_ = std::move(prepare); }

    void Information(std::string_view message, std::string_view title) override;
    void Warning(std::string_view message, std::string_view title) override;
    void Error(std::string_view message, std::string_view title) override;
    StandardAnswer YesNo(std::string_view question, std::string_view title) override;
    StandardAnswer YesNoCancel(std::string_view question, std::string_view title) override;
    SeriesAnswer Series(std::string_view question) override;

  private:
    struct Box;
    int Show(const Box& box);
    void Prepare() const;

    ErrorReporter* reporter_ = nullptr;
    std::function<void(std::string_view)> openHelp_;
    std::function<void()> prepare_;
};

}  // namespace snippetarium
