#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace snippetarium {

/// The terminal as the host uses it: the standard error for everything that is told or asked, since
/// the standard output belongs to a command's result, and the standard input for answers.
///
/// Where the standard error is a terminal, its last line may be a status line. Whatever is printed
/// meanwhile takes the status line away first.
class Console {
  public:
    /// What is known of the streams: whether a person sits at the other end.
    struct Terminals {
        bool input = false;
        bool error = false;
        /// Of the standard output, which the console leaves to the command's result.
        bool output = false;
    };

    /// The streams must live longer than the console.
    Console(std::istream& input, std::ostream& error, Terminals terminals)
        : input_(input), error_(error), terminals_(terminals) {}
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Which of this process's streams are terminals. One that calls itself dumb cannot rewrite a
    /// line and so counts as a file for what is shown.
    static Terminals OfProcess();

    bool CanAsk() const { return terminals_.input; }
    bool CanShowStatus() const { return terminals_.error; }

    /// Prints a text whose lines may end in CR LF, and a line break behind it.
    void PrintLine(std::string_view text);
    /// Prints a prompt, without a line break, and reads one line. False at the end of the input.
    bool Ask(std::string_view prompt, std::string& answer);

    /// Shows the line in place of the last status line. A terminal too narrow for it shows its
    /// beginning.
    void ShowStatus(std::string_view line);
    void ClearStatus();

  private:
    std::istream& input_;
    std::ostream& error_;
    Terminals terminals_;
    bool statusIsShown_ = false;
};

/// The text with the terminal's line ends, and with every other control character (but the tab) and
/// every byte that is no UTF-8 turned into "?": file names and code come from anywhere and must not
/// steer the terminal.
std::string TerminalText(std::string_view text);

}  // namespace snippetarium
