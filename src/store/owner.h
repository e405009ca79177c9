#pragma once

#include <cstdint>

namespace snippetarium {

/// What can have authors, dates and keywords. The values are those of ownerTableID in the
/// catalogue.
enum class OwnerKind : std::int32_t { Application = 1, Class = 2, Procedure = 3 };

/// One application, class or procedure, as the link tables name it.
struct Owner {
    OwnerKind kind = OwnerKind::Application;
    std::int32_t id = 0;
};

}  // namespace snippetarium
