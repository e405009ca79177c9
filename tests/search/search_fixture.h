#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "search/search_pane.h"
#include "store/database.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/filled_catalogue.h"

namespace snippetarium::test {

using Keys = std::set<std::string>;

/// A search pane on a catalogue of 100 procedures "Draw1" to "Draw100". Twenty of them are in each
/// of the classes 2 to 6, the last in class 7, all in application 2. The classes 3, 4 and 5 have
/// the languages 6, 7 and 8. Procedure 25 has no language of its own. The keywords of class 3 and
/// of the procedures 4 and 54 hold the words "word5" and "word7".
class SearchFixture : public OpenCatalogueFixture {
  protected:
    static constexpr int kProcedures = 100;

    SearchFixture() {
        db_.GetConnection().RunScript(
            FillScript(kProcedures) +
            "UPDATE tblClass SET languageID = classID + 3 WHERE classID IN (3, 4, 5);"
            "UPDATE tblClass SET keywordID = 5 WHERE classID = 3;"
            "DELETE FROM tblCode_Link_Language WHERE codeID = 25;"
            "INSERT INTO tblKeyword_link_searchWord VALUES (5, 7);"
            "INSERT INTO tblAuthor VALUES (3, 'Vera Lou', '', 'Poe');"
            "INSERT INTO tbl_Author_Link VALUES (7, 3, 3);");
    }

    /// The keys of what a search finds. "No topics found." is no surprise here.
    Keys Find(const SearchFields& fields) {
        SearchPane pane(db_);
        if (pane.ListTopics(fields) != SearchOutcome::Listed) {
            EXPECT_EQ(TakeBox().text, "No topics found.") << fields.entry;
        }
        return KeysOf(pane.Topics());
    }
    Keys Find(SearchKind kind, std::string_view entry) {
        return Find({.kind = kind, .entry = std::string(entry)});
    }

    static Keys KeysOf(const TopicList& list) {
        Keys keys;
        for (std::size_t i = 0; i < list.Topics().size(); ++i) {
            EXPECT_TRUE(keys.insert(list.KeyAt(i)).second) << list.KeyAt(i) << " is there twice";
        }
        return keys;
    }
    /// The keys of the procedures for which this holds, and others besides.
    static Keys Procedures(const std::function<bool(int)>& holds, Keys besides = {}) {
        for (int i = 1; i <= kProcedures; ++i) {
            if (holds(i)) besides.insert("f" + std::to_string(i));
        }
        return besides;
    }
};

}  // namespace snippetarium::test
