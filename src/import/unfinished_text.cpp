#include "import/unfinished_text.h"

#include <cstddef>
#include <vector>

#include "import/source_words.h"

namespace snippetarium {

namespace {

constexpr std::size_t kMostUnfinished = 30'000;
constexpr std::size_t kMostAngles = 2'000;

/// Counts, from above, what a parser has to keep of a text at once: the words and signs of each
/// construct that is not finished, for all brackets that are open. Literals and comments are not
/// told apart: they seldom matter.
class Unfinished {
  public:
    /// False where it becomes too much.
    bool Add(std::string_view text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char character = text[i];
            const bool goesOn = i > 0 && IsWordPart(character) && IsWordPart(text[i - 1]);
            if (goesOn || static_cast<unsigned char>(character) <= ' ') continue;
            // A chain of them is one construct.
            if (character == 'e' && text.substr(i, 4) == "else") ++elses_;
            Count(character);
            if (total_ + elses_ > kMostUnfinished || angles_ > kMostAngles) return false;
        }
        return true;
    }

  private:
    void Count(char character) {
        ++total_;
        ++levels_.back();
        if (character == '<') ++angles_;
        if (character == '{' || character == '(' || character == '[') {
            levels_.push_back(0);
        } else if (levels_.size() > 1 &&
                   (character == '}' || character == ')' || character == ']')) {
            FinishLevel();
            levels_.pop_back();
        }
        if (character == ';' || character == ',' || character == '}') FinishLevel();
        if (character == ';' || character == '{' || character == '}') angles_ = 0;
    }

    void FinishLevel() {
        total_ -= levels_.back();
        levels_.back() = 0;
    }

    std::vector<std::size_t> levels_ = {0};
    std::size_t total_ = 0;
    std::size_t elses_ = 0;
    std::size_t angles_ = 0;  // in this statement; most are no brackets
};

}  // namespace

bool IsTooUnfinished(std::string_view text, std::span<const TextRange> skipped) {
    Unfinished unfinished;
    std::size_t begin = 0;
    for (const TextRange& range : skipped) {
        if (!unfinished.Add(text.substr(begin, range.begin - begin))) return true;
        begin = range.end;
    }
    return !unfinished.Add(text.substr(begin));
}

}  // namespace snippetarium
