#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace snippetarium {

/// What stands in the place of "[name]" in a script.
struct ScriptValue {
    std::string_view name;
    std::string sql;
};

/// One of the scripts data/trash/*.sql with its values: "[entry]" and so on.
std::string TrashScript(std::string_view fileName, std::initializer_list<ScriptValue> values);

}  // namespace snippetarium
