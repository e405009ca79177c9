#pragma once

#include <compare>
#include <cstdint>

#include "store/owner.h"

namespace snippetarium {

/// Which record an editor has open. A record has one editor at a time: a second command to edit it
/// brings the open one to the front. Editors of records that are not stored yet have no key, and
/// there may be any number of them.
struct EditorKey {
    OwnerKind kind = OwnerKind::Application;
    std::int32_t id = 0;

    auto operator<=>(const EditorKey&) const = default;
};

}  // namespace snippetarium
