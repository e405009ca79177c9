#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/store/catalogue_fixture.h"
#include "tests/store/delivered_catalogue.h"

namespace snippetarium::test {

using Statements = std::vector<std::string>;
using Rows = std::vector<std::string>;

/// An operation and the statements that reach the engine while it runs. The reads of stored queries
/// are not among them.
struct WriteCase {
    std::string_view description;
    std::function<void(Database&)> run;
    Statements statements;
};

/// A test on an open catalogue that notes every statement.
class WriteFixture : public OpenCatalogueFixture {
  protected:
    WriteFixture() {
        db_.SetStatementObserver([this](std::string_view sql) { statements_.emplace_back(sql); });
    }

    /// The statements since the last call.
    Statements TakeStatements() { return std::exchange(statements_, {}); }

    /// Runs the cases one after the other on the same catalogue.
    void ExpectStatements(const std::vector<WriteCase>& cases) {
        for (const WriteCase& test : cases) {
            TakeStatements();
            test.run(db_);
            EXPECT_EQ(TakeStatements(), test.statements) << test.description;
        }
    }

    /// The rows of a SELECT, each as its fields with "|" between them; null is "-".
    Rows Select(std::string_view sql) {
        return DeliveredCatalogue::AllRows(db_.GetConnection().Execute(sql));
    }

    /// The engine refuses from now on to insert into a table.
    void RefuseInsertsInto(const std::string& table) {
        db_.GetConnection().RunScript("CREATE TRIGGER refuse" + table + " BEFORE INSERT ON " +
                                      table + " BEGIN SELECT RAISE(ABORT, 'refused'); END;");
    }
    /// Expects that one failure was reported, that of a statement.
    void ExpectFailedStatement() {
        const ShownBox box = TakeBox();
        const std::string code = std::to_string(ErrorCode(Procedure::ExecuteSQL));
        EXPECT_NE(box.text.find("QRT Error Code: " + code + "\r\n"), std::string::npos) << box.text;
        EXPECT_TRUE(host_.messages.shown.empty());
    }

  private:
    Statements statements_;
};

}  // namespace snippetarium::test
