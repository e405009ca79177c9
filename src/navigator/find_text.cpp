#include "navigator/find_text.h"

#include "store/database.h"
#include "support/case_fold.h"
#include "support/message_boxes.h"
#include "support/text.h"

namespace snippetarium {

namespace {

/// Every character beyond ASCII counts as a letter.
bool IsWordPart(char character) {
    return IsAlphanumeric(character) || character == '_' ||
           static_cast<unsigned char>(character) >= 0x80U;
}

/// Finds one text in a page. Folding keeps the length of every character, so places in the folded
/// page are places in the page.
class Finder {
  public:
    Finder(std::string_view page, const FindRequest& request)
        : page_(request.matchCase ? std::string(page) : FoldCase(page)),
          text_(request.matchCase ? request.text : FoldCase(request.text)),
          wholeWord_(request.wholeWord) {}

    std::optional<TextRange> From(std::size_t from) const {
        if (text_.empty()) return std::nullopt;
        for (std::size_t at = page_.find(text_, from); at != std::string::npos;
             at = page_.find(text_, at + 1)) {
            if (!wholeWord_ || IsWholeWord(at)) return TextRange{at, at + text_.size()};
        }
        return std::nullopt;
    }

  private:
    bool IsWholeWord(std::size_t begin) const {
        const std::size_t end = begin + text_.size();
        return (begin == 0 || !IsWordPart(page_[begin - 1])) &&
               (end == page_.size() || !IsWordPart(page_[end]));
    }

    std::string page_;
    std::string text_;
    bool wholeWord_;
};

}  // namespace

std::vector<TextRange> FindAll(std::string_view page, const FindRequest& request) {
    const Finder finder(page, request);
    std::vector<TextRange> matches;
    for (auto match = finder.From(0); match; match = finder.From(match->end)) {
        matches.push_back(*match);
        if (matches.size() == kMostMatches) break;
    }
    return matches;
}

std::optional<FoundText> FindNext(std::string_view page, const FindRequest& request,
                                  std::size_t from) {
    const Finder finder(page, request);
    if (const auto match = finder.From(from)) return FoundText{*match};
    if (const auto match = finder.From(0)) return FoundText{*match, true};
    return std::nullopt;
}

void TellNotFound(Database& db) {
    ShowInformation(db.GetHost().messages, "Search string not found.", kInformationTitle);
}

}  // namespace snippetarium
