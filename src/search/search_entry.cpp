#include "search/search_entry.h"

#include <utility>

#include "support/case_fold.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kBracketsMessage =
    "There is an error with the brackets in your search entry. Please modify your search entry and "
    "try again.";
constexpr std::string_view kQuotesMessage =
    "There is an extra double quotation mark in your search entry. Please modify your search entry "
    "and try again.";
constexpr const char* kQuoteAtStart =
    "A search entry cannot begin with a double quotation mark unless it ends with one and is a "
    "single phrase. Take the quotation mark away and try again.";

/// An entry that gets spaces in it, from its beginning to its end. What is done grows at its end
/// only: a space put into the middle of a long entry would move the rest of it each time.
class SpacedEntry {
  public:
    explicit SpacedEntry(std::string_view entry) : rest_(entry) {}

    /// Goes on to the next of these marks; false when there is none.
    bool GoTo(std::string_view marks) {
        const std::size_t mark = rest_.find_first_of(marks);
        if (mark == std::string_view::npos) return false;
        Take(mark);
        return true;
    }
    /// Goes behind this many bytes.
    void Take(std::size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        spaced_ += taken;
        characterCount_ += CharacterCount(taken);
        rest_.remove_prefix(taken.size());
    }
    void AddSpace() {
        spaced_ += ' ';
        ++characterCount_;
    }

    /// The bytes beside the place that was reached; NUL at the ends of the entry.
    char Before() const { return spaced_.empty() ? '\0' : spaced_.back(); }
    char Next() const { return rest_.empty() ? '\0' : rest_.front(); }
    bool IsAtStart() const { return spaced_.empty(); }
    bool IsAtEnd() const { return rest_.empty(); }
    /// The characters up to here, spaces that were added included.
    std::size_t CharactersSoFar() const { return characterCount_; }

    std::string Whole() && { return std::move(spaced_.append(rest_)); }

  private:
    std::string_view rest_;
    std::string spaced_;
    std::size_t characterCount_ = 0;
};

/// Whether a space has to come between a bracket and the byte beside it.
bool NeedsSpace(char neighbour, char bracket) {
    return neighbour != ' ' && neighbour != bracket;
}

/// Goes behind the bracket. Returns whether a space was put there.
bool SpaceBracket(SpacedEntry& entry, char bracket) {
    const bool isOpening = bracket == '(';
    const bool needsSpaceBefore = !entry.IsAtStart() && NeedsSpace(entry.Before(), bracket);
    if (isOpening && needsSpaceBefore) entry.AddSpace();
    entry.Take(1);
    // The space that a closing bracket needs before it comes behind it.
    const bool needsSpaceBehind =
        NeedsSpace(entry.Next(), bracket) && (isOpening || !entry.IsAtEnd());
    const bool addsSpace = needsSpaceBehind || (!isOpening && needsSpaceBefore);
    if (addsSpace) entry.AddSpace();
    return addsSpace;
}

}  // namespace

bool IsOperator(std::string_view word) {
    return EqualsIgnoringAsciiCase(word, "and") || EqualsIgnoringAsciiCase(word, "or") ||
           EqualsIgnoringAsciiCase(word, "not");
}

bool IsBracket(std::string_view word) {
    return word.starts_with('(') || word.starts_with(')');
}

std::string InsertImplicitOr(std::string_view entry) {
    std::size_t space = entry.find(' ');
    std::string_view word = entry.substr(0, space);
    std::string joined(word);
    while (space != std::string_view::npos) {
        const std::size_t start = space + 1;
        space = entry.find(' ', start);
        const std::string_view next = entry.substr(start, space - start);
        joined += IsOperator(word) || IsOperator(next) ? " " : " or ";
        joined += next;
        word = next;
    }
    return joined;
}

bool CheckBrackets(std::string& entry) {
    // The check ends where the entry, as it was before any space came in, would have ended. That
    // is a matter of characters, so that it ends alike in every script.
    const std::size_t startingLength = CharacterCount(entry);
    SpacedEntry spaced(entry);
    int openCount = 0;
    while (spaced.GoTo("()")) {
        const char bracket = spaced.Next();
        openCount += bracket == '(' ? 1 : -1;
        if (openCount < 0) break;
        if (!SpaceBracket(spaced, bracket)) spaced.Take(1);
        // The byte behind the bracket has been passed over, also at the end, where there is none.
        if (spaced.CharactersSoFar() == startingLength) break;
    }
    entry = std::move(spaced).Whole();
    return openCount == 0;
}

bool CheckQuotes(ErrorReporter& reporter, std::string& entry) {
    return Guarded(reporter, Procedure::CheckQuotes, [&entry] {
        SpacedEntry spaced(entry);
        bool isOpen = false;
        while (spaced.GoTo("\"")) {
            isOpen = !isOpen;
            if (spaced.IsAtStart()) throw Error(error_number::kInvalidCall, kQuoteAtStart);
            if (isOpen && spaced.Before() != ' ') spaced.AddSpace();
            spaced.Take(1);
            if (!isOpen && spaced.Next() != ' ') spaced.AddSpace();
        }
        entry = std::move(spaced).Whole();
        return !isOpen;
    });
}

bool ValidateSearchEntry(ErrorReporter& reporter, std::string& entry) {
    return Guarded(reporter, Procedure::ValidateSearchEntry, [&] {
        std::string_view message;
        if (!CheckBrackets(entry)) {
            message = kBracketsMessage;
        } else if (!CheckQuotes(reporter, entry)) {
            message = kQuotesMessage;
        } else {
            return false;
        }
        ShowInformation(reporter.Messages(), message, kInformationTitle);
        return true;
    });
}

}  // namespace snippetarium
