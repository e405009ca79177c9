#include <gtest/gtest.h>

#include <string>

#include "engine/jet_sql.h"
#include "tests/engine/sample_catalogue.h"
#include "tests/engine/sample_statements.h"

namespace snippetarium::test {
namespace {

class JetSqlStatements : public ::testing::Test {
  protected:
    Outcome TryTranslated(const std::string& statement) const {
        const Translation translation = Translate(statement, {});
        return catalogue_.Try(translation.sql, translation.parameters);
    }

    /// The translation does something, and the same as the statement itself.
    void ExpectSameMeaning(const std::string& statement) const {
        const Outcome translated = TryTranslated(statement);
        EXPECT_EQ(translated.error, "") << statement;
        EXPECT_FALSE(translated.rows.empty()) << statement;
        const Outcome plain = catalogue_.Try(PlainStatement(statement));
        EXPECT_EQ(plain, translated) << statement;
    }

    SampleCatalogue catalogue_;
};

TEST_F(JetSqlStatements, EveryActionOfTheCatalogueChangesWhatItSays) {
    for (const std::string& statement : ActionStatements())
        ExpectSameMeaning(statement);
}

TEST_F(JetSqlStatements, EverySearchOfTheCatalogueFindsTheSame) {
    for (const std::string& statement : ReadStatements())
        ExpectSameMeaning(statement);
}

TEST_F(JetSqlStatements, NoValueStaysInTheTextOfAnAction) {
    for (const std::string& statement : ActionStatements()) {
        const Translation translation = Translate(statement, {});
        EXPECT_EQ(translation.sql.find_first_of("'#;"), std::string::npos) << translation.sql;
        const std::size_t digit = translation.sql.find_first_of("0123456789");
        EXPECT_EQ(digit, translation.parameters.empty() ? std::string::npos
                                                        : translation.sql.find('?') + 1)
            << translation.sql;
    }
}

TEST_F(JetSqlStatements, ThirtyKeywordsFitTheEnginesParser) {
    const std::string thirty = KeywordAndSearch(30);
    EXPECT_EQ(catalogue_.Try(thirty).error, "parser stack overflow");
    EXPECT_EQ(TryTranslated(thirty).error, "");
}

TEST_F(JetSqlStatements, TopReturnsThatManyRows) {
    EXPECT_EQ(TryTranslated("SELECT TOP 3 codeID FROM tblCode ORDER BY codeName DESC;").rows,
              catalogue_.Try("SELECT codeID FROM tblCode ORDER BY codeName DESC LIMIT 3").rows);
}

TEST_F(JetSqlStatements, AltersTables) {
    EXPECT_EQ(TryTranslated("ALTER TABLE tblAuthor ADD COLUMN mail TEXT DEFAULT 'none';").error,
              "");
}

}  // namespace
}  // namespace snippetarium::test
