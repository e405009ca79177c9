#include "store/trash_script.h"

#include "store/catalogue_content.h"

namespace snippetarium {

std::string TrashScript(std::string_view fileName, std::initializer_list<ScriptValue> values) {
    std::string script(DataFile("trash/" + std::string(fileName)));
    for (const auto& [name, sql] : values) {
        const std::string place = "[" + std::string(name) + "]";
        for (std::size_t at = 0; (at = script.find(place, at)) != std::string::npos;
             at += sql.size()) {
            script.replace(at, place.size(), sql);
        }
    }
    return script;
}

}  // namespace snippetarium
