#pragma once

#include <cstdint>
#include <string>

#include "store/trash.h"

namespace snippetarium {

/// What a class or procedure that comes back from the trash goes into.
struct TrashPlace {
    std::int32_t appID = 0;
    /// For a procedure.
    std::int32_t classID = 0;
    /// True when the application is gone and has to be made again, under this ID and the entry's
    /// name.
    bool isNewApplication = false;
    /// Where that is, in a sentence, if it is not where the entry came from.
    std::string remark = {};
};

/// An application needs no place: its parts are 0.
TrashPlace FindTrashPlace(Database& db, const TrashEntry& entry);

}  // namespace snippetarium
