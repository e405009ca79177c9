#pragma once

#include <string_view>

#include "import/import_state.h"
#include "support/host.h"

namespace snippetarium {

/// The progress window as the import and its folder walk use it. Its Cancel button asks whether to
/// stop; the answer, yes or no, is whether the import is cancelled.
class ImportWindow {
  public:
    struct Texts {
        std::string_view title;
        std::string_view unitLabel;
    };

    /// Opens the window. The state must outlive it.
    ImportWindow(const Host& host, ImportState& state, const Texts& texts);
    ~ImportWindow() { Close(); }
    ImportWindow(const ImportWindow&) = delete;
    ImportWindow& operator=(const ImportWindow&) = delete;

    void Close();

  private:
    Host host_;
    bool isOpen_ = true;
};

}  // namespace snippetarium
