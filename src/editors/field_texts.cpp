#include "editors/field_texts.h"

#include <algorithm>
#include <charconv>

namespace snippetarium {

namespace {

constexpr std::string_view kAuthors = "authors";
constexpr std::string_view kDates = "dates";
constexpr std::string_view kKeywords = "keywords";
constexpr std::string_view kSeparator = "separator";

struct FieldWord {
    std::string_view field;
    std::string_view word;
};

// Fields whose names a user would not know.
// clang-format off
constexpr FieldWord kWords[] = {
    {"appID", "application"},
    {"classID", "class"},
    {"languageID", "language"},
    {"declarations", "text"},
};
// clang-format on

std::string_view WordOf(std::string_view field) {
    const auto found = std::ranges::find(kWords, field, &FieldWord::field);
    return found == std::end(kWords) ? field : found->word;
}

/// The parts of a text that end in `end`.
std::vector<std::string> PartsOf(std::string_view text, char end) {
    std::vector<std::string> parts;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find(end), text.size());
        parts.emplace_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return parts;
}

AuthorName AuthorIn(std::string_view line) {
    std::vector<std::string> parts = PartsOf(std::string(line) + "\t", '\t');
    parts.resize(3);
    return {parts[0], parts[1], parts[2]};
}

}  // namespace

const std::string* FindText(const FieldTexts& texts, std::string_view field) {
    const auto found = std::ranges::find(texts, field, &FieldText::field);
    return found == texts.end() ? nullptr : &found->text;
}

std::string NumberText(std::int32_t number) {
    return std::to_string(number);
}

std::int32_t NumberIn(std::string_view text) {
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

FieldTexts TextsOfDetails(const EditedDetails& details) {
    std::string authors;
    for (const AuthorName& author : details.authors)
        authors += author.first + "\t" + author.middle + "\t" + author.last + "\n";
    std::string dates;
    for (const std::string& date : details.dates)
        dates += date + "\n";
    return {{kAuthors, authors},
            {kDates, dates},
            {kKeywords, details.keywords.text},
            {kSeparator, NumberText(details.keywords.separatorID)}};
}

void SetTexts(EditedDetails& details, const FieldTexts& texts) {
    if (const std::string* authors = FindText(texts, kAuthors)) {
        details.authors.clear();
        for (const std::string& line : PartsOf(*authors, '\n'))
            details.authors.push_back(AuthorIn(line));
    }
    if (const std::string* dates = FindText(texts, kDates)) details.dates = PartsOf(*dates, '\n');
    if (const std::string* keywords = FindText(texts, kKeywords)) details.keywords.text = *keywords;
    if (const std::string* separator = FindText(texts, kSeparator))
        details.keywords.separatorID = NumberIn(*separator);
}

FieldTexts Joined(const FieldTexts& loaded, const FieldTexts& mine, const FieldTexts& stored) {
    FieldTexts joined = stored;
    for (std::size_t i = 0; i < joined.size(); ++i) {
        if (mine[i] != loaded[i]) joined[i] = mine[i];
    }
    return joined;
}

std::string ChangedElsewhere(const FieldTexts& loaded, const FieldTexts& mine,
                             const FieldTexts& stored) {
    std::string words;
    for (std::size_t i = 0; i < stored.size(); ++i) {
        if (stored[i] == loaded[i] || stored[i] == mine[i]) continue;
        words += words.empty() ? "its " : ", its ";
        words += WordOf(stored[i].field);
    }
    return words;
}

}  // namespace snippetarium
