#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace snippetarium {

// The scripts data/trash/*.sql. Names in square brackets stand for values.
//
// What they do alike on the three levels of the tree is written once, between the lines "-- LEVELS"
// and "-- END", and runs for applications, classes and procedures one after the other. There
// "[Level]" is the end of the names of their tables, "[levelID]" the column of their IDs and
// "[levelNumber]" their ownerTableID:
//
//     SELECT [levelID] FROM tblTrash[Level]  ->  SELECT appID FROM tblTrashApplication, ...

/// What stands in the place of "[name]" in a script.
struct ScriptValue {
    std::string_view name;
    std::string sql;
};

/// One of the scripts with its values: "[entry]" and so on. Throws Error where there is none.
std::string TrashScript(std::string_view fileName, std::initializer_list<ScriptValue> values);

}  // namespace snippetarium
