#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/connection.h"
#include "engine/create_database.h"
#include "store/catalogue_content.h"
#include "store/names.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {

using QueryValue = std::variant<std::int32_t, std::string_view>;

/// A new delivered catalogue in a folder of its own, open for writing, with nothing of the store
/// between it and the test.
class DeliveredCatalogue {
  public:
    DeliveredCatalogue() {
        CreateDatabase(Path(), CreationScript());
        connection_.SetConnectionString("Provider=" + std::string(kCatalogueProvider) +
                                        ";Data Source=" + Path());
        connection_.Open();
    }

    std::string Path() const { return folder_.File("QRT_SN.mde"); }
    Connection& GetConnection() { return connection_; }

    void Fill(std::string_view script) { connection_.RunScript(script); }
    void Act(std::string_view statement) { connection_.ExecuteAction(statement); }

    /// Runs a stored query with values for the parameters that it declares.
    Recordset Run(std::string_view query, std::vector<QueryValue> values = {}) {
        const StoredQuery* declaration = FindStoredQuery(query);
        if (declaration == nullptr) throw std::runtime_error("no query " + std::string(query));
        const std::vector<QueryParameter> parameters =
            ParseQueryParameters(declaration->parameters);
        if (parameters.size() != values.size()) throw std::runtime_error("wrong number of values");
        std::vector<Parameter> bound;
        for (std::size_t i = 0; i < values.size(); ++i)
            bound.push_back(Bind(parameters[i], values[i]));
        return connection_.ExecuteNamedQuery(query, bound);
    }

    /// The rows of a stored query, each as its fields with "|" between them; null is "-".
    std::vector<std::string> Rows(std::string_view query, std::vector<QueryValue> values = {}) {
        return AllRows(Run(query, std::move(values)));
    }
    std::vector<std::string> Select(std::string_view statement) {
        return AllRows(connection_.Execute(statement));
    }

    static std::vector<std::string> AllRows(Recordset recordset) {
        std::vector<std::string> rows;
        for (; !recordset.EndOfFile(); recordset.MoveNext()) {
            std::string row;
            for (std::size_t i = 0; i < recordset.ColumnCount(); ++i) {
                if (i > 0) row += '|';
                row += recordset[i].IsNull() ? "-" : recordset[i].Text();
            }
            rows.push_back(row);
        }
        return rows;
    }

  private:
    static Parameter Bind(const QueryParameter& parameter, const QueryValue& value) {
        if (parameter.kind == QueryParameterKind::Long)
            return Parameter::Long(parameter.name, std::get<std::int32_t>(value));
        const auto text = std::get<std::string_view>(value);
        if (parameter.kind == QueryParameterKind::Text50)
            return Parameter::Text50(parameter.name, text);
        if (parameter.kind == QueryParameterKind::Text255)
            return Parameter::Text255(parameter.name, text);
        return Parameter::LongText(parameter.name, text);
    }

    TemporaryFolder folder_;
    Connection connection_{CatalogueProviders()};
};

}  // namespace snippetarium::test
