#include "engine/search_conditions.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace snippetarium {
namespace {

constexpr std::array<std::string_view, 2> kClassColumns = {"classDI", "classComment"};
constexpr std::array<std::string_view, 2> kCodeColumns = {"code", "codeName"};
constexpr std::array kTables = {
    IndexedTable{.number = 2, .name = "tblClass", .idColumn = "classID", .columns = kClassColumns},
    IndexedTable{.number = 3,
                 .name = "tblCode",
                 .idColumn = "codeID",
                 .columns = kCodeColumns,
                 .parentColumn = "classID",
                 .parentTable = "tblClass"},
};

std::string Describe(const SearchSelect& select, const SearchCondition& condition) {
    if (condition.kind == SearchCondition::Kind::Unknown) return "?";
    if (condition.kind == SearchCondition::Kind::Text) {
        const SearchSelect::Source& source = select.sources[condition.source];
        std::string text =
            source.alias + "." + std::string(source.table->columns[condition.column]);
        text += condition.comparison == TextComparison::Like ? "~" : "=";
        for (const PatternPart& part : condition.pattern)
            text += part.isParameter ? "<" + part.text + ">" : part.text;
        return text;
    }
    std::string text = condition.kind == SearchCondition::Kind::All ? "all(" : "any(";
    for (const SearchCondition& part : condition.parts)
        text += (text.back() == '(' ? "" : ", ") + Describe(select, part);
    return text + ")";
}

/// What is known of each SELECT, with what stands between "WHERE" and its end.
std::string Describe(const std::string& statement) {
    std::string all;
    for (const SearchSelect& select : ReadSearchSelects(statement, kTables)) {
        if (!all.empty()) all += " | ";
        all += Describe(select, select.condition);
        for (const SearchSelect::Link& link : select.links)
            all +=
                " " + select.sources[link.child].alias + "->" + select.sources[link.parent].alias;
    }
    return all;
}

constexpr std::string_view kFrom =
    "SELECT a.appName FROM (tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER "
    "JOIN tblCode cd ON cls.classID = cd.classID WHERE ";

struct Case {
    std::string_view condition;
    std::string_view description;
};

// clang-format off
constexpr Case kConditions[] = {
    {"cd.Code LIKE '%a%'", "cd.code~%a%"},
    {"CD.CODE like '%it''s%' ;", "cd.code~%it's%"},
    {"(( cd.Code LIKE '%a%' ))", "cd.code~%a%"},
    {"cd.Code LIKE '%a%' or cls.classDI LIKE '%b%'", "any(cd.code~%a%, cls.classDI~%b%)"},
    {"cd.Code LIKE '%a%' and cd.Code LIKE '%b%' or cls.classDI LIKE 'c'", "any(all(cd.code~%a%, cd.code~%b%), cls.classDI~c)"},
    {"cd.Code LIKE '%a%' and (cd.Code LIKE '%b%' or cls.classDI LIKE 'c')", "all(cd.code~%a%, any(cd.code~%b%, cls.classDI~c))"},
    {"cls.languageID = 3 AND (cd.Code LIKE '%a%')", "all(?, cd.code~%a%)"},
    {"cd.codeName = [name] OR cd.codeName LIKE '%' || [name] || '%'", "any(cd.codeName=<name>, cd.codeName~%<name>%)"},
    {"not cd.Code LIKE '%a%' and cd.Code LIKE '%b%'", "all(?, cd.code~%b%)"},
    {"cd.Code NOT LIKE '%a%' and cd.Code LIKE '%b%'", "all(?, cd.code~%b%)"},
    {"cls.appID BETWEEN 1 AND 2 AND cd.Code LIKE '%a%'", "all(?, cd.code~%a%)"},
    {"cd.codeID IN (SELECT 1 FROM tblCode cd WHERE cd.Code LIKE '%x%' or 1) and cd.Code LIKE '%a%'", "all(?, cd.code~%a%)"},
    // no restriction at all
    {"not cd.Code LIKE '%a%'", ""},
    {"(cd.Code LIKE '%a%') = 0", ""},
    {"0 = (cd.Code LIKE '%a%')", ""},
    {"cd.Code LIKE '%a%' = 0", ""},
    {"cd.Code LIKE '%a%' || cd.codeName", ""},
    {"cd.Code LIKE '%a%' IS NULL", ""},
    {"cd.Code LIKE '%a%' COLLATE BINARY", ""},
    {"CASE WHEN 1 THEN 0 END and cd.Code LIKE '%a%'", ""},
    {"x.Code LIKE '%a%'", ""},
    {"code LIKE '%a%'", ""},
    {"a.appName LIKE '%a%'", ""},
    {"cd.Code LIKE '%a%') OR (1", ""},
    {"cd.Code LIKE '%a%' OR", "any(cd.code~%a%, ?)"},
};
constexpr Case kStatements[] = {
    {"SELECT 1 FROM tblCode AS c, tblClass WHERE c.code LIKE 'a' AND tblClass.classDI LIKE 'b' UNION SELECT 2 FROM tblClass WHERE tblClass.classDI LIKE 'c' ORDER BY 1", "all(c.code~a, tblClass.classDI~b) | tblClass.classDI~c"},
    {"SELECT 1 FROM tblCode cd CROSS JOIN tblClass cls ON cd.classID = cls.classID WHERE cd.code LIKE 'a'", "cd.code~a cd->cls"},
    {"SELECT 1 FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID + 1 WHERE cd.code LIKE 'a'", "cd.code~a"},
    {"SELECT 1 FROM tblCode cd INNER JOIN tblClass cls ON cd.codeID = cls.classID WHERE cd.code LIKE 'a'", "cd.code~a"},
    {"SELECT 1 FROM tblCode cd INNER JOIN tblClass cls ON 1 OR cd.classID = cls.classID WHERE cd.code LIKE 'a'", ""},
    {"SELECT 1 FROM tblClass cls LEFT JOIN tblCode cd ON cd.classID = cls.classID WHERE cd.code LIKE 'a'", ""},
    {"SELECT 1 FROM tblCode cd, tblClass cd WHERE cd.code LIKE 'a'", ""},
    {"SELECT 1 FROM other.tblCode cd WHERE cd.code LIKE 'a'", ""},
    {"SELECT 1 FROM (SELECT 1 FROM tblCode cd) WHERE cd.code LIKE 'a'", ""},
    {"SELECT 1 FROM tblCode cd WHERE cd.code LIKE 'a' GROUP BY cd.code HAVING cd.code LIKE 'b'", "cd.code~a"},
    {"SELECT 1", ""},
    {"SELECT 1 FROM tblCode WHERE", ""},
};
// clang-format on

TEST(SearchConditions, AreReadAsFarAsTheyAreUnderstood) {
    for (const Case& row : kConditions) {
        const bool isNothing = row.description.empty();
        EXPECT_EQ(Describe(std::string(kFrom) + std::string(row.condition)),
                  isNothing ? "" : std::string(row.description) + " cd->cls")
            << row.condition;
    }
    for (const Case& row : kStatements)
        EXPECT_EQ(Describe(std::string(row.condition)), row.description) << row.condition;
}

TEST(SearchConditions, SayWhereTheyStand) {
    const std::string statement =
        "SELECT 1 FROM tblCode c WHERE c.code LIKE 'a' UNION SELECT 2 FROM tblCode c WHERE (c.code "
        "LIKE 'b') ;";
    std::string conditions;
    for (const SearchSelect& select : ReadSearchSelects(statement, kTables)) {
        conditions +=
            statement.substr(select.conditionBegin, select.conditionEnd - select.conditionBegin) +
            "\n";
    }
    EXPECT_EQ(conditions, "c.code LIKE 'a'\n(c.code LIKE 'b')\n");
}

}  // namespace
}  // namespace snippetarium
