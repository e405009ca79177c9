#include "keywords/words.h"

#include <algorithm>
#include <cstddef>
#include <unordered_set>

#include "keywords/punctuation.h"
#include "support/case_fold.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::string_view kDoubledQuote = "''";

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Takes off the text the digits that it begins with; returns how many.
std::size_t TakeDigits(std::string_view& text) {
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count]))
        ++count;
    text.remove_prefix(count);
    return count;
}

void TakeSign(std::string_view& text) {
    if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
}

bool IsSearchWord(std::string_view word, const NoiseWords& noise) {
    return !word.empty() && !IsDigit(word.front()) && !IsNumeric(word) && !noise.IsNoiseWord(word);
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string UndoubleSingleQuotes(std::string_view doubledText) {
    return ReplaceAll(doubledText, kDoubledQuote, "'");
}

std::vector<std::string_view> SplitWords(std::string_view words) {
    std::vector<std::string_view> split;
    for (std::size_t begin = words.find_first_not_of(' '); begin != std::string_view::npos;) {
        const std::size_t end = words.find(' ', begin);
        split.push_back(words.substr(begin, end - begin));
        begin = words.find_first_not_of(' ', end);
    }
    return split;
}

std::string NormaliseWords(std::string_view doubledText) {
    std::string text = ReplacePunctuation(TrimBlanks(doubledText), BlankWidth::One);
    text = ReplaceAll(text, "   ", " ");
    text = ReplaceAll(text, "  ", " ");
    if (text.starts_with(kDoubledQuote)) text.erase(0, kDoubledQuote.size());
    return text;
}

std::string SeparateWords(std::string_view text) {
    // Quotes come in pairs and go in pairs, so they can be undoubled in what is left.
    return UndoubleSingleQuotes(NormaliseWords(DoubleSingleQuotes(text)));
}

bool IsNumeric(std::string_view text) {
    TakeSign(text);
    std::size_t digits = TakeDigits(text);
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        digits += TakeDigits(text);
    }
    if (digits == 0) return false;
    if (text.empty()) return true;
    if (AsciiLower(text.front()) != 'e') return false;
    text.remove_prefix(1);
    TakeSign(text);
    return TakeDigits(text) > 0 && text.empty();
}

std::string FilterWords(std::string_view text, std::string_view separator,
                        const NoiseWords& noise) {
    const std::string_view trimmed = TrimBlanks(text);
    // A folded text has its characters where the text has them.
    const std::string searched = FoldCase(trimmed);
    const std::string searchedFor = FoldCase(separator);
    std::string kept;
    for (std::size_t begin = 0; begin <= trimmed.size();) {
        std::size_t end = separator.empty() ? std::string::npos : searched.find(searchedFor, begin);
        if (end == std::string::npos) end = trimmed.size();
        const std::string_view word = TrimBlanks(trimmed.substr(begin, end - begin));
        if (IsSearchWord(word, noise)) kept.append(word).append(separator);
        begin = end + std::max(separator.size(), std::size_t{1});
    }
    if (!kept.empty()) kept.resize(kept.size() - separator.size());
    return kept;
}

std::string RemoveDuplicateWords(std::string_view words) {
    std::unordered_set<std::string> seen;
    std::string kept;
    for (const std::string_view word : SplitWords(words)) {
        if (!seen.insert(FoldCase(word)).second) continue;
        if (!kept.empty()) kept += ' ';
        kept += word;
    }
    return kept;
}

std::string KeywordToSearchWords(std::string_view keyword, const NoiseWords& noise) {
    return RemoveDuplicateWords(FilterWords(SeparateWords(keyword), " ", noise));
}

}  // namespace snippetarium
