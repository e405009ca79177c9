#include "keywords/word_replacement.h"

#include <cstddef>

#include "keywords/punctuation.h"
#include "keywords/words.h"
#include "support/case_fold.h"
#include "support/text.h"

namespace snippetarium {

std::string ReplaceWord(std::string_view keyword, std::string_view word, std::string_view newWord) {
    // Quotes are doubled all the way, as the rules for punctuation want it.
    const std::string doubled = DoubleSingleQuotes(TrimBlanks(keyword));
    const std::string blanked = BlankOutPunctuation(doubled);
    const std::string wanted = DoubleSingleQuotes(word);
    std::string replaced;
    std::size_t next = 0;
    for (const std::string_view part : SplitWords(blanked)) {
        if (!EqualFolded(part, wanted)) continue;
        const auto begin = static_cast<std::size_t>(part.data() - blanked.data());
        replaced.append(doubled, next, begin - next).append(DoubleSingleQuotes(newWord));
        next = begin + part.size();
    }
    return UndoubleSingleQuotes(replaced.append(doubled, next));
}

}  // namespace snippetarium
