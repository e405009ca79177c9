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

bool IsSeed(const EmbeddedFile& file) {
    return file.path.starts_with(kSeedFolder);
}

template <typename Predicate>
std::string JoinFiles(Predicate&& belongs) {
    std::string script;
    for (const EmbeddedFile& file : EmbeddedFiles()) {
        if (belongs(file)) script += file.text;
    }
    return script;
}

std::string Quoted(std::string_view text) {
    return "'" + DoubleSingleQuotes(text) + "'";
}

}  // namespace

std::string SchemaScript() {
    return JoinFiles(IsSchema);
}

std::string SeedScript() {
    return JoinFiles(IsSeed);
}

std::string_view DataFile(std::string_view path) {
    const std::span<const EmbeddedFile> files = EmbeddedFiles();
    const auto file = std::ranges::find(files, path, &EmbeddedFile::path);
    if (file != files.end()) return file->text;
    throw Error(error_number::kInternal, "The program lacks its file '" + std::string(path) + "'.");
}

std::string_view MigrationScript(std::int32_t from) {
    return DataFile("migrations/" + std::to_string(from) + "_to_" + std::to_string(from + 1) +
                    ".sql");
}

std::vector<QueryText> StoredQueryTexts() {
    std::vector<QueryText> all;
    for (const EmbeddedFile& file : EmbeddedFiles()) {
        if (!file.path.starts_with(kQueriesFolder)) continue;
        std::vector<QueryText> queries = ParseQueryTexts(file.path, file.text);
        std::move(queries.begin(), queries.end(), std::back_inserter(all));
    }
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
