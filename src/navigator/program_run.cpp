#include "navigator/program_run.h"

#include <algorithm>
#include <array>

#include "store/cut_short_imports.h"
#include "store/database.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

constexpr std::array<std::string_view, 5> kChildPanes = {"fContents", "fIndex", "fPage", "fSearch",
                                                         "fBookmark"};

}  // namespace

bool ProgramRun::FatalStartError() const {
    return db_.IsShuttingDown();
}

// The steps of the start and of the end are stages: when one fails, that is reported, and the next
// ones do what they can.
template <typename Body>
void ProgramRun::Stage(Procedure procedure, const Body& body) {
    GuardedStage(db_.Reporter(), procedure, body);
}

void ProgramRun::Start() {
    const auto stage = [this](const auto& body) { Stage(Procedure::StartProgram, body); };
    stage([&] { window_.ShowSplash(); });
    stage([&] { OpenCatalogue(db_); });
    if (FatalStartError() || !db_.GetConnection().IsOpen()) return window_.Close();
    // The tables of punctuation, procedure starts and header labels are constants; this one is the
    // user's.
    stage([&] { noise_ = LoadNoiseWords(db_); });
    stage([&] { layout_.Restore(); });
    if (FatalStartError()) return window_.Close();
    stage([&] { window_.SetWrapCommands(layout_.State().wrap); });
    state_ = RunState::Loading;
    stage([&] { window_.LoadContents(); });
    // Events ran while it loaded: the user may have closed the window.
    if (HasBegunToEnd()) return;
    stage([&] { window_.CloseSplash(); });
    stage([&] { layout_.Arrange(); });
    stage([&] { window_.FinishIndexPane(); });
    stage([&] { TellOfCutShortImports(db_); });
    state_ = RunState::Ready;
}

void ProgramRun::CloseForms() {
    Guarded(db_.Reporter(), Procedure::CloseForms, [&] {
        for (const std::string& form : window_.OpenForms()) {
            if (std::ranges::find(kChildPanes, form) != kChildPanes.end())
                window_.SetParentUnloading(form);
            window_.CloseForm(form);
        }
    });
}

void ProgramRun::ShutDown() {
    if (HasBegunToEnd()) return;
    state_ = RunState::ShuttingDown;
    const auto stage = [this](const auto& body) { Stage(Procedure::ShutDown, body); };
    stage([&] { layout_.Save(); });
    stage([&] { CloseCatalogue(db_); });
    stage([&] { CloseForms(); });
    state_ = RunState::Ended;
}

}  // namespace snippetarium
