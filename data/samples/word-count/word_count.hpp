#pragma once

#include <map>
#include <string>
#include <string_view>

/// Counts how often each word stands in a text.
class WordCount {
  public:
    /// Takes letters and digits for words, and everything else for gaps.
    void Add(std::string_view text);

    int Of(const std::string& word) const {
        const auto found = counts_.find(word);
        return found == counts_.end() ? 0 : found->second;
    }

  private:
    std::map<std::string, int> counts_;
};
