#include "word_count.hpp"

#include <cctype>

namespace {

// A letter or a digit.
bool IsPartOfWord(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0;
}

}  // namespace

// Author: Piet de Boer
// Created on: 2004-09-11
// Keywords: words, text
void WordCount::Add(std::string_view text) {
    std::string word;
    for (const char character : text) {
        if (IsPartOfWord(character)) {
            word += character;
        } else if (!word.empty()) {
            ++counts_[word];
            word.clear();
        }
    }
    if (!word.empty()) ++counts_[word];
}
