#include "search/search_entry.h"

#include "support/case_fold.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/text.h"
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

constexpr std::string_view kBrackets[] = {"(", ")"};

/// The byte at a position, NUL behind the end of the text.
char CharAt(std::string_view text, std::size_t position) {
    return position <= text.size() ? text[position - 1] : '\0';
}

void InsertSpaceBehind(std::string& text, std::size_t position) {
    text.insert(position, 1, ' ');
}

/// Returns where the bracket then stands.
std::size_t SpaceOpeningBracket(std::string& entry, std::size_t position) {
    const auto needsSpace = [](char neighbour) { return neighbour != ' ' && neighbour != '('; };
    if (position > 1 && needsSpace(CharAt(entry, position - 1))) {
        InsertSpaceBehind(entry, position - 1);
        ++position;
    }
    if (needsSpace(CharAt(entry, position + 1))) InsertSpaceBehind(entry, position);
    return position;
}

void SpaceClosingBracket(std::string& entry, std::size_t position) {
    const auto needsSpace = [](char neighbour) { return neighbour != ' ' && neighbour != ')'; };
    if (needsSpace(CharAt(entry, position - 1))) {
        InsertSpaceBehind(entry, position);
    } else if (position < entry.size() && needsSpace(CharAt(entry, position + 1))) {
        InsertSpaceBehind(entry, position);
    }
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
    int openCount = 0;
    std::size_t position = FindFirstOf(entry, kBrackets, 1);
    while (position != 0) {
        if (CharAt(entry, position) == '(') {
            ++openCount;
            position = SpaceOpeningBracket(entry, position);
        } else {
            if (--openCount < 0) return false;
            SpaceClosingBracket(entry, position);
        }
        ++position;
        // The byte here is a space, a bracket or the end, so it counts as one character.
        const std::string_view before = std::string_view(entry).substr(0, position - 1);
        if (CharacterCount(before) + 1 == startingLength) break;
        position = FindFirstOf(entry, kBrackets, position + 1);
    }
    return openCount == 0;
}

bool CheckQuotes(ErrorReporter& reporter, std::string& entry) {
    return Guarded(reporter, Procedure::CheckQuotes, [&entry] {
        bool isOpen = false;
        for (std::size_t quote = entry.find('"'); quote != std::string::npos;
             quote = entry.find('"', quote + 1)) {
            isOpen = !isOpen;
            if (!isOpen) {
                if (!entry.substr(quote + 1).starts_with(' ')) entry.insert(quote + 1, 1, ' ');
                continue;
            }
            if (quote == 0) throw Error(error_number::kInvalidCall, kQuoteAtStart);
            if (entry[quote - 1] != ' ') entry.insert(quote++, 1, ' ');
        }
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
