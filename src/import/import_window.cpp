#include "import/import_window.h"

#include "support/message_boxes.h"

namespace snippetarium {

namespace {

constexpr std::string_view kStopQuestion =
    "Some code has been imported.  Are you sure you want to stop? \r\n\r\n"
    "           Click Yes to stop.  Click No to continue.";

}  // namespace

ImportWindow::ImportWindow(const Host& host, ImportState& state, const Texts& texts) : host_(host) {
    host_.progress.Open(texts.title);
    host_.progress.SetUnitLabel(texts.unitLabel);
    host_.progress.SetTotalLabel("Total Progress:");
    host_.progress.SetCancelHandler([messages = &host_.messages, state = &state] {
        const StandardAnswer answer = AskYesNo(*messages, kStopQuestion, "Import Code File");
        state->importCancelled = answer == StandardAnswer::Yes;
    });
}

void ImportWindow::Close() {
    if (!isOpen_) return;
    isOpen_ = false;
    host_.progress.Close();
}

}  // namespace snippetarium
