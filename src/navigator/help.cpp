#include "navigator/help.h"

#include <algorithm>
#include <array>
#include <string>

#include "store/database.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr std::array kAnchors = {
    HelpAnchor{"fAbout",          "UseAbout"},
    HelpAnchor{"fAddClass",       "UseAddExistingClass"},
    HelpAnchor{"fAddCode",        "UseAddExistingProcedure"},
    HelpAnchor{"fAddDate",        "UseDates"},
    HelpAnchor{"fApplication",    "UseEditApplication"},
    HelpAnchor{"fAuthors",        "UseAuthors"},
    HelpAnchor{"fBookmark",       "UseBookmarks"},
    HelpAnchor{"fCalendar",       "UseDates"},
    HelpAnchor{"fClass",          "UseEditClass"},
    HelpAnchor{"fCode",           "UseEditProcedure"},
    HelpAnchor{"fCommonWord",     "UseNoiseWords"},
    HelpAnchor{"fConfigure",      "UseSetPosition"},
    HelpAnchor{"fContents",       "UseContents"},
    HelpAnchor{"fDrafts",         "UseDrafts"},
    HelpAnchor{"fEditSearchWord", "UseEditIndex"},
    HelpAnchor{"fExport",         "UseReuseExport"},
    HelpAnchor{"fFind",           "UseFind"},
    HelpAnchor{"fImport",         "UseImport"},
    HelpAnchor{"fIndex",          "UseIndex"},
    HelpAnchor{"fKeywords",       "UseKeywords"},
    HelpAnchor{"fLanguage",       "UseLanguages"},
    HelpAnchor{"fLogError",       "UseReports"},
    HelpAnchor{"fMain",           "UseMainWindow"},
    HelpAnchor{"fMsgBox",         "UseReuseExport"},
    HelpAnchor{"fPage",           "UsePage"},
    HelpAnchor{"fPrgrCancel",     "UseProgress"},
    HelpAnchor{"fProgressBar1",   "UseProgress"},
    HelpAnchor{"fProgressBar2",   "UseProgress"},
    HelpAnchor{"fQuickSearch",    "UseQuickSearch"},
    HelpAnchor{"fSaveTo",         "UseReuseExport"},
    HelpAnchor{"fSearch",         "UseSearch"},
    HelpAnchor{"fSlctLanguage",   "UseSelectLanguage"},
    HelpAnchor{"fTopicsFound",    "UseTopicsFound"},
    HelpAnchor{"fTrash",          "UseTrash"},
    HelpAnchor{"fZoom",           "UseZoom"},
};
// clang-format on
static_assert(std::ranges::is_sorted(kAnchors, {}, &HelpAnchor::form));

}  // namespace

std::span<const HelpAnchor> HelpAnchors() {
    return kAnchors;
}

std::string_view AnchorOf(std::string_view form) {
    const auto found = std::ranges::lower_bound(kAnchors, form, {}, &HelpAnchor::form);
    return found != kAnchors.end() && found->form == form ? found->anchor : std::string_view();
}

void OpenHelp(Database& db, std::string_view topic) {
    Guarded(db.Reporter(), Procedure::OpenHelp, [&] {
        std::string address = db.ProgramFolder() + "\\help\\default.htm";
        if (!topic.empty()) address.append("#").append(topic);
        HelpBrowser& browser = db.GetHost().help;
        if (!browser.IsVisible()) browser.Create();
        browser.Navigate(address);
    });
}

}  // namespace snippetarium
