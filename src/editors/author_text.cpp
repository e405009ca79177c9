#include "editors/author_text.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace snippetarium {

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";

std::vector<std::string> Words(std::string_view text) {
    std::vector<std::string> words;
    for (std::size_t at = text.find_first_not_of(kWhiteSpace); at != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(kWhiteSpace, at), text.size());
        words.emplace_back(text.substr(at, end - at));
        at = text.find_first_not_of(kWhiteSpace, end);
    }
    return words;
}

std::string Join(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        if (word.empty()) continue;
        if (!text.empty()) text += ' ';
        text += word;
    }
    return text;
}

/// First and middle name, taken out of the words.
AuthorName GivenNames(std::vector<std::string> words) {
    AuthorName name;
    if (words.empty()) return name;
    name.first = words.front();
    words.erase(words.begin());
    name.middle = Join(words);
    return name;
}

}  // namespace

AuthorName ParseAuthorText(std::string_view text) {
    const std::size_t comma = text.find(',');
    std::vector<std::string> words = Words(text.substr(0, comma));
    if (comma != std::string_view::npos) {
        AuthorName name = GivenNames(Words(text.substr(comma + 1)));
        name.last = Join(words);
        return name;
    }
    if (words.empty()) return {};
    const std::string last = words.back();
    words.pop_back();
    AuthorName name = GivenNames(words);
    name.last = last;
    return name;
}

std::string AuthorText(const AuthorName& name) {
    return Join({name.first, name.middle, name.last});
}

}  // namespace snippetarium
