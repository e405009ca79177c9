#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace snippetarium::test {

/// The fixed texts of the search statements as statement_texts.txt keeps them, with their names: a
/// second copy, so that no text changes unseen.
inline std::vector<std::pair<std::string, std::string>> StatementTable() {
    std::vector<std::pair<std::string, std::string>> table;
    std::ifstream file(SNIPPETARIUM_STATEMENT_TEXTS);
    for (std::string line; std::getline(file, line);) {
        const std::size_t quote = line.find(" \"");
        if (quote == std::string::npos || !line.ends_with('"')) {
            ADD_FAILURE() << "not a name and a quoted text: " << line;
            continue;
        }
        table.emplace_back(line.substr(0, quote), line.substr(quote + 2));
        table.back().second.pop_back();
    }
    return table;
}

/// A statement written with names of texts in braces: "{CodeProcedures}cd.Code ='x' ;".
inline std::string Spelled(std::string statement) {
    for (const auto& [name, text] : StatementTable()) {
        const std::string brace = "{" + name + "}";
        for (std::size_t at = 0; (at = statement.find(brace, at)) != std::string::npos;)
            statement.replace(at, brace.size(), text);
    }
    EXPECT_EQ(statement.find('{'), std::string::npos) << statement;
    return statement;
}

}  // namespace snippetarium::test
