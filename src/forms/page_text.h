#pragma once

#include "forms/coloured_text.h"
#include "navigator/page.h"

namespace snippetarium {

/// The text box of the page view. A source has the numbers of its lines, prose has none.
class PageText final : public ColouredText {
    Q_OBJECT

  public:
    using ColouredText::ColouredText;

    void ShowPage(const Page& page);
};

}  // namespace snippetarium
