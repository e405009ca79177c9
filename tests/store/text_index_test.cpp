#include <gtest/gtest.h>

#include "store/check.h"
#include "tests/killed_child.h"
#include "tests/store/text_index_fixture.h"

namespace snippetarium::test {
namespace {

class TextIndexTest : public TextIndexFixture {
  protected:
    /// Procedure 1 draws a grid, and so does each seventh after it.
    void AddCodes(int count) {
        for (int i = 0; i < count; ++i) {
            ExecuteSQL(db_, "INSERT INTO tblCode (codeName, code, classID) VALUES ('n" +
                                std::to_string(i) + "', '" +
                                (i % 7 == 0 ? "draw the grid" : "fill a form") + "', 1)");
        }
    }
    /// A segment for so many procedures, and that several times.
    void AddSegments(int segments, int rows) {
        for (; segments > 0; --segments) {
            AddCodes(rows);
            while (WaitingRows() > 0)
                db_.GetConnection().TendTextIndex(TendingPace::ToTheEnd);
        }
    }
    std::int64_t Count(const std::string& what) {
        const Recordset row = db_.GetConnection().Execute("SELECT count(*) FROM " + what);
        return row[std::size_t{0}].Integer64();
    }
    std::size_t Findings(FindingKind kind) {
        std::size_t count = 0;
        for (const CheckFinding& finding : CheckCatalogue(db_).findings)
            count += finding.kind == kind ? 1 : 0;
        return count;
    }
    void RunScript(const std::string& script) { db_.GetConnection().RunScript(script); }
};

TEST_F(TextIndexTest, MarksOnlyRowsThatItKnowsAndTakesAllInWhenTended) {
    AddCodes(100);
    ExecuteSQL(db_, "UPDATE tblCode SET code = 'new' WHERE codeID = 1");
    EXPECT_EQ(Count("tblTextDirty"), 0) << "rows that are not indexed need no mark";
    Tend();
    EXPECT_EQ(WaitingRows(), 0);
    ExecuteSQL(db_, "UPDATE tblCode SET classID = 1, keywordID = NULL WHERE codeID = 2");
    AddCodes(1);
    EXPECT_EQ(Count("tblTextDirty"), 0) << "nothing of what is indexed has changed";
    ExecuteSQL(db_, "UPDATE tblCode SET codeComment = 'new' WHERE codeID = 3");
    ExecuteSQL(db_, "DELETE FROM tblCode WHERE codeID = 4");
    ExecuteSQL(db_, "INSERT INTO tblCode (codeID, codeName, code) VALUES (4, 'back', 'grid')");
    EXPECT_EQ(Count("tblTextDirty"), 2);
    EXPECT_EQ(WaitingRows(), 3);
    Tend();
    EXPECT_EQ(WaitingRows(), 0);
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

TEST_F(TextIndexTest, IsWhatSearchesGoBy) {
    AddCodes(100);
    Tend();
    ExecuteSQL(db_, "UPDATE tblCode SET code = 'strange' WHERE codeID = 50");
    EXPECT_EQ(CodeLike("%strange%"), Rows{"50|"});
    RunScript("DELETE FROM tblTextDirty");
    EXPECT_EQ(CodeLike("%strange%"), Rows{}) << "without its mark nobody can know";
    EXPECT_EQ(CodeLike("%trang_%e"), Rows{});
    EXPECT_EQ(CodeLike("%st_an%"), Rows{"50|"}) << "without three letters in a row all is read";
    EXPECT_EQ(Findings(FindingKind::TextIndexWithGaps), 1U);
    ASSERT_TRUE(MendCatalogue(db_, CheckCatalogue(db_)));
    EXPECT_EQ(CodeLike("%strange%"), Rows{"50|"});
    Tend();
    EXPECT_EQ(CodeLike("%strange%"), Rows{"50|"});
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

TEST_F(TextIndexTest, LosesNothingByDamageAndSaysSo) {
    // clang-format off
    constexpr const char* kDamages[] = {
        "UPDATE tblTextBlock SET block = CAST(replace(block, substr(block, 9, 1), x'07') AS BLOB)",
        "UPDATE tblTextBlock SET block = substr(block, 1, length(block) / 2)",
        "UPDATE tblTextBlock SET block = x''",
        "DELETE FROM tblTextBlock",
        "DELETE FROM tblTextSegment",
        "UPDATE tblTextSegment SET segmentID = segmentID + 5",
        "UPDATE tblTextIndex SET segments = 9",
    };
    // clang-format on
    AddCodes(100);
    const Rows expected = CodeLike("%GRID%");
    EXPECT_EQ(expected.size(), 15U);
    for (const char* damage : kDamages) {
        RebuildTextIndex(db_);
        EXPECT_EQ(Findings(FindingKind::DamagedTextIndex), 0U);
        RunScript(damage);
        EXPECT_EQ(CodeLike("%GRID%"), expected) << damage;
        EXPECT_FALSE(FindCandidates("grid")) << damage;
        EXPECT_GT(Findings(FindingKind::DamagedTextIndex), 0U) << damage;
        EXPECT_EQ(Findings(FindingKind::NotChecked), 0U) << damage;
    }
    ASSERT_TRUE(MendCatalogue(db_, CheckCatalogue(db_)));
    Tend();
    EXPECT_EQ(CodeLike("%GRID%"), expected);
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

TEST_F(TextIndexTest, IsCheckedAlsoWhereNumbersAreOutOfBounds) {
    AddCodes(100);
    Tend();
    RunScript(
        "INSERT INTO tblCode (codeID, codeName, code) VALUES (-1, 'odd', 'grid'); DELETE FROM "
        "tblTextDirty");
    EXPECT_TRUE(CheckCatalogue(db_).isComplete);
    for (const char* const indexedTo : {"-5", "1 << 50"}) {
        RunScript("UPDATE tblTextIndex SET indexedTo = " + std::string(indexedTo));
        EXPECT_GT(Findings(FindingKind::DamagedTextIndex), 0U) << indexedTo;
    }
}

TEST_F(TextIndexTest, MergesSegmentsOfOneSizeAndRemovesWhatIsLeft) {
    AddSegments(7, 30);
    Tend();
    EXPECT_EQ(Count("tblTextSegment WHERE ownerTableID = 3"), 7);
    AddSegments(1, 30);
    ExecuteSQL(db_, "UPDATE tblCode SET code = 'draw the grid again' WHERE codeID < 30");
    Tend();
    EXPECT_EQ(Count("tblTextSegment WHERE ownerTableID = 3"), 2);
    EXPECT_EQ(Count("tblTextBlock WHERE blockID >> 32 NOT IN (SELECT segmentID FROM "
                    "tblTextSegment)"),
              0);
    EXPECT_EQ(CodeLike("%grid again%").size(), 29U);
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

TEST_F(TextIndexTest, KilledAtAnyStepFindsTheSameRows) {
    AddSegments(9, 40);
    db_.Close();
    for (int step = 0; step < 12; ++step) {
        RunUntilItDies([&] {
            FakeHost host;
            Database db(host.host, CatalogueProviders(), folder_.Path());
            OpenCatalogue(db);
            ExecuteSQL(db, "UPDATE tblCode SET code = 'draw the grid' WHERE codeID = 2");
            for (int i = 0; i < step % 6; ++i)
                db.GetConnection().TendTextIndex(TendingPace::WhenIdle);
            DieHere();
        });
        OpenCatalogue(db_);
        EXPECT_EQ(CodeLike("%grid%"), SortedRows(plain_.ExecuteSearch(
                                          "SELECT codeID FROM tblCode WHERE code LIKE '%grid%'")));
        EXPECT_TRUE(CheckCatalogue(db_).IsSound()) << step;
        if (step == 6) AddSegments(8, 40);
        db_.Close();
    }
    OpenCatalogue(db_);
    Tend();
    EXPECT_LT(Count("tblTextSegment WHERE ownerTableID = 3"), 9);
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

TEST_F(TextIndexTest, IsBuiltWhileMuchIsWrittenAndAtTheEndOfIt) {
    const std::string text(2'000, 'x');
    {
        BulkWriting writing(db_.GetConnection());
        for (int i = 0; i < 1'500; ++i) {
            ExecuteSQL(db_, "INSERT INTO tblCode (codeName, code, classID) VALUES ('n" +
                                std::to_string(i) + "', '" + text + "grid" + std::to_string(i) +
                                "', 1)");
        }
        EXPECT_EQ(Count("tblTextSegment"), 1);
        EXPECT_EQ(CodeLike("%grid1499%").size(), 1U);
        writing.Finish();
    }
    EXPECT_LT(WaitingRows(), 64);
    EXPECT_EQ(CodeLike("%grid149%").size(), 11U);
}

TEST_F(TextIndexTest, ServesReadersThatCannotWriteToIt) {
    AddCodes(100);
    Tend();
    AddCodes(80);
    ExecuteSQL(db_, "UPDATE tblCode SET code = 'draw the grid' WHERE codeID = 2");
    FakeHost host;
    Database reader(host.host, CatalogueProviders(), folder_.Path());
    reader.SetMode(AccessMode::Read);
    OpenCatalogue(reader);
    EXPECT_EQ(SortedRows(reader.GetConnection().ExecuteSearch(
                  "SELECT cd.codeID FROM tblCode cd WHERE cd.code LIKE '%grid%'")),
              CodeLike("%grid%"));
    EXPECT_FALSE(TendTextIndex(reader));
    EXPECT_EQ(WaitingRows(), 81);
    DropTextIndex(db_);
    EXPECT_TRUE(ReadTextIndexState(db_).empty());
    EXPECT_FALSE(TendTextIndex(db_));
    EXPECT_EQ(CodeLike("%grid%").size(), 28U);
}

/// Cancelled from the first look on.
struct Impatient final : CancelPoll {
    bool IsCancelled() const override { return true; }
};

TEST_F(TextIndexTest, LetsSearchesByCommentAndNameBeCancelledAndNothingElse) {
    RandomText random({"grid ", "form ", "x"}, 1);
    AddProcedures(400, random);
    const Impatient poll;
    db_.GetConnection().SetCancelPoll(&poll);
    const std::vector<Parameter> comment = {Parameter::LongText("comment", "%g%r%")};
    const std::vector<Parameter> name = {Parameter::Text255("name", "gr")};
    constexpr int kCancelled = static_cast<int>(EngineErrorCode::Cancelled);
    Connection& connection = db_.GetConnection();
    EXPECT_EQ(ErrorNumberOf(
                  [&] { connection.ExecuteNamedSearch("qryCodeClassAppRSByComment", comment); }),
              kCancelled);
    EXPECT_EQ(
        ErrorNumberOf([&] { connection.ExecuteNamedSearch("qryCodeClassAppRSByName", name); }),
        kCancelled);
    EXPECT_EQ(ErrorNumberOf([&] { connection.ExecuteNamedQuery("qryCodeClassAppRSByName", name); }),
              0);
    EXPECT_EQ(ErrorNumberOf([&] { Tend(); }), 0);
    connection.SetCancelPoll(nullptr);
}

}  // namespace
}  // namespace snippetarium::test
