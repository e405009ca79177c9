#include "import/unit_names.h"

#include "store/sql_text.h"
#include "support/utf8.h"

namespace snippetarium {

std::string UnitNames::Take(std::string_view name) {
    std::string free(CutToCharacters(name, kNameLimit));
    for (int number = 2; !taken_.insert(free).second; ++number) {
        const std::string suffix = " (" + std::to_string(number) + ")";
        free = std::string(CutToCharacters(name, kNameLimit - suffix.size())) + suffix;
    }
    return free;
}

}  // namespace snippetarium
