#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "keywords/noise_words.h"
#include "navigator/layout.h"
#include "support/procedure_numbers.h"

namespace snippetarium {

class Database;

/// The main window, as the program's start and end see it.
class ProgramWindow {
  public:
    virtual ~ProgramWindow() = default;

    /// The About window, not modal; painted when this returns.
    virtual void ShowSplash() = 0;
    virtual void CloseSplash() = 0;
    /// Checks or unchecks both Wrap commands.
    virtual void SetWrapCommands(bool wrap) = 0;
    /// Fills the contents tree (LoadContents).
    virtual void LoadContents() = 0;
    /// The last step of the index pane's own start.
    virtual void FinishIndexPane() = 0;
    /// Closes the main window, which ends the program.
    virtual void Close() = 0;

    /// The names of all forms but the main window that are open: "fContents".
    virtual std::vector<std::string> OpenForms() const = 0;
    /// Tells a pane that the whole program is ending, so that it neither hides itself nor asks.
    virtual void SetParentUnloading(std::string_view form) = 0;
    virtual void CloseForm(std::string_view form) = 0;
};

/// How far the program has come.
enum class RunState : std::uint8_t { Starting, Loading, Ready, ShuttingDown, Ended };

/// The program from its start to its end. The main window owns one, calls Start in its load handler
/// and ShutDown in its unload handler.
class ProgramRun {
  public:
    /// All outlive this.
    ProgramRun(Database& db, ProgramWindow& window, Layout& layout)
        : db_(db), window_(window), layout_(layout) {}

    /// The start, step by step: splash, catalogue, word tables, layout, Wrap commands, contents,
    /// panes, index. Where the catalogue cannot be opened, the user has been told why, and the
    /// window is closed.
    void Start();

    /// For the window's query-unload: tells the five panes that the program ends, and closes every
    /// form.
    void CloseForms();
    /// Saves the layout, closes the catalogue and the forms. The second call does nothing.
    void ShutDown();

    RunState State() const { return state_; }
    /// True while the contents tree is being filled; events may run meanwhile.
    bool IsLoading() const { return state_ == RunState::Loading; }
    bool ShutDownDone() const { return state_ == RunState::Ended; }
    /// Set by the opening of the catalogue when the database provider is missing.
    bool FatalStartError() const;

    /// For the keyword operations; loaded by Start.
    NoiseWords& Noise() { return noise_; }

  private:
    template <typename Body>
    void Stage(Procedure procedure, const Body& body);
    bool HasBegunToEnd() const { return state_ >= RunState::ShuttingDown; }

    Database& db_;
    ProgramWindow& window_;
    Layout& layout_;
    NoiseWords noise_;
    RunState state_ = RunState::Starting;
};

}  // namespace snippetarium
