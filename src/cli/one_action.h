#pragma once

#include <initializer_list>
#include <string_view>

namespace snippetarium {

class Arguments;

/// The one of these options that was given; empty where none was. Throws UsageError where several
/// were: each of them is an action for itself.
std::string_view OneAction(const Arguments& given, std::initializer_list<std::string_view> actions);

/// Throws UsageError where one of the two was given without the other.
void RequireBoth(const Arguments& given, std::string_view one, std::string_view other);

}  // namespace snippetarium
