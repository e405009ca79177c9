#include "store/names.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "store/catalogue_content.h"
#include "support/error.h"
#include "tests/store/delivered_catalogue.h"

namespace snippetarium::test {
namespace {

using Kind = QueryParameterKind;

std::string DescriptionOf(std::string_view name, std::string_view parameters) {
    return std::string(name) + "(" + std::string(parameters) + ")";
}

TEST(Names, StoredQueriesAreThoseOfTheFilesWithTheSameParameters) {
    std::vector<std::string> known;
    for (const StoredQuery& query : StoredQueries())
        known.push_back(DescriptionOf(query.name, query.parameters));
    std::vector<std::string> written;
    for (const QueryText& query : StoredQueryTexts())
        written.push_back(DescriptionOf(query.name, query.parameters));
    EXPECT_EQ(known, written);
    EXPECT_EQ(known.size(), 87U);
}

TEST(Names, FindsAStoredQueryWhateverItsLetterCase) {
    ASSERT_NE(FindStoredQuery("QRYappnameBYID"), nullptr);
    EXPECT_EQ(FindStoredQuery("QRYappnameBYID")->name, "qryAppNameByID");
    EXPECT_EQ(FindStoredQuery("qryAppNameBy"), nullptr);
    EXPECT_EQ(FindStoredQuery(""), nullptr);
}

TEST(Names, TakesADeclarationApart) {
    const struct {
        std::string_view declaration;
        std::vector<QueryParameter> expected;
    } cases[] = {
        {"", {}},
        {" ", {}},
        {"appID I", {{"appID", Kind::Long}}},
        {" appID  I ,path L", {{"appID", Kind::Long}, {"path", Kind::LongText}}},
        {"a T50, b T255", {{"a", Kind::Text50}, {"b", Kind::Text255}}},
    };
    for (const auto& test : cases)
        EXPECT_EQ(ParseQueryParameters(test.declaration), test.expected) << test.declaration;
}

TEST(Names, RefusesADeclarationThatCannotBeMeant) {
    for (const std::string_view declaration :
         {"appID", "appID X", "appID T", "appID I,", ", appID I", "a I b I", "app-ID I", "appID i",
          "appID I, appID L"}) {
        EXPECT_THROW(ParseQueryParameters(declaration), Error) << declaration;
    }
}

TEST(Names, ListTheTablesOfADeliveredCatalogue) {
    DeliveredCatalogue catalogue;
    const std::span<const std::string_view> tables = CatalogueTables();
    for (const std::string_view table : tables) {
        EXPECT_NO_THROW(catalogue.Select("SELECT count(*) FROM " + std::string(table))) << table;
    }
    const std::string script = SchemaScript();
    std::ptrdiff_t made = 0;
    for (std::size_t at = 0; (at = script.find("CREATE TABLE ", at)) != std::string::npos; ++at)
        ++made;
    EXPECT_EQ(std::ssize(tables), made);
}

}  // namespace
}  // namespace snippetarium::test
