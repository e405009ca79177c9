#include "engine/command.h"

#include <iterator>

#include "engine/connection.h"
#include "engine/engine_error.h"
#include "support/utf8.h"

namespace snippetarium {

Parameter Parameter::Long(std::string_view name, std::int32_t number) {
    return {name, Type::Long, number};
}

Parameter Parameter::Text50(std::string_view name, std::string_view text) {
    return {name, Type::Text, std::string(CutToCharacters(text, 50))};
}

Parameter Parameter::Text255(std::string_view name, std::string_view text) {
    return {name, Type::Text, std::string(CutToCharacters(text, 255))};
}

Parameter Parameter::LongText(std::string_view name, std::string_view text) {
    return {name, Type::LongText, std::string(text)};
}

void Command::DeleteParameter(std::size_t index) {
    if (index >= parameters_.size()) {
        throw EngineError(EngineErrorCode::FieldNotFound,
                          "The command has no parameter number " + std::to_string(index) + ".");
    }
    parameters_.erase(std::next(parameters_.begin(), static_cast<std::ptrdiff_t>(index)));
}

Connection& Command::ActiveConnection() const {
    if (connection_ != nullptr) return *connection_;
    throw EngineError(EngineErrorCode::ObjectClosed,
                      "The command has no connection: the catalogue is not open.");
}

Recordset Command::Execute() {
    return ActiveConnection().ExecuteNamedQuery(text_, parameters_);
}

Recordset Command::ExecuteSearch() {
    return ActiveConnection().ExecuteNamedSearch(text_, parameters_);
}

}  // namespace snippetarium
