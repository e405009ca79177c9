#pragma once

#include <memory>

#include "support/host.h"

namespace snippetarium {

class HelpWindow;

/// The help browser: one window, kept and used again.
class QtHelpBrowser final : public HelpBrowser {
  public:
    QtHelpBrowser();
    ~QtHelpBrowser() override;
    QtHelpBrowser(const QtHelpBrowser&) = delete;
    QtHelpBrowser& operator=(const QtHelpBrowser&) = delete;

    bool IsVisible() const override;
    void Create() override;
    void Navigate(std::string_view address) override;
    void Close();

  private:
    std::unique_ptr<HelpWindow> window_;
};

}  // namespace snippetarium
