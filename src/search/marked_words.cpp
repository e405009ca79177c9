#include "search/marked_words.h"

#include <algorithm>
#include <string_view>

#include "keywords/words.h"
#include "search/search_entry.h"
#include "support/case_fold.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::string_view kQuotes = "\"'";
constexpr std::string_view kBetweenWords = " \t()";
constexpr std::string_view kWildcards = "%_[]*?";

/// The longest piece without a wildcard, the first of several.
std::string_view LiteralPart(std::string_view word) {
    std::string_view longest;
    while (!word.empty()) {
        const std::size_t end = std::min(word.find_first_of(kWildcards), word.size());
        if (end > longest.size()) longest = word.substr(0, end);
        word.remove_prefix(std::min(end + 1, word.size()));
    }
    return longest;
}

void AddWord(std::vector<std::string>& words, std::string_view word) {
    std::string literal(LiteralPart(word));
    if (!literal.empty() && std::ranges::find(words, literal) == words.end())
        words.push_back(std::move(literal));
}

/// Takes the next word or quoted phrase off the entry.
std::string_view TakeWord(std::string_view& entry) {
    entry.remove_prefix(std::min(entry.find_first_not_of(kBetweenWords), entry.size()));
    if (entry.empty()) return {};
    const bool isQuoted = kQuotes.find(entry.front()) != std::string_view::npos;
    const char quote = entry.front();
    if (isQuoted) entry.remove_prefix(1);
    const std::size_t end =
        std::min(isQuoted ? entry.find(quote) : entry.find_first_of(kBetweenWords), entry.size());
    const std::string_view word = entry.substr(0, end);
    entry.remove_prefix(std::min(end + (isQuoted ? 1 : 0), entry.size()));
    return word;
}

}  // namespace

std::vector<std::string> MarkedWords(const SearchFields& fields) {
    std::vector<std::string> words;
    if (fields.kind == SearchKind::Date) return words;
    const bool isOneText = fields.kind == SearchKind::Name || fields.kind == SearchKind::Comment;
    if (isOneText) {
        AddWord(words, StripOuterQuotes(TrimBlanks(fields.entry)));
        return words;
    }
    bool isExcluded = false;
    std::string_view entry = fields.entry;
    while (!entry.empty()) {
        const std::string_view word = TakeWord(entry);
        if (!IsOperator(word) && !isExcluded) AddWord(words, word);
        isExcluded = EqualsIgnoringAsciiCase(word, "not");
    }
    return words;
}

}  // namespace snippetarium
