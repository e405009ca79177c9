#include "store/schema_comparison.h"

#include <gtest/gtest.h>

namespace snippetarium::test {
namespace {

TEST(NormalisedSchemaText, IsTheSameForTextsThatMeanTheSame) {
    const struct {
        std::string_view a;
        std::string_view b;
        bool isSame;
    } cases[] = {
        {"CREATE TABLE t(a INTEGER, b TEXT)", "create table T (\r\n  a integer ,\r\n\tb  TEXT\r\n)",
         true},
        {"CREATE TABLE t(a, b)", "CREATE TABLE t(a, -- the first, 'not' the last\n b)", true},
        {"CREATE TABLE t(a)", "CREATE TABLE t(a) -- end", true},
        {"CREATE TABLE t(a, b)", "CREATE TABLE t(a b)", false},
        {"CREATE TABLE t(a, b)", "CREATE TABLE t(b, a)", false},
        {"CREATE TABLE t(a DEFAULT 'x')", "CREATE TABLE t(a DEFAULT 'X')", false},
        {"CREATE TABLE t(a DEFAULT ' -- ')", "CREATE TABLE t(a DEFAULT '  -- ')", false},
        {"CREATE TABLE t(a DEFAULT 'it''s')", "CREATE TABLE t( a  DEFAULT 'it''s' )", true},
        {"CREATE INDEX i ON t(a) WHERE a<>1", "CREATE INDEX i ON t(a) WHERE a <> 1", true},
        {"CREATE INDEX i ON t(ab)", "CREATE INDEX i ON t(a b)", false},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(NormalisedSchemaText(test.a) == NormalisedSchemaText(test.b), test.isSame)
            << NormalisedSchemaText(test.a) << "\n"
            << NormalisedSchemaText(test.b);
    }
}

TEST(NormalisedSchemaText, TakesAnyText) {
    for (const std::string_view text : {"", "'", "--", "-- x", "'unended", "a 'b", "(", ",", "-"}) {
        EXPECT_LE(NormalisedSchemaText(text).size(), text.size());
    }
}

}  // namespace
}  // namespace snippetarium::test
