#include "editors/copy_names.h"

#include <functional>

#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "store/unique_names.h"

namespace snippetarium {

namespace {

std::string FreeName(std::string_view name,
                     const std::function<bool(std::string_view name)>& isTaken) {
    std::string free(name);
    for (std::int32_t number = 2; isTaken(free); ++number)
        free = NumberedName(name, number);
    return free;
}

}  // namespace

std::string NameForClassCopy(Database& db, std::string_view name, std::int32_t appID) {
    return FreeName(name,
                    [&](std::string_view tried) { return IsClassNameTaken(db, tried, appID); });
}

std::string NameForCodeCopy(Database& db, std::string_view name, std::int32_t classID) {
    return FreeName(name,
                    [&](std::string_view tried) { return IsCodeNameTaken(db, tried, classID); });
}

}  // namespace snippetarium
