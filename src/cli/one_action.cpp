#include "cli/one_action.h"

#include <string>

#include "cli/arguments.h"
#include "cli/usage_error.h"

namespace snippetarium {

std::string_view OneAction(const Arguments& given,
                           std::initializer_list<std::string_view> actions) {
    std::string_view found;
    for (const std::string_view action : actions) {
        if (!given.Has(action)) continue;
        if (!found.empty()) {
            throw UsageError(std::string(found) + " and " + std::string(action) +
                             " exclude each other.");
        }
        found = action;
    }
    return found;
}

void RequireBoth(const Arguments& given, std::string_view one, std::string_view other) {
    if (given.Has(one) == given.Has(other)) return;
    throw UsageError(std::string(one) + " and " + std::string(other) + " go together.");
}

}  // namespace snippetarium
