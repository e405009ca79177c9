#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "engine/engine_error.h"
#include "engine/jet_sql.h"
#include "tests/engine/sample_catalogue.h"
#include "tests/engine/sample_statements.h"

namespace snippetarium::test {
namespace {

/// Deletes, inserts and swaps bytes; what it inserts is mostly what statements are made of.
class Mutator {
  public:
    std::string Mutate(std::string text) {
        for (std::size_t changes = 1 + Below(2); changes > 0; --changes)
            Change(text);
        return text;
    }
    std::size_t Below(std::size_t limit) { return random_() % limit; }

  private:
    void Change(std::string& text) {
        static constexpr std::string_view kPieces[] = {
            "'",        "''",      "\"",      "#",          "(",           ")",
            "[",        "]",       ";",       "-",          "--",          "/*",
            "*",        "?",       "@",       ",",          ".",           " ",
            "=",        "0",       "1",       "x",          "1.5e3",       " FROM ",
            " SELECT ", " UNION ", " TOP 3 ", " a ",        " WHERE ",     " INNER JOIN ",
            " LEFT ",   " ON ",    " AS ",    " DISTINCT ", "#3/14/2001#", "''''",
            "\xC3\xA9"};
        const std::size_t place = Below(text.size() + 1);
        switch (Below(4)) {
            case 0:
                text.erase(place, 1 + Below(8));
                break;
            case 1:
                text.insert(place, kPieces[Below(std::size(kPieces))]);
                break;
            case 2:
                text.insert(place, 1, static_cast<char>(Below(256)));
                break;
            default:
                std::swap(text[Below(text.size())], text[Below(text.size())]);
                break;
        }
    }

    std::mt19937 random_{20010314};
};

/// What SQLite makes of a text. `acts` are the letters of the changes that its first statement
/// would make: i, u, d, a for ALTER.
struct Reading {
    bool isAccepted = false;
    bool isOneStatement = false;
    std::string error;
    int parameterCount = 0;
    std::set<char> acts;
};

int NoteAct(void* acts, int action, const char*, const char*, const char*, const char*) {
    const char act = action == SQLITE_INSERT        ? 'i'
                     : action == SQLITE_UPDATE      ? 'u'
                     : action == SQLITE_DELETE      ? 'd'
                     : action == SQLITE_ALTER_TABLE ? 'a'
                                                    : '\0';
    if (act != '\0') static_cast<std::set<char>*>(acts)->insert(act);
    return SQLITE_OK;
}

Reading ReadBySqlite(sqlite3* database, const std::string& sql) {
    Reading reading;
    sqlite3_set_authorizer(database, NoteAct, &reading.acts);
    sqlite3_stmt* statement = nullptr;
    const char* behind = nullptr;
    reading.isAccepted = sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()),
                                            &statement, &behind) == SQLITE_OK;
    reading.error = sqlite3_errmsg(database);
    reading.isOneStatement = statement != nullptr && behind == sql.data() + sql.size();
    reading.parameterCount = sqlite3_bind_parameter_count(statement);
    sqlite3_finalize(statement);
    sqlite3_set_authorizer(database, nullptr, nullptr);
    return reading;
}

std::set<char> ActsOf(StatementVerb verb) {
    switch (verb) {
        case StatementVerb::Select:
            return {};
        case StatementVerb::Insert:
            return {'i'};
        case StatementVerb::Update:
            return {'u'};
        case StatementVerb::Delete:
            return {'d'};
        case StatementVerb::Alter:
            return {'a', 'u'};  // SQLite updates its own table of tables
    }
    return {};
}

class JetSqlFuzz : public ::testing::Test {
  protected:
    void Check(const std::string& text) {
        Translation translation;
        try {
            translation = Translate(text, {});
        } catch (const EngineError&) {
            return;
        }
        ++translated_;
        const Reading reading = ReadBySqlite(catalogue_.Handle(), translation.sql);
        const bool changesOnlyBrackets = translation.verb == StatementVerb::Select &&
                                         text.find('#') == std::string::npos &&
                                         translation.sql.find(" LIMIT ") == std::string::npos;
        if (changesOnlyBrackets) CheckAgainstOriginal(text, reading);
        if (!reading.isAccepted) return;
        ++accepted_;
        EXPECT_TRUE(reading.isOneStatement) << text;
        EXPECT_EQ(reading.acts, ActsOf(translation.verb)) << text;
        EXPECT_EQ(static_cast<std::size_t>(reading.parameterCount), translation.parameters.size())
            << text;
    }

    /// Blanking brackets never makes a statement right or wrong.
    void CheckAgainstOriginal(const std::string& text, const Reading& translated) {
        const Reading original = ReadBySqlite(catalogue_.Handle(), text);
        EXPECT_EQ(original.isAccepted, translated.isAccepted) << text << "\n"
                                                              << original.error << "\n"
                                                              << translated.error;
    }

    SampleCatalogue catalogue_;
    Mutator mutator_;
    int translated_ = 0;
    int accepted_ = 0;
};

TEST_F(JetSqlFuzz, WhatIsLetThroughIsOneStatementOfItsVerb) {
    std::vector<std::string> statements = ActionStatements();
    for (const std::string& statement : ReadStatements())
        statements.push_back(statement);
    statements.push_back("SELECT TOP 3 a.appID FROM (tblApplication a) WHERE a.appName LIKE 'x%'");
    statements.push_back("ALTER TABLE tblAuthor ADD COLUMN mail TEXT");
    statements.push_back("DELETE * FROM tblCode WHERE codeID = 1");
    for (int i = 0; i < 12000; ++i)
        Check(mutator_.Mutate(statements[mutator_.Below(statements.size())]));
    EXPECT_GT(translated_, 2000);
    EXPECT_GT(accepted_, 300);
}

TEST_F(JetSqlFuzz, SurvivesBytesOfEveryKind) {
    for (int i = 0; i < 20000; ++i) {
        std::string text = i % 2 == 0 ? "SELECT " : "INSERT ";
        for (std::size_t left = mutator_.Below(40); left > 0; --left) {
            text += static_cast<char>(mutator_.Below(i % 4 < 2 ? 128 : 256));
        }
        Check(text);
    }
}

}  // namespace
}  // namespace snippetarium::test
