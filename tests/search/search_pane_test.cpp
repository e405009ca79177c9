#include "search/search_pane.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

#include "tests/search/search_fixture.h"
#include "tests/store/statement_log.h"
#include "tests/support/every_text.h"

namespace snippetarium::test {
namespace {

class SearchPaneTest : public SearchFixture {
  protected:
    ShownBox Information(std::string text, std::string title) {
        return {BoxKind::Information, std::move(title), std::move(text)};
    }

    bool Lists(const SearchFields& fields) {
        return pane_.ListTopics(fields) == SearchOutcome::Listed;
    }

    SearchPane pane_{db_};
};

TEST_F(SearchPaneTest, TellsWhatIsMissingAndRunsNothing) {
    const struct {
        SearchFields fields;
        std::string_view message;
    } cases[] = {
        {{.entry = "x", .isLanguageChecked = true}, "Please select a language."},
        {{.entry = "", .isLanguageChecked = true}, "Please select a language."},
        {{.kind = SearchKind::Date, .isLanguageChecked = true}, "Please select a language."},
        {{.entry = ""}, "Please enter search word(s) in the text box."},
        {{.kind = SearchKind::Code, .entry = "   "},
         "Please enter search word(s) in the text box."},
    };
    StatementLog log(db_);
    for (const auto& [fields, message] : cases) {
        EXPECT_EQ(pane_.ListTopics(fields), SearchOutcome::NotRun);
        EXPECT_EQ(TakeBox(), Information(std::string(message), "Snippetarium"));
    }
    EXPECT_EQ(log.Take(), std::vector<std::string>());
    EXPECT_TRUE(host_.events.pointers.empty());
}

TEST_F(SearchPaneTest, TellsOnceThatAnEntryIsRefusedAndRunsNothing) {
    StatementLog log(db_);
    for (const SearchKind kind : {SearchKind::Keyword, SearchKind::Code, SearchKind::Author}) {
        for (const std::string entry : {"(x", "x and (y", "a \"b"}) {
            EXPECT_FALSE(Lists({.kind = kind, .entry = entry}));
            EXPECT_NE(TakeBox().text.find("Please modify your search entry and try again."),
                      std::string::npos);
        }
    }
    EXPECT_EQ(log.Take(), std::vector<std::string>());
    EXPECT_EQ(db_.LastSearchStatement(), "");
}

TEST_F(SearchPaneTest, TakesBracketsAndQuotesOfNamesAndCommentsAsTheyAre) {
    for (const SearchKind kind : {SearchKind::Name, SearchKind::Comment}) {
        EXPECT_EQ(pane_.ListTopics({.kind = kind, .entry = "it's (x"}),
                  SearchOutcome::NothingFound);
        EXPECT_EQ(TakeBox(), Information("No topics found.", "Search"));
    }
}

TEST_F(SearchPaneTest, ListsTopicsByTheirDeepestLevel) {
    ASSERT_TRUE(Lists({.kind = SearchKind::Date, .dates = {{2001, 3, 14}, {2001, 3, 14}}}));
    const TopicList& list = pane_.Topics();
    ASSERT_EQ(list.Topics().size(), 35U);
    std::map<std::string, ListedTopic> topics;
    for (std::size_t i = 0; i < list.Topics().size(); ++i)
        topics[list.KeyAt(i)] = list.Topics()[i];
    EXPECT_EQ(topics["a2"], (ListedTopic{"", "", "Paint 0", {2, 0, 0}}));
    EXPECT_EQ(topics["c2"], (ListedTopic{"", "Grid0", "Paint 0", {2, 2, 0}}));
    EXPECT_EQ(topics["f21"], (ListedTopic{"Draw21", "Grid1", "Paint 0", {2, 3, 21}}));
}

TEST_F(SearchPaneTest, KeepsItsTopicsUntilASearchFindsOthers) {
    const SearchFields good = {.kind = SearchKind::Name, .entry = " Draw77 "};
    EXPECT_TRUE(Lists(good));
    EXPECT_FALSE(pane_.CanDisplay());
    pane_.Topics().Select(0);
    EXPECT_TRUE(pane_.CanDisplay());
    const std::string entries[] = {"nowhere", "(", "it's"};
    for (const std::string& entry : entries) {
        EXPECT_FALSE(Lists({.kind = SearchKind::Code, .entry = entry}));
        TakeBox();
        EXPECT_EQ(pane_.Topics().SelectedKey(), "f77") << entry;
    }
    EXPECT_TRUE(Lists({.kind = SearchKind::Name, .entry = "Draw78"}));
    EXPECT_EQ(KeysOf(pane_.Topics()), Keys{"f78"});
    EXPECT_FALSE(pane_.CanDisplay()) << "what was selected is no longer in the list";
    EXPECT_THROW(pane_.Topics().Select(1), std::out_of_range);
}

TEST_F(SearchPaneTest, ShowsTheBusyPointerWhileItSearchesWhateverComesOfIt) {
    const std::vector<Pointer> onceBusy = {Pointer::Hourglass, Pointer::Default};
    for (const std::string entry : {"Draw77", "nowhere", "it's", "(x"}) {
        const bool isFound = Lists({.kind = SearchKind::Code, .entry = entry});
        if (!isFound) TakeBox();
        EXPECT_EQ(std::exchange(host_.events.pointers, {}), onceBusy) << entry;
    }
}

TEST_F(SearchPaneTest, ReportsWhatTheEngineRefusesOnceWithTheSearchsCode) {
    const struct {
        SearchKind kind;
        std::string entry;
        Procedure procedure;
    } cases[] = {
        {SearchKind::Code, "it's", Procedure::CodeTextSearch},
        {SearchKind::Code, "\"it's\"", Procedure::CodeTextSearch},
        {SearchKind::Keyword, "\"it's\"", Procedure::KeywordPhraseSearch},
        {SearchKind::Keyword, "don't", Procedure::KeywordOrSearch},
        {SearchKind::Keyword, "a and don't", Procedure::KeywordAndSearch},
        {SearchKind::Keyword, "(a or b) or c", Procedure::KeywordOrSearch},
        {SearchKind::Author, "O'Hara", Procedure::AuthorSearch},
    };
    for (const auto& [kind, entry, procedure] : cases) {
        EXPECT_FALSE(Lists({.kind = kind, .entry = entry}));
        const ShownBox box = TakeBox();
        EXPECT_EQ(box.kind, BoxKind::Error);
        EXPECT_NE(box.text.find(std::to_string(ErrorCode(procedure))), std::string::npos)
            << entry << ": " << box.text;
        EXPECT_NE(db_.LastSearchStatement(), "") << entry;
    }
}

TEST_F(SearchPaneTest, FindsNothingByBracketsAndPhrasesBesideWordsWhateverTheirPlace) {
    const std::string_view pieces[] = {"a", " or ", "(", ")", "\"", "not "};
    ForEveryText("012345", 5, [&](const std::string& choice) {
        std::string entry;
        for (const char digit : choice)
            entry += pieces[digit - '0'];
        if (entry.find_first_of("()\"") == std::string::npos || entry.starts_with('"')) return;
        EXPECT_EQ(pane_.ListTopics({.entry = entry}), SearchOutcome::NotRun) << entry;
        EXPECT_EQ(std::exchange(host_.messages.shown, {}).size(), 1U) << entry;
    });
}

TEST_F(SearchPaneTest, RunsHostileEntriesWithoutHarm) {
    const auto count = [this] { return ScalarLong(db_, "SELECT count(*) FROM tblCode"); };
    const std::string entries[] = {
        "x'; DELETE FROM tblCode; SELECT '",
        "x' UNION SELECT sql,1,1,1,1,1 FROM sqlite_schema WHERE ''='",
        "x' OR load_extension('x.so') OR ''='",
        "x' OR 1=1 --",
        "x'); DROP TABLE tblCode; --",
        "x' OR EXISTS (WITH RECURSIVE t(n) AS (SELECT 1 UNION ALL SELECT n FROM t) SELECT n FROM "
        "t) "
        "OR ''='",
        std::string("x\0y", 3),
        "\xFF\xED\xA0\x80",
        std::string(10'000, '(') + "x" + std::string(10'000, ')'),
        std::string(100'000, 'x'),
    };
    for (const SearchKind kind : {SearchKind::Keyword, SearchKind::Code, SearchKind::Author,
                                  SearchKind::Name, SearchKind::Comment}) {
        for (const std::string& entry : entries) {
            for (const std::string& typed : {entry, "\"" + entry + "\""}) {
                EXPECT_FALSE(Lists({.kind = kind, .entry = typed})) << typed;
                TakeBox();
            }
        }
    }
    EXPECT_EQ(count(), kProcedures);
}

struct CancelAtOnce : CancelPoll {
    bool IsCancelled() const override { return true; }
};

TEST_F(SearchPaneTest, SaysThatASearchWasCancelled) {
    const CancelAtOnce poll;
    db_.GetConnection().SetCancelPoll(&poll);
    // Without an end that somebody waits for.
    const std::string endless =
        "\"x' OR (SELECT count(*) FROM tblCode b, tblCode c, tblCode d, tblCode e) OR ''='\"";
    EXPECT_FALSE(Lists({.kind = SearchKind::Code, .entry = endless}));
    EXPECT_EQ(TakeBox(), Information("The operation was cancelled.", "Snippetarium Information"))
        << "what the user wanted is no error";
    db_.GetConnection().SetCancelPoll(nullptr);
    EXPECT_TRUE(Lists({.kind = SearchKind::Code, .entry = "Draw7"}));
}

TEST_F(SearchPaneTest, RemembersTheLastSearchStatement) {
    const struct {
        SearchFields fields;
        std::string_view statementPart;
    } cases[] = {
        {{.kind = SearchKind::Code, .entry = "Draw7"},
         "WHERE cd.Code LIKE '%Draw7%'  OR cls.classDI LIKE '%Draw7%' ;"},
        {{.kind = SearchKind::Author, .entry = "Ann"},
         "AND au.authorFName ='Ann' OR au.authorMName ='Ann' OR au.authorLName ='Ann'  UNION "},
        {{.kind = SearchKind::Author, .entry = "Vera Lou"},
         "AND  au.authorFName = 'Vera Lou' OR au.authorMName = 'Vera Lou' OR au.authorLName = "
         "'Vera Lou' UNION "},
        {{.kind = SearchKind::Keyword, .entry = "\"ord5\""},
         "WHERE k.keyword LIKE '%ord5%' UNION "},
        {{.kind = SearchKind::Name, .entry = "Draw7"}, "EXECUTE qryCodeClassAppRSByName 'Draw7';"},
        {{.kind = SearchKind::Comment,
          .entry = "draws",
          .isLanguageChecked = true,
          .languageID = 8},
         "EXECUTE qryCodeClassAppRSByCommentForScript '%draws%', 8;"},
    };
    for (const auto& [fields, part] : cases) {
        EXPECT_TRUE(Lists(fields)) << part;
        ScalarLong(db_, "SELECT count(*) FROM tblCode");
        EXPECT_NE(db_.LastSearchStatement().find(part), std::string::npos)
            << db_.LastSearchStatement();
    }
}

TEST_F(SearchPaneTest, FindsWhereATopicStandsInTheTree) {
    const struct {
        std::string_view key;
        NodeIDs expected;
    } cases[] = {
        {"f77", {2, 5, 77}}, {"c3", {2, 3}}, {"a2", {2}}, {"a1", {1}}, {"f101", {}}, {"c99", {}},
        {"a3", {}},          {"", {}},       {"x5", {}},  {"f", {}},   {"c0", {}},
    };
    for (const auto& test : cases)
        EXPECT_EQ(TopicNode(db_, test.key), test.expected) << test.key;
}

}  // namespace
}  // namespace snippetarium::test
