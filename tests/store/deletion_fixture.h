#pragma once

#include <string>

#include "tests/store/write_fixture.h"

namespace snippetarium::test {

/// A test on a catalogue with application 5, its class 6 and that one's procedure 7, in C++, with a
/// marker. Each has a keyword string, and they share a search word, an author and a date.
class DeletionFixture : public WriteFixture {
  protected:
    DeletionFixture() {
        db_.GetConnection().RunScript(
            "INSERT INTO tblApplication(appID, appName, keywordID) VALUES (5, 'Paint', 51);"
            "INSERT INTO tblClass(classID, className, appID, languageID, classDI, keywordID)"
            "    VALUES (6, 'Grid', 5, 4, 'it''s /***Procedure Draw***/', 61);"
            "INSERT INTO tblCode(codeID, codeName, code, classID, keywordID)"
            "    VALUES (7, 'Draw', 'x', 6, 71);"
            "INSERT INTO tblCode_Link_Language VALUES (7, 4);"
            "INSERT INTO tblKeyword VALUES (51, 'a', 1), (61, 'b', 1), (71, 'c', 1);"
            "INSERT INTO tblSearchWord VALUES (1, 'a');"
            "INSERT INTO tblKeyword_link_searchWord VALUES (51, 1), (61, 1), (71, 1);"
            "INSERT INTO tblAuthor VALUES (1, 'Ann', '', 'Lee');"
            "INSERT INTO tbl_Author_Link VALUES (5, 1, 1), (6, 1, 2), (7, 1, 3);"
            "INSERT INTO tblDate VALUES (1, '2001-03-14');"
            "INSERT INTO tbl_date_link VALUES (5, 1, 1), (6, 1, 2), (7, 1, 3);");
    }

    void Run(const std::string& script) { db_.GetConnection().RunScript(script); }
    bool IsEmpty(const std::string& table) { return Select("SELECT * FROM " + table).empty(); }

    /// Procedures whose keyword string does not exist. The next keyword might get its ID.
    Rows DanglingKeywords() {
        return Select(
            "SELECT codeID, keywordID FROM tblCode WHERE keywordID IS NOT NULL AND keywordID NOT "
            "IN "
            "(SELECT keywordID FROM tblKeyword)");
    }

    /// The engine refuses from now on to delete from a table.
    void RefuseDeletesFrom(const std::string& table) {
        Run("CREATE TRIGGER refuse BEFORE DELETE ON " + table +
            " BEGIN SELECT RAISE(ABORT, 'refused'); END;");
    }
    void AllowDeletes() { Run("DROP TRIGGER refuse;"); }
};

}  // namespace snippetarium::test
