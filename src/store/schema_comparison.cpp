#include "store/schema_comparison.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "store/catalogue_content.h"
#include "support/case_fold.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::size_t kExamples = 5;

struct SchemaObject {
    std::string type;
    std::string name;
    std::string text;

    std::string Title() const { return type + " " + name; }
};
/// By title.
using Schema = std::map<std::string, SchemaObject>;

Schema ReadSchema(const Inspection& inspection) {
    Schema schema;
    Recordset row =
        inspection.Read("SELECT type, name, sql FROM sqlite_schema WHERE name NOT GLOB 'sqlite_*'");
    for (; !row.EndOfFile(); row.MoveNext()) {
        SchemaObject object{row["type"].Text(), row["name"].Text(), row["sql"].Text()};
        const std::string title = object.Title();
        schema.emplace(title, std::move(object));
    }
    return schema;
}

bool IsBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

bool IsPunctuation(char character) {
    return std::string_view("(),=<>|;").find(character) != std::string_view::npos;
}

void Add(CheckFinding& finding, const std::string& example, const std::string& mending) {
    ++finding.count;
    if (finding.examples.size() < kExamples) finding.examples.push_back(example);
    if (!mending.empty()) finding.mendingScript += mending + ";\n";
}

CheckFinding Finding(FindingKind kind, FindingWeight weight, std::string_view what,
                     std::string_view advice) {
    CheckFinding finding;
    finding.kind = kind;
    finding.weight = weight;
    finding.what = what;
    finding.advice = advice;
    return finding;
}

/// Tables first: what is made anew must find its table.
std::vector<const SchemaObject*> InOrderOfMaking(const Schema& schema) {
    std::vector<const SchemaObject*> objects;
    for (const std::string_view type : {"table", "index", "view", "trigger"}) {
        for (const auto& [title, object] : schema) {
            if (object.type == type) objects.push_back(&object);
        }
    }
    return objects;
}

std::string Replacement(const SchemaObject& object) {
    // A table made anew would be empty.
    if (object.type == "table") return {};
    return "DROP " + object.Title() + "; " + object.text;
}

std::vector<std::string> ReadStatistics(const Inspection& inspection) {
    std::vector<std::string> rows;
    Recordset row = inspection.Read(
        "SELECT '(' || quote(tbl) || ', ' || quote(idx) || ', ' || quote(stat) || ')' FROM "
        "sqlite_stat1 ORDER BY 1");
    for (; !row.EndOfFile(); row.MoveNext())
        rows.push_back(row[std::size_t{0}].Text());
    return rows;
}

CheckFinding CompareStatistics(const Inspection& catalogue, const Inspection& delivered) {
    CheckFinding finding = Finding(
        FindingKind::ChangedStatistics, FindingWeight::Fault,
        "figures of the query planner that are not the program's",
        "Another program has analysed the file, so that searches may take very long. Mending puts "
        "the program's figures back.");
    const bool hasStatistics =
        catalogue.ReadNumber("SELECT count(*) FROM sqlite_schema WHERE name = 'sqlite_stat1'") > 0;
    const std::vector<std::string> wanted = ReadStatistics(delivered);
    const std::vector<std::string> found =
        hasStatistics ? ReadStatistics(catalogue) : std::vector<std::string>();
    std::vector<std::string> different;
    std::set_symmetric_difference(wanted.begin(), wanted.end(), found.begin(), found.end(),
                                  std::back_inserter(different));
    for (const std::string& row : different)
        Add(finding, row, {});
    finding.mendingScript = "ANALYZE sqlite_schema; DELETE FROM sqlite_stat1;\n";
    for (const std::string& row : wanted) {
        finding.mendingScript += "INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES " + row + ";\n";
    }
    finding.mendingScript += "ANALYZE sqlite_schema";  // makes open connections read them
    return finding;
}

std::vector<CheckFinding> WithoutEmptyOnes(std::vector<CheckFinding> findings) {
    std::erase_if(findings, [](const CheckFinding& finding) { return finding.count == 0; });
    return findings;
}

}  // namespace

std::string NormalisedSchemaText(std::string_view text) {
    std::string normalised;
    bool isBlankDue = false;
    const auto append = [&](char character) {
        const bool isApart =
            !normalised.empty() && !IsPunctuation(normalised.back()) && !IsPunctuation(character);
        if (isBlankDue && isApart) normalised += ' ';
        isBlankDue = false;
        normalised += character;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, 2) == "--") {
            i = std::min(text.find('\n', i), text.size());
            isBlankDue = true;
        } else if (IsBlank(text[i])) {
            isBlankDue = true;
        } else if (text[i] == '\'') {
            const std::size_t end = std::min(text.find('\'', i + 1), text.size() - 1);
            append('\'');
            normalised += text.substr(i + 1, end - i);
            i = end;
        } else {
            append(AsciiLower(text[i]));
        }
    }
    return normalised;
}

std::vector<CheckFinding> CompareSchemas(const Inspection& catalogue, const Inspection& delivered) {
    CheckFinding missing = Finding(FindingKind::MissingSchemaObject, FindingWeight::Fault,
                                   "tables, indexes and triggers that are missing",
                                   "Mending makes them anew; a missing table is then empty.");
    CheckFinding changed = Finding(
        FindingKind::ChangedSchemaObject, FindingWeight::Fault,
        "tables, indexes and triggers that are not the program's",
        "Another program has changed them. Mending makes indexes and triggers anew. Where a "
        "table differs, recover the catalogue: it copies what fits into the right one.");
    CheckFinding foreign = Finding(FindingKind::ForeignSchemaObject, FindingWeight::Information,
                                   "tables, indexes and triggers of other programs",
                                   "A trigger or an index of another program slows writing down. "
                                   "Recovering the catalogue leaves them out.");
    const Schema found = ReadSchema(catalogue);
    const Schema wanted = ReadSchema(delivered);
    for (const SchemaObject* object : InOrderOfMaking(wanted)) {
        const auto same = found.find(object->Title());
        if (same == found.end()) {
            Add(missing, object->Title(), object->text);
        } else if (NormalisedSchemaText(same->second.text) != NormalisedSchemaText(object->text)) {
            Add(changed, object->Title(), Replacement(*object));
        }
    }
    for (const SchemaObject* object : InOrderOfMaking(found)) {
        if (!wanted.contains(object->Title())) Add(foreign, object->Title(), {});
    }
    return WithoutEmptyOnes({missing, changed, foreign, CompareStatistics(catalogue, delivered)});
}

std::vector<CheckFinding> CompareStoredQueries(const Inspection& catalogue,
                                               const Inspection& delivered) {
    CheckFinding changed = Finding(
        FindingKind::ChangedStoredQuery, FindingWeight::Fault,
        "stored queries that are missing or not the program's",
        "Opening the catalogue for writing puts the program's queries back; so does mending.");
    const std::string_view all =
        "SELECT name, name || char(10) || parameters || char(10) || body AS text FROM "
        "tblNamedQuery ORDER BY name";
    std::map<std::string, std::string> texts;
    for (Recordset row = delivered.Read(all); !row.EndOfFile(); row.MoveNext()) {
        texts.emplace(row["name"].Text(), row["text"].Text());
    }
    for (Recordset row = catalogue.Read(all); !row.EndOfFile(); row.MoveNext()) {
        const auto wanted = texts.find(row["name"].Text());
        const bool isSame = wanted != texts.end() && wanted->second == row["text"].Text();
        if (!isSame) Add(changed, row["name"].Text(), {});
        if (wanted != texts.end()) texts.erase(wanted);
    }
    for (const auto& [name, text] : texts)
        Add(changed, name, {});
    changed.mendingScript = StoredQueriesScript();
    return WithoutEmptyOnes({changed});
}

}  // namespace snippetarium
