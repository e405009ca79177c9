#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "store/trash.h"

namespace snippetarium {

/// A moment as the entries of the trash keep it.
std::string TrashTimeText(std::chrono::system_clock::time_point moment);

/// Throws Error where there is none.
TrashEntry ReadTrashEntry(Database& db, std::int32_t trashID);

}  // namespace snippetarium
