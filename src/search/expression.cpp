#include "search/expression.h"

#include <concepts>
#include <optional>
#include <vector>

#include "search/search_entry.h"
#include "support/guard.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::string_view kPartSeparator = " and ";
constexpr const char* kPhraseWithoutEnd =
    "A phrase in the search entry has no end or is empty. To search for a phrase, put the whole "
    "entry into quotation marks.";

/// The words of a checked entry. A space ends a word; what is left when there is no space any more
/// is the last word, which is a term whatever it holds.
class WordReader {
  public:
    explicit WordReader(std::string_view entry) : entry_(entry) {}

    /// The next word; nothing when only the last one is left. A word with a quotation mark is the
    /// beginning of a phrase, which is then returned whole. The check has put a space behind the
    /// phrase, and the next word begins right at that space: it is empty.
    std::optional<std::string_view> Next() {
        const std::size_t space = entry_.find(' ', start_);
        if (space == std::string_view::npos) return std::nullopt;
        const std::string_view word = entry_.substr(start_, space - start_);
        if (word.find('"') != std::string_view::npos) return NextPhrase();
        start_ = space + 1;
        return word;
    }
    std::string_view Last() const { return entry_.substr(start_); }

  private:
    std::string_view NextPhrase() {
        // A phrase has at least one byte.
        const std::size_t end = entry_.find('"', start_ + 2);
        if (end == std::string_view::npos)
            throw Error(error_number::kInvalidCall, kPhraseWithoutEnd);
        const std::string_view phrase = entry_.substr(start_ + 1, end - start_ - 1);
        start_ = end + 1;
        return phrase;
    }

    std::string_view entry_;
    std::size_t start_ = 0;
};

/// All words but the last: operators and brackets with a space behind them, and what `compare`
/// makes of each term.
template <std::invocable<std::string_view> Compare>
std::string ConditionBeforeLast(WordReader& words, Compare&& compare) {
    std::string condition;
    while (const std::optional<std::string_view> word = words.Next()) {
        if (IsOperator(*word) || IsBracket(*word)) {
            condition.append(*word).append(" ");
        } else {
            condition += compare(*word);
        }
    }
    return condition;
}

std::string Anywhere(std::string_view term) {
    return "%" + std::string(term) + "%";
}

std::string Comparison(std::string_view column, std::string_view term) {
    return std::string(column) + TermToPredicate(term);
}

std::vector<std::string_view> SplitParts(std::string_view entry) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = entry.find(kPartSeparator);
        parts.push_back(entry.substr(0, end));
        if (end == std::string_view::npos) return parts;
        entry.remove_prefix(end + kPartSeparator.size());
    }
}

/// The join that brings in one more search word of the same keyword string.
std::string JoinOfPart(std::size_t part) {
    const std::string before = std::to_string(part - 1);
    const std::string number = std::to_string(part);
    return " INNER JOIN tblKeyword_link_searchWord KLS" + number + " ON kls" + before +
           ".keywordID = kls" + number + ".keywordID) INNER JOIN tblSearchWord sw" + number +
           " ON kls" + number + ".searchWordID = sw" + number + ".searchWordID)";
}

/// With " AND " behind it.
std::string ConditionOfPart(std::string_view part, std::size_t number) {
    const std::string column = "sw" + std::to_string(number) + ".searchWord";
    WordReader words(part);
    const std::string condition = ConditionBeforeLast(
        words, [&column](std::string_view word) { return Comparison(column, word); });
    const std::string last = Comparison(column, words.Last());
    return condition.empty() ? last + "AND " : "(" + condition + last + ") AND ";
}

}  // namespace

std::string TermToPredicate(std::string_view term) {
    const auto has = [term](char wildcard) {
        return term.find(wildcard) != std::string_view::npos;
    };
    std::string pattern;
    if (has('?')) {
        pattern = ReplaceAll(term, "?", "_");
    } else if (has('*') && !has('%')) {
        pattern = ReplaceAll(term, "*", "%");
    } else if (has('%') || has('_') || has('[')) {
        pattern = term;
    } else {
        return " ='" + std::string(term) + "' ";
    }
    return " LIKE '" + pattern + "' ";
}

std::string BuildFieldCondition(ErrorReporter& reporter, std::string_view entry,
                                std::string_view column) {
    return Guarded(reporter, Procedure::BuildFieldCondition, [&] {
        std::string checked = InsertImplicitOr(entry);
        if (ValidateSearchEntry(reporter, checked)) return std::string();

        const bool isAnywhere =
            column == search_column::kCodeName || column == search_column::kCode;
        const bool isLastAnywhere = isAnywhere || column == search_column::kClassText;
        WordReader words(checked);
        const std::string condition = ConditionBeforeLast(words, [&](std::string_view word) {
            return Comparison(column, isAnywhere ? Anywhere(word) : std::string(word));
        });
        const std::string_view last = words.Last();
        return condition + Comparison(column, isLastAnywhere ? Anywhere(last) : std::string(last));
    });
}

KeywordAndCondition BuildKeywordAndCondition(ErrorReporter& reporter, std::string_view entry) {
    return Guarded(reporter, Procedure::BuildKeywordAndCondition, [&] {
        std::string checked = InsertImplicitOr(entry);
        if (ValidateSearchEntry(reporter, checked)) return KeywordAndCondition();

        const std::vector<std::string_view> parts = SplitParts(checked);
        std::string joins;
        std::string condition;
        for (std::size_t part = 0; part < parts.size(); ++part) {
            if (part > 0) joins += JoinOfPart(part);
            condition += ConditionOfPart(parts[part], part);
        }
        condition.resize(condition.size() - kPartSeparator.size());
        return KeywordAndCondition{joins + " WHERE (" + condition, parts.size() - 1};
    });
}

}  // namespace snippetarium
