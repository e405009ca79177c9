#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "cli/closest_names.h"
#include "cli/command_context.h"
#include "cli/query_output.h"
#include "cli/usage_error.h"
#include "store/names.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"NAME",  Occurs::AtMostOnce, "the stored query; without it, all of them are listed"},
    {"VALUE", Occurs::AnyNumber,  "a value for each of the query's parameters, in their order"},
};
constexpr CommandExample kExamples[] = {
    {"query",                               "The stored queries and their parameters."},
    {"query qryClassWithCodeCountByAppID 2", "The classes of application 2."},
    {"--json query qryCodeByID 7",          "Every field of a procedure, for a script."},
};
// clang-format on

std::string_view NameOf(QueryParameterKind kind) {
    switch (kind) {
        case QueryParameterKind::Long:
            return "number";
        case QueryParameterKind::Text50:
            return "text of 50 characters";
        case QueryParameterKind::Text255:
            return "text of 255 characters";
        case QueryParameterKind::LongText:
            return "text";
    }
    return {};
}

std::string ParameterNames(const StoredQuery& query) {
    std::string names;
    for (const QueryParameter& parameter : ParseQueryParameters(query.parameters)) {
        if (!names.empty()) names += ", ";
        names += parameter.name;
    }
    return names;
}

const StoredQuery& FindQuery(const std::string& name) {
    if (const StoredQuery* query = FindStoredQuery(name)) return *query;
    std::vector<std::string_view> names;
    for (const StoredQuery& query : StoredQueries())
        names.push_back(query.name);
    throw UsageError("There is no stored query '" + name + "'." + ClosestNamesHint(name, names));
}

Parameter Bind(const QueryParameter& parameter, const std::string& value) {
    switch (parameter.kind) {
        case QueryParameterKind::Text50:
            return Parameter::Text50(parameter.name, value);
        case QueryParameterKind::Text255:
            return Parameter::Text255(parameter.name, value);
        case QueryParameterKind::LongText:
            return Parameter::LongText(parameter.name, value);
        case QueryParameterKind::Long:
            break;
    }
    if (const auto number = ReadNumber(value)) return Parameter::Long(parameter.name, *number);
    throw UsageError("The parameter '" + std::string(parameter.name) +
                     "' takes a whole number, not '" + value + "'.");
}

std::vector<Parameter> BindAll(const StoredQuery& query, std::span<const std::string> values) {
    const std::vector<QueryParameter> parameters = ParseQueryParameters(query.parameters);
    if (parameters.size() != values.size()) {
        std::string wanted = "no values";
        if (!parameters.empty()) {
            wanted = std::to_string(parameters.size()) +
                     (parameters.size() == 1 ? " value (" : " values (") + ParameterNames(query) +
                     ")";
        }
        throw UsageError("'" + std::string(query.name) + "' takes " + wanted + ", not " +
                         std::to_string(values.size()) + ".");
    }
    std::vector<Parameter> bound;
    for (std::size_t i = 0; i < parameters.size(); ++i)
        bound.push_back(Bind(parameters[i], values[i]));
    return bound;
}

void ListQueries(CommandContext& context) {
    if (!context.WantsJson()) {
        for (const StoredQuery& query : StoredQueries())
            context.Output() << query.name << "  " << ParameterNames(query) << '\n';
        return;
    }
    Json queries = Json::array();
    for (const StoredQuery& query : StoredQueries()) {
        Json parameters = Json::array();
        for (const QueryParameter& parameter : ParseQueryParameters(query.parameters))
            parameters.push_back({{"name", parameter.name}, {"kind", NameOf(parameter.kind)}});
        queries.push_back({{"name", query.name}, {"parameters", std::move(parameters)}});
    }
    context.SetDocument({{"queries", std::move(queries)}});
}

void Run(CommandContext& context) {
    const std::optional<std::string> name = context.Given().Value("NAME");
    if (!name) return ListQueries(context);
    const StoredQuery& query = FindQuery(*name);
    const std::vector<Parameter> values = BindAll(query, context.Given().All("VALUE"));

    Database& db = context.Catalogue(CatalogueUse::Read);
    Recordset rows = db.GetConnection().ExecuteNamedQuery(query.name, values);
    if (context.WantsJson()) {
        context.SetDocument({{"query", query.name}, {"rows", RowsDocument(std::move(rows))}});
    } else {
        PrintRows(context.Output(), std::move(rows));
    }
}

}  // namespace

constexpr CliCommand kQueryCommand = {
    .name = "query",
    .summary = "run one of the catalogue's stored queries",
    .description =
        "Runs a stored query and prints its rows: as a table in which long texts are cut, or with "
        "--json as one document that holds all of every text.\n\n"
        "The name may be written in capitals or small letters.",
    .arguments = kArguments,
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
