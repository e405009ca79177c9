#include "store/trash_script.h"

#include "store/catalogue_content.h"

namespace snippetarium {

namespace {

constexpr std::string_view kLevelsBegin = "-- LEVELS\n";
constexpr std::string_view kLevelsEnd = "-- END\n";

struct Level {
    std::string_view name;
    std::string_view id;
    std::string_view number;
};

constexpr Level kLevels[] = {
    {"Application", "appID", "1"},
    {"Class", "classID", "2"},
    {"Code", "codeID", "3"},
};

void Replace(std::string& script, std::string_view name, std::string_view sql) {
    const std::string place = "[" + std::string(name) + "]";
    for (std::size_t at = 0; (at = script.find(place, at)) != std::string::npos; at += sql.size())
        script.replace(at, place.size(), sql);
}

std::string ForEachLevel(std::string_view statements) {
    std::string all;
    for (const auto& [name, id, number] : kLevels) {
        std::string ofLevel(statements);
        Replace(ofLevel, "Level", name);
        Replace(ofLevel, "levelID", id);
        Replace(ofLevel, "levelNumber", number);
        all += ofLevel;
    }
    return all;
}

std::string WithLevels(std::string_view script) {
    std::string all;
    for (std::size_t begin; (begin = script.find(kLevelsBegin)) != std::string_view::npos;) {
        const std::size_t end = script.find(kLevelsEnd, begin);
        all += script.substr(0, begin);
        begin += kLevelsBegin.size();
        all += ForEachLevel(script.substr(begin, end - begin));
        script.remove_prefix(end + kLevelsEnd.size());
    }
    return all.append(script);
}

}  // namespace

std::string TrashScript(std::string_view fileName, std::initializer_list<ScriptValue> values) {
    std::string script = WithLevels(DataFile("trash/" + std::string(fileName)));
    for (const auto& [name, sql] : values)
        Replace(script, name, sql);
    return script;
}

}  // namespace snippetarium
