#pragma once

#include "forms/qt_events.h"
#include "forms/qt_help_browser.h"
#include "forms/qt_message_boxes.h"
#include "forms/qt_progress.h"
#include "support/error_reporter.h"
#include "support/host.h"
#include "support/system_clock.h"

namespace snippetarium {

/// The world of a program that runs on a desktop, and the reporter that shows failures there.
class QtHost {
  public:
    QtHost() { boxes_.SetReporter(reporter_); }
    QtHost(const QtHost&) = delete;
    QtHost& operator=(const QtHost&) = delete;

    Host Interfaces() { return {boxes_, progress_, events_, clock_, help_, reporter_}; }

    QtMessageBoxes& Boxes() { return boxes_; }
    QtProgress& ProgressWindows() { return progress_; }
    QtEvents& Events() { return events_; }
    QtHelpBrowser& Help() { return help_; }

  private:
    SystemClock clock_;
    QtMessageBoxes boxes_;
    ErrorReporter reporter_{boxes_};
    QtProgress progress_{clock_};
    QtEvents events_{progress_, reporter_, clock_};
    QtHelpBrowser help_;
};

}  // namespace snippetarium
