#include "quick/quick_search.h"

#include "store/sql_text.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/filled_catalogue.h"

namespace snippetarium::test {
namespace {

class QuickSearchTest : public OpenCatalogueFixture {
  protected:
    void Fill(int procedures) { db_.GetConnection().RunScript(FillScript(procedures)); }

    static std::vector<std::string> KeysOf(const QuickSearch& search) {
        std::vector<std::string> keys;
        for (const QuickHit& hit : search.Hits())
            keys.push_back(hit.key);
        return keys;
    }
    static void Finish(QuickSearch& search) {
        while (search.Step()) {
        }
    }
};

TEST_F(QuickSearchTest, GivesTheFirstHitsAtOnceAndMoreOnDemand) {
    Fill(3000);
    QuickSearch search(db_, "draw");
    while (search.Hits().size() < QuickSearch::kFirstHits)
        ASSERT_TRUE(search.Step());
    const std::vector<std::string> first = KeysOf(search);
    Finish(search);
    EXPECT_EQ(KeysOf(search), first) << "what is there once never moves";
    EXPECT_EQ(search.Total(), 3000U);

    search.WantMore(50);
    Finish(search);
    ASSERT_EQ(search.Hits().size(), 150U);
    const std::vector<std::string> more = KeysOf(search);
    EXPECT_TRUE(std::equal(first.begin(), first.end(), more.begin()));
    // The newest IDs from 2048 on are equally old, so the shortest names of them come first.
    EXPECT_EQ(search.Hits().front().procedureName, "Draw3000");
}

TEST_F(QuickSearchTest, ReadsNamesFromTheirBlocksAndFromTheTableWhereABlockIsNone) {
    Fill(1030);
    const auto find = [this](std::string_view entry) {
        QuickSearch search(db_, entry);
        Finish(search);
        return KeysOf(search);
    };
    const std::vector<std::string> found = {"a3f27c517"};
    EXPECT_EQ(find("name:raw517"), found);
    // The block is what is looked through, so a name that it does not hold is not found.
    db_.GetConnection().RunScript(
        "UPDATE tblNameBlock SET names = replace(names, 'Draw517', 'Drax517')");
    EXPECT_EQ(find("name:raw517"), std::vector<std::string>());
    for (const std::string_view damage :
         {"names = 'Draw517'", "entries = '0001'", "entries = 'x' || substr(entries, 2)",
          "names = '', entries = ''"}) {
        db_.GetConnection().RunScript("UPDATE tblNameBlock SET " + std::string(damage));
        EXPECT_EQ(find("name:raw517"), found) << damage;
    }
}

TEST_F(QuickSearchTest, ShowsWhereSomethingWasFound) {
    db_.GetConnection().RunScript(
        "INSERT INTO tblApplication(appID, appName, appComment) VALUES (2, 'Paint', 'x');"
        "INSERT INTO tblClass(classID, className, appID) VALUES (2, 'Grid', 2);"
        "INSERT INTO tblKeyword VALUES (1, 'ring buffer', 1);"
        "INSERT INTO tblSearchWord VALUES (1, 'ring'), (2, 'buffer');"
        "INSERT INTO tblKeyword_link_searchWord VALUES (1, 1), (1, 2);"
        "INSERT INTO tblCode VALUES (1, 'DrawLine', 'Sub DrawLine()\r\n  a = Ring(1)\r\nEnd Sub', "
        "'two\r\nlines of it', 2, 1);");
    const struct {
        std::string_view entry;
        QuickTier tier;
        QuickText of;
        std::string_view line;
        std::size_t number;
        std::size_t place;
        ByteRange match;
    } cases[] = {
        {"line", QuickTier::WordStart, QuickText::Code, "Sub DrawLine()", 1, 9, {8, 4}},
        {"buff", QuickTier::Keyword, QuickText::Keyword, "ring buffer", 1, 6, {5, 4}},
        {"lines", QuickTier::Comment, QuickText::Comment, "lines of it", 2, 6, {0, 5}},
        {"code:ring", QuickTier::Code, QuickText::Code, "  a = Ring(1)", 2, 23, {6, 4}},
        {"draw code:ring", QuickTier::Code, QuickText::Code, "  a = Ring(1)", 2, 23, {6, 4}},
    };
    for (const auto& [entry, tier, of, line, number, place, match] : cases) {
        QuickSearch search(db_, entry);
        Finish(search);
        ASSERT_EQ(KeysOf(search), std::vector<std::string>{"a2f2c1"}) << entry;
        const QuickHit& hit = search.Hits().front();
        EXPECT_EQ(hit.tier, tier) << entry;
        EXPECT_EQ(hit.appName + "/" + hit.className + "/" + hit.procedureName,
                  "Paint/Grid/DrawLine");
        EXPECT_EQ(hit.lineOf, of) << entry;
        EXPECT_EQ(hit.line.text, line) << entry;
        EXPECT_EQ(hit.line.number, number) << entry;
        EXPECT_EQ(hit.line.place, place) << entry;
        EXPECT_EQ(hit.line.matches, std::vector<ByteRange>{match}) << entry;
    }

    QuickSearch slip(db_, "darwline");
    Finish(slip);
    ASSERT_EQ(slip.Hits().size(), 1U);
    EXPECT_EQ(slip.Hits().front().tier, QuickTier::Slip);
    EXPECT_EQ(slip.Hits().front().nameMatches, (std::vector<ByteRange>{{0, 8}}));
}

TEST_F(QuickSearchTest, CanBeDroppedAndTheCatalogueChangedBetweenAnyTwoSteps) {
    Fill(300);
    const std::string entry = "draw1 or word3 or code:sub -name:draw7";
    int steps = 0;
    bool isFinished = false;
    for (int stop = 0; !isFinished; ++stop) {
        QuickSearch search(db_, entry, 5000);
        for (steps = 0; steps < stop && !isFinished; ++steps)
            isFinished = !search.Step();
        ExecuteSQL(db_, Sql("DELETE FROM tblCode WHERE codeID = ", std::int32_t{1 + stop % 300}));
        // What is gone by now is in no hit that is read from here on.
        const std::size_t before = search.Hits().size();
        if (stop % 5 == 0) Finish(search);
        for (std::size_t i = before; i < search.Hits().size(); ++i)
            EXPECT_NE(search.Hits()[i].ids.codeID, 1 + stop % 300);
    }
    EXPECT_EQ(db_.GetConnection().ExecuteAction("DELETE FROM tblCommonWord WHERE commonWord = 'x'"),
              0);
}

TEST_F(QuickSearchTest, EndsWithOneMessageWhenTheCatalogueFails) {
    Fill(100);
    QuickSearch search(db_, "nowhere");
    CloseCatalogue(db_);
    EXPECT_FALSE(search.Step());
    EXPECT_NE(TakeBox().text.find("11111"), std::string::npos);
    EXPECT_FALSE(search.Step());
    EXPECT_FALSE(search.Total().has_value());
}

TEST_F(QuickSearchTest, FindsOnlySlipsOfAWordOfWhichAPartMustNotBeThere) {
    db_.GetConnection().RunScript(
        "INSERT INTO tblApplication(appID, appName, appComment) VALUES (2, 'Paint', '');"
        "INSERT INTO tblClass(classID, className, appID) VALUES (2, 'Grid', 2);"
        "INSERT INTO tblKeyword VALUES (1, 'stream reader', 1);"
        "INSERT INTO tblSearchWord VALUES (1, 'reader');"
        "INSERT INTO tblKeyword_link_searchWord VALUES (1, 1);"
        "INSERT INTO tblCode VALUES (1, 'Stream', 'x', '', 2, 0), (2, 'Steam', 'x', '', 2, 1), "
        "(3, 'Draw', 'read a stream', '', 2, 0);");
    const struct {
        std::string_view entry;
        std::vector<std::string> found;
    } cases[] = {
        {"stream", {"a2f2c1", "a2f2c3", "a2f2c2"}},
        {"stream -re", {}},
        {"stream -rea", {}},
        {"stream -tre", {"a2f2c2"}},
        {"(stream or draw) -tre", {"a2f2c2"}},
        {"(stream or draw) -name:tre", {"a2f2c3", "a2f2c2"}},
        {"\"stream re\" -am", {}},
        {"\"stream re\" -reader", {}},
        {"\"stream re\" -\"am re\"", {}},
        {"\"stream re\" -str", {"a2f2c2"}},
        {"stream -t?e", {"a2f2c2"}},
    };
    for (const auto& [entry, found] : cases) {
        QuickSearch search(db_, entry);
        Finish(search);
        EXPECT_EQ(KeysOf(search), found) << entry;
    }
}

TEST_F(QuickSearchTest, FindsNothingForNothing) {
    for (const std::string_view entry : {"", "  ", "or", "(", "name:", "*"}) {
        QuickSearch search(db_, entry);
        EXPECT_FALSE(search.Step()) << entry;
        EXPECT_EQ(search.Total(), 0U) << entry;
    }
}

}  // namespace
}  // namespace snippetarium::test
