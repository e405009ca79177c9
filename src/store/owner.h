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

/// The rows of every catalogue that take in classes without an application and procedures without a
/// class.
inline constexpr std::int32_t kUndefinedApplicationID = 1;
inline constexpr std::int32_t kUndefinedClassID = 1;

/// Where a class goes that names this application; 0 is none.
constexpr std::int32_t ApplicationOrUndefined(std::int32_t appID) {
    return appID == 0 ? kUndefinedApplicationID : appID;
}

/// Where a procedure goes that names this class; 0 is none.
constexpr std::int32_t ClassOrUndefined(std::int32_t classID) {
    return classID == 0 ? kUndefinedClassID : classID;
}

}  // namespace snippetarium
