#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/recordset.h"

namespace snippetarium {

class Connection;

/// A value for a parameter of a named query. Texts are cut to the parameter's size, counted in
/// characters: a longer one can only be meant for a value that was cut when it was stored.
class Parameter {
  public:
    enum class Type : std::uint8_t { Long, Text, LongText };
    using Bound = std::variant<std::int32_t, std::string>;

    static Parameter Long(std::string_view name, std::int32_t number);
    static Parameter Text50(std::string_view name, std::string_view text);
    static Parameter Text255(std::string_view name, std::string_view text);
    /// Without a limit: paths and search patterns.
    static Parameter LongText(std::string_view name, std::string_view text);

    const std::string& Name() const { return name_; }
    Type GetType() const { return type_; }
    const Bound& GetValue() const { return value_; }

  private:
    Parameter(std::string_view name, Type type, Bound value)
        : name_(name), type_(type), value_(std::move(value)) {}

    std::string name_;
    Type type_;
    Bound value_;
};

/// Runs named queries with parameters. One command is shared by everything that reads the catalogue
/// by name; whoever uses it clears its parameters afterwards.
class Command {
  public:
    void SetActiveConnection(Connection* connection) { connection_ = connection; }
    /// The name of the query to run.
    void SetText(std::string_view text) { text_ = text; }
    const std::string& Text() const { return text_; }

    void Append(Parameter parameter) { parameters_.push_back(std::move(parameter)); }
    std::size_t ParameterCount() const { return parameters_.size(); }
    void DeleteParameter(std::size_t index);

    /// Runs the query with the parameters in the order in which they were appended. Throws
    /// EngineError: ObjectClosed without an open connection, NoSuchTable for an unknown name,
    /// WrongParameters where their number or kinds differ from what the query declares.
    Recordset Execute();
    /// The same for a query that looks for a text: it can be cancelled, as searches can.
    Recordset ExecuteSearch();

  private:
    Connection& ActiveConnection() const;

    Connection* connection_ = nullptr;
    std::string text_;
    std::vector<Parameter> parameters_;
};

}  // namespace snippetarium
