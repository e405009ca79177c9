#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>

#include "engine/jet_sql.h"
#include "engine/sqlite_handle.h"
#include "tests/store/delivered_catalogue.h"

// How the engine goes about each query in a large catalogue. The plans depend on the indexes and on
// the fixed statistics alone, so an empty catalogue shows them. Nothing but what lists everything
// may read a whole table; a stray plan turns milliseconds into minutes at a million procedures.

namespace snippetarium::test {
namespace {

/// A step that would be a fault in any other query: it reads a whole table or index, or rows with
/// long texts where that is the purpose.
struct AllowedStep {
    std::string_view query;
    std::string_view step;
};

// clang-format off
constexpr AllowedStep kAllowed[] = {
    // lists of everything
    {"qryAppNameRS", "SCAN tblApplication USING COVERING INDEX ixAppName"},
    {"qryAppRSContainClass", "SCAN a USING COVERING INDEX ixAppName"},
    {"qryAppWithClassCount", "SCAN a USING COVERING INDEX ixAppName"},
    {"qryAllSearchWords", "SCAN tblSearchWord USING COVERING INDEX ixSearchWord"},
    {"qryCommonWordRS", "SCAN tblCommonWord USING COVERING INDEX ixCommonWord"},
    {"qryFavorite", "SCAN f"},
    // a part of a text can stand anywhere
    {"qryCodeClassAppRSByComment", "SCAN cd"},
    {"qryCodeClassAppRSByComment", "SEARCH cls USING COVERING INDEX ixClassComment (classComment>?)"},
    {"qryCodeClassAppRSByCommentForASP", "SCAN cd"},
    {"qryCodeClassAppRSByCommentForASP", "SEARCH cls USING COVERING INDEX ixClassComment (classComment>?)"},
    {"qryCodeClassAppRSByCommentForScript", "SCAN cd"},
    {"qryCodeClassAppRSByCommentForScript", "SEARCH cls USING COVERING INDEX ixClassComment (classComment>?)"},
    {"qryCodeClassAppRSByCommentForOthers", "SCAN cd"},
    {"qryCodeClassAppRSByCommentForOthers", "SEARCH cls USING COVERING INDEX ixClassComment (classComment>?)"},
    {"qryCodeClassAppRSByName", "SCAN cd USING COVERING INDEX ixCodeName"},
    {"qryCodeClassAppRSByNameLanguage", "SCAN cd USING COVERING INDEX ixCodeName"},
    // a dozen languages
    {"qryLanguage", "SCAN tblLanguage"},
    {"qryLanguageID", "SCAN tblLanguage"},
    {"qryStatusRSByLanguage", "SCAN tblLanguage"},
    {"qryClassIDCodeIDRSByLanguage", "SCAN lan"},
    // the long texts are what is asked for
    {"qryClassIDByClassNameClassPathAppID", "SEARCH tblClass USING INDEX ixClassApp (appID=? AND className=?)"},
    {"qryClassRSByAppID", "SEARCH tblClass USING INDEX ixClassApp (appID=?)"},
    {"qryCodeCommentCodeByClassID", "SEARCH tblCode USING INDEX ixCodeClass (classID=?)"},
    {"qryCodeClassAppRSWithSearchWordCodeName", "SEARCH cd USING INDEX ixCodeName (codeName=?)"},
    {"qryCodeNameCommentCodeByClassID", "SEARCH tblCode USING INDEX ixCodeClass (classID=?)"},
    // searches start from the authors, however many, and from one search word or keyword text
    {"author", "SCAN au"},
    {"keyword phrase", "SCAN k"},
};

/// Statements of other parts of the program that lean on indexes which no stored query uses, and
/// what the triggers do.
struct PlannedStatement {
    std::string_view name;
    std::string_view text;
};
constexpr PlannedStatement kStatements[] = {
    {"keyword phrase", "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID WHERE k.keyword LIKE '%x%'"},
    {"index word in classes", "SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A' FROM (((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblKeyword k ON cls.keywordID = k.keywordID) INNER JOIN tblKeyword_link_searchWord kl ON k.keywordID = kl.keywordID) INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID  WHERE sw.searchWord = 'x'"},
    {"author", "SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM (((tblAuthor au INNER JOIN tbl_Author_Link al ON au.authorID = al.authorID) INNER JOIN tblCode cd ON al.ownerID = cd.codeID) INNER JOIN tblClass cls ON cd.classID = cls.classID) INNER JOIN tblApplication a ON cls.appID = a.appID WHERE al.ownerTableID = 3 AND au.authorFName LIKE '%x%'"},
    {"date", "SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM (tbl_date_link dl INNER JOIN tblDate d ON dl.dateID = d.dateID) INNER JOIN ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd  ON cls.classID = cd.classID) ON dl.ownerID = cd.codeID WHERE dl.ownerTableID =3 AND d.dDate BETWEEN #2001-01-01# AND #2001-02-01# "},
    {"quick search, short comments", "SELECT codeID FROM tblCode WHERE codeComment = 'x' AND length(codeComment) <= 2"},
    {"find a date", "SELECT dateID FROM tblDate WHERE dDate = #2001-01-01#;"},
    {"keywords of a deleted application", "DELETE FROM tblKeyword_link_searchWord WHERE keywordID IN (SELECT cd.keywordID FROM tblCode cd INNER JOIN tblClass cl ON cd.classID = cl.classID WHERE cd.keywordID is not null AND cl.appID = 7)"},
    {"authors of a deleted application", "DELETE FROM tbl_Author_Link WHERE ownerID IN (SELECT cd.codeID FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID WHERE cls.appID = 7) AND ownerTableID=3"},
    {"bookmarks of deleted procedures", "DELETE FROM tblFavorite WHERE codeID IN (SELECT codeID FROM tblCode WHERE classID =7)"},
    {"deleted keyword, applications", "UPDATE tblApplication SET keywordID = NULL WHERE keywordID = 1"},
    {"deleted keyword, classes", "UPDATE tblClass SET keywordID = NULL WHERE keywordID = 1"},
    {"deleted keyword, procedures", "UPDATE tblCode SET keywordID = NULL WHERE keywordID = 1"},
    {"deleted search word", "DELETE FROM tblKeyword_link_searchWord WHERE searchWordID = 1"},
    {"deleted class", "DELETE FROM tblFavorite WHERE classID = 1"},
    {"deleted text", "DELETE FROM tblOverlong WHERE ownerID = 1 AND ownerTableID = 3"},
    {"changed name", "DELETE FROM tblNameBlock WHERE ownerTableID = 3 AND block = 1"},
    {"deleted draft", "DELETE FROM tblDraftText WHERE draftID = 1"},
};
// clang-format on

std::string TextOf(sqlite3_stmt* statement, int column) {
    return reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
}

bool IsAllowed(std::string_view name, std::string_view step) {
    return std::any_of(std::begin(kAllowed), std::end(kAllowed), [&](const AllowedStep& allowed) {
        return allowed.query == name && allowed.step == step;
    });
}

/// Whether a step finds its rows by their keys and reads no more of them than it needs. Statements
/// that change rows have to read them whole.
bool IsSound(std::string_view step, StatementVerb verb) {
    const auto mentions = [step](std::string_view text) {
        return step.find(text) != std::string_view::npos;
    };
    if (mentions("BLOOM FILTER") || mentions("AUTOMATIC") || mentions("ANY(") || mentions(">?"))
        return mentions("(dDate>? AND dDate<?)") || mentions("rowid<?");
    if (step.starts_with("SCAN")) return false;
    if (!step.starts_with("SEARCH") || verb != StatementVerb::Select) return true;
    return mentions("PRIMARY KEY") || mentions("USING COVERING INDEX");
}

class Plans {
  public:
    explicit Plans(const std::string& path) : database_(OpenDatabase(path, OpenFlag::ReadWrite)) {}

    sqlite3* Database() { return database_.get(); }

    /// The unsound steps of everything, each with the name of the query.
    std::vector<std::string> Faults() {
        std::vector<std::string> faults;
        for (const QueryText& query : StoredQueryTexts()) {
            TranslationOptions options;
            for (const QueryParameter& parameter : ParseQueryParameters(query.parameters))
                options.parameterNames.emplace_back(parameter.name);
            AddFaults(query.name, Translate(query.body, options), faults);
        }
        for (const auto& [name, text] : kStatements)
            AddFaults(name, Translate(text, {}), faults);
        for (const std::string_view table : CatalogueTables()) {
            if (!table.starts_with("tblTrash") || table == "tblTrash") continue;
            const std::string text = "DELETE FROM " + std::string(table) + " WHERE trashID = 1";
            AddFaults("emptied trash", Translate(text, {}), faults);
        }
        return faults;
    }

  private:
    void AddFaults(std::string_view name, const Translation& translation,
                   std::vector<std::string>& faults) {
        const StatementHandle plan =
            PrepareStatement(database_.get(), "EXPLAIN QUERY PLAN " + translation.sql);
        while (sqlite3_step(plan.get()) == SQLITE_ROW) {
            const std::string step = TextOf(plan.get(), 3);
            if (IsSound(step, translation.verb) || IsAllowed(name, step)) continue;
            faults.push_back(std::string(name) + ": " + step);
        }
    }

    DatabaseHandle database_;
};

std::vector<std::string> IndexNames(sqlite3* database) {
    const StatementHandle statement = PrepareStatement(
        database, "SELECT name FROM sqlite_schema WHERE type = 'index' AND sql IS NOT NULL");
    std::vector<std::string> names;
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
        names.push_back(TextOf(statement.get(), 0));
    return names;
}

class QueryPlans : public ::testing::Test {
  protected:
    QueryPlans() { CreateDatabase(path_, CreationScript()); }

    TemporaryFolder folder_;
    std::string path_ = folder_.File("QRT_SN.mde");
};

TEST_F(QueryPlans, NeverReadAWholeTableToFindAFewRows) {
    EXPECT_EQ(Plans(path_).Faults(), std::vector<std::string>());
}

TEST_F(QueryPlans, NeedEveryIndex) {
    Plans plans(path_);
    const std::vector<std::string> indexes = IndexNames(plans.Database());
    EXPECT_GT(indexes.size(), 20U);
    for (const std::string& index : indexes) {
        RunStatements(plans.Database(), "BEGIN; DROP INDEX " + index);
        EXPECT_FALSE(plans.Faults().empty()) << index;
        RunStatements(plans.Database(), "ROLLBACK");
    }
}

TEST_F(QueryPlans, DependOnTheFixedStatistics) {
    RunStatements(Plans(path_).Database(), "DELETE FROM sqlite_stat1");
    EXPECT_FALSE(Plans(path_).Faults().empty());
}

}  // namespace
}  // namespace snippetarium::test
