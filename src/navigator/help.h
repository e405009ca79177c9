#pragma once

#include <span>
#include <string_view>

namespace snippetarium {

class Database;

/// Where a window's Help button and F1 lead.
struct HelpAnchor {
    /// The form's name: "fConfigure".
    std::string_view form;
    /// An anchor of the help page: "UseSetPosition".
    std::string_view anchor;
};

/// Every form that has help, in the order of their names.
std::span<const HelpAnchor> HelpAnchors();
/// Empty for a form without one of its own: the help page's beginning.
std::string_view AnchorOf(std::string_view form);

/// Shows the help page at the anchor, or its beginning for an empty one, in the help window, which
/// is opened where it is not. The address is the program folder with "\help\default.htm" and, for
/// an anchor, "#" and that behind it; turning it into the platform's is the window's matter.
void OpenHelp(Database& db, std::string_view topic);

}  // namespace snippetarium
