#include "store/unique_names.h"

#include "store/sql_text.h"
#include "support/utf8.h"

namespace snippetarium {

std::string UniqueNames::Add(std::string_view name) {
    const std::string stored(CutToCharacters(name, kNameLimit));
    if (names_.insert(stored).second) return stored;
    std::int32_t& number = lastNumbers_.try_emplace(stored, 1).first->second;
    for (;;) {
        std::string numbered = NumberedName(stored, ++number);
        if (names_.insert(numbered).second) return numbered;
    }
}

std::string NumberedName(std::string_view name, std::int32_t number) {
    const std::string ending = Sql(" (", number, ")");
    return std::string(CutToCharacters(name, kNameLimit - ending.size())).append(ending);
}

}  // namespace snippetarium
