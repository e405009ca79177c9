#include "store/sql_text.h"

#include "support/text.h"
#include "support/utf8.h"

namespace snippetarium {

std::string SqlText(std::string_view text) {
    return "'" + DoubleSingleQuotes(text) + "'";
}

std::string SqlText255(std::string_view text) {
    return SqlText(CutToCharacters(text, kNameLimit));
}

std::string SqlText50(std::string_view text) {
    return SqlText(CutToCharacters(text, kShortTextLimit));
}

}  // namespace snippetarium
