#include "import/header_harvest.h"

#include <algorithm>
#include <array>
#include <optional>

#include "support/case_fold.h"
#include "support/date_text.h"
#include "support/header_labels.h"
#include "support/text.h"

namespace snippetarium {

namespace {

using Words = std::vector<std::string_view>;

constexpr std::string_view kBlanks = " \t\r\n";
/// What stands before the text of a comment's line: quotes, slashes and asterisks that begin a
/// comment, and the signs of which people build frames.
constexpr std::string_view kDecoration = " \t\r\n'*/#-=+|!<>;@~_";
/// What ends a comment, and the right side of a frame. Other signs may belong to what is said:
/// "C#", "C++".
constexpr std::array<std::string_view, 4> kEndings{"*/", "-->", "*", "|"};
constexpr std::string_view kBrackets = "()<>[]{}";

std::string_view Trimmed(std::string_view text, std::string_view characters) {
    const std::size_t first = text.find_first_not_of(characters);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

std::string_view WithoutDecoration(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(kDecoration), line.size()));
    line = Trimmed(line, kBlanks);
    const auto endsLine = [&](std::string_view ending) { return line.ends_with(ending); };
    while (true) {
        const auto* const ending = std::ranges::find_if(kEndings, endsLine);
        if (ending == kEndings.end()) return line;
        line = Trimmed(line.substr(0, line.size() - ending->size()), kBlanks);
    }
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view start) {
    return EqualsIgnoringAsciiCase(text.substr(0, start.size()), start);
}

bool HasLetter(std::string_view text) {
    return std::ranges::any_of(text, [](char character) {
        const bool isDigit = character >= '0' && character <= '9';
        return static_cast<unsigned char>(character) >= 0x80 ||
               (IsAlphanumeric(character) && !isDigit);
    });
}

/// A line of the comment that bears a label, and what follows it.
struct LabelledLine {
    HeaderLabelKind kind;
    std::string_view value;
};

std::optional<LabelledLine> ReadLine(std::string_view line) {
    line = WithoutDecoration(line);
    constexpr std::string_view kRemark = "Rem ";
    if (StartsWithIgnoringCase(line, kRemark))
        line = WithoutDecoration(line.substr(kRemark.size()));
    for (const HeaderLabel& label : kHeaderLabels) {
        if (StartsWithIgnoringCase(line, label.text))
            return LabelledLine{label.kind, Trimmed(line.substr(label.text.size()), kBlanks)};
    }
    return std::nullopt;
}

Words SplitAtBlanks(std::string_view text) {
    Words words;
    while (true) {
        text = Trimmed(text, kBlanks);
        if (text.empty()) return words;
        const std::size_t end = std::min(text.find_first_of(kBlanks), text.size());
        words.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
}

/// The text without what stands in brackets. A bracket that nothing closes takes the rest along.
std::string WithoutBrackets(std::string_view text) {
    std::string kept;
    std::string closing;  // of the brackets that are open
    for (const char character : text) {
        const std::size_t bracket = kBrackets.find(character);
        if (bracket != std::string_view::npos && bracket % 2 == 0) {
            closing.push_back(kBrackets[bracket + 1]);
            kept.push_back(' ');
        } else if (!closing.empty()) {
            if (character == closing.back()) closing.pop_back();
        } else {
            kept.push_back(character);
        }
    }
    return kept;
}

/// One author's words make a name.
std::optional<AuthorName> NameOf(const Words& words) {
    if (words.empty()) return std::nullopt;
    std::string whole;
    for (const std::string_view word : words)
        whole += (whole.empty() ? "" : " ") + std::string(word);
    if (!HasLetter(whole) || IsDate(whole)) return std::nullopt;
    AuthorName name{.last = std::string(words.back())};
    if (words.size() > 1) name.first = words.front();
    if (words.size() > 2) {
        const std::size_t middle = name.first.size() + 1;
        name.middle = whole.substr(middle, whole.size() - middle - name.last.size() - 1);
    }
    return name;
}

template <typename Value>
void AddOnce(std::vector<Value>& list, Value value) {
    if (std::ranges::find(list, value) == list.end()) list.push_back(std::move(value));
}

void AddAuthors(std::vector<AuthorName>& authors, std::string_view value) {
    std::string spaced;
    for (const char character : WithoutBrackets(value)) {
        const bool separates = character == ',' || character == ';' || character == '&';
        spaced += separates ? std::string(" , ") : std::string(1, character);
    }
    Words words;
    const auto finish = [&] {
        if (auto name = NameOf(words)) AddOnce(authors, std::move(*name));
        words.clear();
    };
    for (const std::string_view word : SplitAtBlanks(spaced)) {
        if (word == "," || EqualsIgnoringAsciiCase(word, "and")) {
            finish();
        } else if (word.find('@') == std::string_view::npos) {
            words.push_back(word);
        }
    }
    finish();
}

/// The longest date that begins with this word, and how many words it has.
struct FoundDate {
    DateTime date;
    std::size_t wordCount = 0;
};

std::optional<FoundDate> DateAt(const Words& words, std::size_t start) {
    constexpr std::size_t kMostWords = 5;  // "March 14, 2001 1:05 PM"
    constexpr std::string_view kPunctuation = ".,;:()[]";
    std::optional<FoundDate> found;
    std::string text;
    for (std::size_t i = start; i < words.size() && i < start + kMostWords; ++i) {
        text += (text.empty() ? "" : " ") + std::string(words[i]);
        if (const auto date = ParseDateText(Trimmed(text, kPunctuation)))
            found = FoundDate{*date, i + 1 - start};
    }
    return found;
}

void AddDates(std::vector<std::string>& dates, std::string_view value) {
    const Words words = SplitAtBlanks(value);
    for (std::size_t i = 0; i < words.size();) {
        const auto found = DateAt(words, i);
        if (found) AddOnce(dates, IsoText(found->date));
        i += found ? found->wordCount : 1;
    }
}

void AddKeywords(std::string& keywords, std::string_view value) {
    if (value.empty()) return;
    if (!keywords.empty()) keywords += ", ";
    keywords += value;
}

}  // namespace

HarvestedHeader HarvestHeader(std::string_view comment) {
    HarvestedHeader header;
    while (!comment.empty()) {
        const std::size_t end = std::min(comment.find('\n'), comment.size());
        const auto line = ReadLine(comment.substr(0, end));
        comment.remove_prefix(std::min(end + 1, comment.size()));
        if (!line) continue;
        switch (line->kind) {
            case HeaderLabelKind::Authors:
                AddAuthors(header.authors, line->value);
                break;
            case HeaderLabelKind::Date:
                AddDates(header.dates, line->value);
                break;
            case HeaderLabelKind::Keywords:
                AddKeywords(header.keywords, line->value);
                break;
        }
    }
    return header;
}

}  // namespace snippetarium
