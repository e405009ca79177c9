#include "forms/page_text.h"

#include <vector>

namespace snippetarium {

void PageText::ShowPage(const Page& page) {
    std::vector<TextRange> markers;
    for (const PageLink& link : page.links)
        markers.push_back(link.range);
    SetNumbered(page.languageID != 0);
    ShowText(page.text, page.languageID, markers);
}

}  // namespace snippetarium
