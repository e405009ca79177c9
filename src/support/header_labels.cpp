#include "support/header_labels.h"

#include <algorithm>
#include <cstddef>

namespace snippetarium {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kLineBreak = "\r\n";

char ToLower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool EqualInAnyCase(char a, char b) {
    return ToLower(a) == ToLower(b);
}

/// The offset at or after `from` where the label occurs in any letter case. `from` may lie behind
/// the text's end.
std::size_t FindLabel(std::string_view text, std::string_view label, std::size_t from) {
    if (from >= text.size()) return kNone;
    const auto begin = text.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::search(begin, text.end(), label.begin(), label.end(), EqualInAnyCase);
    return found == text.end() ? kNone : static_cast<std::size_t>(found - text.begin());
}

/// Removes the comment that starts at the offset `quote` and ends with the CR LF at `lineBreak`.
void RemoveComment(std::string& text, std::size_t quote, std::size_t lineBreak) {
    const std::size_t bytesBehindReturn = text.size() - (lineBreak + 1);
    if (quote > 0 && bytesBehindReturn < 3) {
        text.erase(quote);
    } else {
        text.erase(quote, lineBreak + kLineBreak.size() - quote);
    }
}

}  // namespace

std::string RemoveTaggedCommentLines(std::string_view text) {
    std::string kept(text);
    const auto label = std::ranges::find_if(
        kHeaderLabels, [text](const HeaderLabel& entry) { return text.find(entry.text) != kNone; });
    if (label == kHeaderLabels.end()) return kept;

    // This ends: a turn either shortens the text or leaves it alone and moves the start forward.
    std::size_t from = 0;
    for (;;) {
        const std::size_t found = FindLabel(kept, label->text, from);
        if (found == kNone) return kept;
        const std::size_t quote = kept.rfind('\'', found);
        if (quote == kNone) {
            // No occurrence counts that comes before the text's first quote.
            from = kept.find('\'', found);
            if (from == kNone) return kept;
            continue;
        }
        const std::size_t lineBreak = kept.find(kLineBreak, quote);
        if (lineBreak == kNone) return kept;
        RemoveComment(kept, quote, lineBreak);
        from = lineBreak + 1;
    }
}

}  // namespace snippetarium
