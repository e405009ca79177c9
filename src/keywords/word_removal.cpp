#include "keywords/word_removal.h"

#include <algorithm>
#include <cstddef>

#include "keywords/punctuation.h"
#include "keywords/words.h"
#include "support/text.h"

namespace snippetarium {

namespace {

void TrimBlanksBehind(std::string& text) {
    text.resize(text.find_last_not_of(' ') + 1);
}

/// A separator counts where it can stand between words; a letter cannot.
std::string UsableSeparator(std::string_view separator) {
    std::string doubled = DoubleSingleQuotes(TrimBlanks(separator));
    if (!SplitWords(BlankOutPunctuation(doubled)).empty()) doubled.clear();
    return doubled;
}

/// The string as it is put together again without the words, which are removed from left to right.
class Remainder {
  public:
    Remainder(std::string_view doubledKeyword, std::string_view separator)
        : whole_(doubledKeyword), separator_(separator) {}

    void RemoveWord(std::size_t begin, std::size_t end) {
        if (begin > next_) kept_.append(whole_, next_, begin - next_);
        next_ = std::max(next_, end);
        SkipBlanks();
        const bool isSeparatorBehind = Separates() && Rest().starts_with(separator_);
        if (!isSeparatorBehind && !Rest().empty()) return;
        TrimBlanksBehind(kept_);
        const bool isSeparatorBefore = Separates() && kept_.ends_with(separator_);
        if (!isSeparatorBefore && !kept_.empty()) return;
        // Nothing is left between the two.
        if (isSeparatorBefore) {
            kept_.resize(kept_.size() - separator_.size());
        } else if (isSeparatorBehind) {
            next_ += separator_.size();
            SkipBlanks();
        }
    }

    std::string Take() {
        kept_.append(Rest());
        return std::string(TrimBlanks(kept_));
    }

  private:
    bool Separates() const { return !separator_.empty(); }
    std::string_view Rest() const { return whole_.substr(next_); }
    void SkipBlanks() { next_ = std::min(whole_.find_first_not_of(' ', next_), whole_.size()); }

    std::string_view whole_;
    std::string_view separator_;
    std::string kept_;
    std::size_t next_ = 0;
};

}  // namespace

std::string RemoveWords(std::string_view keyword, std::string_view separator,
                        const NoiseWords& noise) {
    const std::string doubled = DoubleSingleQuotes(TrimBlanks(keyword));
    const std::string blanked = BlankOutPunctuation(doubled);
    const std::string usableSeparator = UsableSeparator(separator);
    Remainder remainder(doubled, usableSeparator);
    bool isChanged = false;
    for (const std::string_view word : SplitWords(blanked)) {
        if (!noise.IsNoiseWord(UndoubleSingleQuotes(word))) continue;
        const auto begin = static_cast<std::size_t>(word.data() - blanked.data());
        remainder.RemoveWord(begin, begin + word.size());
        isChanged = true;
    }
    return isChanged ? UndoubleSingleQuotes(remainder.Take()) : std::string(keyword);
}

}  // namespace snippetarium
