#include "store/catalogue_content.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "store/embedded_files.h"
#include "support/error.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::string_view kQueriesFolder = "queries/";
constexpr std::string_view kSeedFolder = "seed/";

bool IsSchema(const EmbeddedFile& file) {
    return file.path.find('/') == std::string_view::npos;
}

std::string Quoted(std::string_view text) {
    return "'" + DoubleSingleQuotes(text) + "'";
}

void RequireDifferentNames(const std::vector<QueryText>& queries) {
    for (auto query = queries.begin(); query != queries.end(); ++query) {
        const auto isNamesake = [&](const QueryText& other) { return other.name == query->name; };
        if (std::none_of(queries.begin(), query, isNamesake)) continue;
        throw Error(error_number::kInternal,
                    "There are two stored queries of the name '" + query->name + "'.");
    }
}

}  // namespace

std::string SchemaScript() {
    std::string script;
    for (const EmbeddedFile& file : EmbeddedFiles()) {
        if (IsSchema(file)) script += file.text;
    }
    return script;
}

std::string SeedScript() {
    std::string script;
    for (const EmbeddedFile& file : EmbeddedFiles()) {
        if (file.path.starts_with(kSeedFolder)) script += file.text;
    }
    return script;
}

std::vector<QueryText> StoredQueryTexts() {
    std::vector<QueryText> all;
    for (const EmbeddedFile& file : EmbeddedFiles()) {
        if (!file.path.starts_with(kQueriesFolder)) continue;
        std::vector<QueryText> queries = ParseQueryTexts(file.path, file.text);
        std::move(queries.begin(), queries.end(), std::back_inserter(all));
    }
    RequireDifferentNames(all);
    return all;
}

std::string StoredQueriesScript() {
    std::string script = "DELETE FROM tblNamedQuery;\n";
    for (const QueryText& query : StoredQueryTexts()) {
        script += "INSERT INTO tblNamedQuery(name, parameters, body) VALUES (" +
                  Quoted(query.name) + ", " + Quoted(query.parameters) + ", " + Quoted(query.body) +
                  ");\n";
    }
    return script;
}

std::string CreationScript() {
    return SchemaScript() + SeedScript() + StoredQueriesScript() +
           "PRAGMA user_version = " + std::to_string(kCatalogueVersion) + ";\n";
}

}  // namespace snippetarium
