#include "store/migration.h"

#include <array>
#include <filesystem>

#include "engine/engine_error.h"
#include "engine/inspection.h"
#include "store/backup.h"
#include "store/check.h"
#include "store/deletion.h"
#include "store/restore.h"
#include "store/trash.h"
#include "tests/child_process.h"
#include "tests/killed_child.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/watched_session.h"

namespace snippetarium::test {
namespace {

/// This program's version, as the tests take it to be, and the last one that the steps lead to.
constexpr std::int32_t kOld = kCatalogueVersion;
constexpr std::int32_t kNew = kOld + 2;

// Two later versions: a table with a row for each step that ran.
constexpr std::array kSteps = {
    MigrationStep{kOld,
                  "CREATE TABLE tblStep(step INTEGER); INSERT INTO tblStep VALUES (1); -- done"},
    MigrationStep{kOld + 1,
                  "INSERT INTO tblStep VALUES (2); ALTER TABLE tblSetting ADD COLUMN note TEXT"},
};

class MigrationTest : public OpenCatalogueFixture {
  protected:
    std::string Steps() const {
        const Inspection inspection(CataloguePath());
        if (inspection.ReadNumber("SELECT count(*) FROM sqlite_schema WHERE name = 'tblStep'") == 0)
            return "none";
        return inspection.Read("SELECT group_concat(step) FROM tblStep")[std::size_t{0}].Text();
    }
    std::int64_t Version() const {
        return Inspection(CataloguePath()).ReadNumber("PRAGMA user_version");
    }
    static std::string TextOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const Error& error) {
            return error.Description();
        }
        return {};
    }
    /// Database::Open itself would refuse files that this program does not know.
    void OpenAsALaterProgram() {
        Database db(host_.host, CatalogueProviders(), folder_.Path());
        db.GetConnection().SetConnectionString("Provider=" + std::string(kCatalogueProvider) +
                                               ";Data Source=" + CataloguePath());
        db.GetConnection().Open();
        BringUpToDate(db, kNew, kSteps);
    }
    bool HasBackups() const { return !ListBackups(folder_.Path()).empty(); }
};

TEST_F(MigrationTest, RunsEachStepOnceAfterABackup) {
    for (int time = 0; time < 2; ++time) {
        BringUpToDate(db_, kNew, kSteps);
        EXPECT_EQ(Version(), kNew);
        EXPECT_EQ(Steps(), "1,2");
    }
    const std::vector<Backup> backups = ListBackups(folder_.Path());
    ASSERT_EQ(backups.size(), 1U);
    EXPECT_EQ(backups.front().name.reason, BackupReason::Migration);
    EXPECT_EQ(Inspection(backups.front().path).ReadNumber("PRAGMA user_version"), kOld);
}

TEST_F(MigrationTest, OfANewFileDoesNothing) {
    int scripts = 0;
    db_.Close();
    Database db(host_.host, WatchedProviders([&] { ++scripts; }), folder_.Path());
    OpenCatalogue(db);
    EXPECT_EQ(scripts, 0);
    EXPECT_FALSE(HasBackups());
}

TEST_F(MigrationTest, PutsTheProgramsQueriesBackInOneScriptAndOnlyWhenTheyDiffer) {
    for (const std::string_view change :
         {"DELETE FROM tblNamedQuery WHERE name = 'qryLanguage'",
          "UPDATE tblNamedQuery SET body = body || ' ' WHERE name = 'qryLanguage'",
          "UPDATE tblNamedQuery SET parameters = 'x I' WHERE name = 'qryLanguage'",
          "INSERT INTO tblNamedQuery VALUES ('qryOther', '', 'SELECT 1')"}) {
        db_.GetConnection().RunScript(change);
        db_.Close();
        int scripts = 0;
        {
            Database db(host_.host, WatchedProviders([&] { ++scripts; }), folder_.Path());
            OpenCatalogue(db);
            OpenCatalogue(db_ /* beside it, for reading only */);
            TakeBox();
            EXPECT_EQ(scripts, 1) << change;
            const Inspection delivered = Inspection::OfScript(CreationScript());
            const char* const all =
                "SELECT group_concat(name || parameters || body) FROM (SELECT * "
                "FROM tblNamedQuery ORDER BY name)";
            EXPECT_EQ(Inspection(CataloguePath()).Read(all)[std::size_t{0}].Text(),
                      delivered.Read(all)[std::size_t{0}].Text());
            db_.Close();
        }
        OpenCatalogue(db_);
        EXPECT_FALSE(db_.IsReadOnly());
    }
    EXPECT_FALSE(HasBackups()) << "the tables are the same, so nothing can be lost";
}

TEST_F(MigrationTest, TakesAFailedStepBackAndTellsWhereTheBackupIs) {
    for (std::size_t bad = 0; bad < kSteps.size(); ++bad) {
        auto steps = kSteps;
        steps[bad].script = "DELETE FROM tblCommonWord; INSERT INTO tblNoSuch VALUES (1)";
        const std::string text = TextOf([&] { BringUpToDate(db_, kNew, steps); });
        const std::string backup = ListBackups(folder_.Path()).front().path;
        EXPECT_NE(text.find(backup), std::string::npos) << text;
        EXPECT_EQ(Version(), kOld + static_cast<int>(bad));
        EXPECT_EQ(Steps(), bad == 0 ? "none" : "1");
        EXPECT_GT(Inspection(CataloguePath()).ReadNumber("SELECT count(*) FROM tblCommonWord"),
                  100);
        EXPECT_EQ(Inspection(backup).ReadNumber("PRAGMA user_version"), kOld);
    }
}

TEST_F(MigrationTest, IsNotBegunWithoutItsBackupOrAllItsSteps) {
    WriteBytes(folder_.File("backups"), "a file in the way");
    EXPECT_NE(TextOf([&] { BringUpToDate(db_, kNew, kSteps); }).find("backup"), std::string::npos);
    EXPECT_EQ(Version(), kOld);
    std::filesystem::remove(folder_.File("backups"));

    EXPECT_THROW(BringUpToDate(db_, kNew + 1, kSteps), EngineError);
    EXPECT_EQ(Version(), kOld);
    EXPECT_FALSE(HasBackups());
}

TEST_F(MigrationTest, OfAFileOpenForReadingIsRefused) {
    db_.Close();
    db_.SetMode(AccessMode::Read);
    OpenCatalogue(db_);
    const std::string before = ReadBytes(CataloguePath());
    const std::string text = TextOf([&] { BringUpToDate(db_, kNew, kSteps); });
    EXPECT_NE(text.find("opened for writing once"), std::string::npos) << text;
    db_.Close();
    EXPECT_TRUE(ReadBytes(CataloguePath()) == before);
    EXPECT_FALSE(HasBackups());
}

TEST_F(MigrationTest, OfANewerFileIsRefusedAndTheFileStays) {
    BringUpToDate(db_, kNew, kSteps);
    db_.Close();
    const std::string before = ReadBytes(CataloguePath());
    for (const AccessMode mode : {AccessMode::ReadWrite, AccessMode::Read}) {
        db_.SetMode(mode);
        OpenCatalogue(db_);
        EXPECT_NE(
            TakeBox().text.find("was made by a newer Snippetarium (file version " +
                                std::to_string(kNew) + ", this program knows " +
                                std::to_string(kOld) + "). Install the newer program to open it."),
            std::string::npos);
        EXPECT_FALSE(db_.GetConnection().IsOpen());
        EXPECT_TRUE(ReadBytes(CataloguePath()) == before);
    }
}

TEST_F(MigrationTest, KilledBetweenAnyTwoStepsGoesOnAtTheNextOpening) {
    db_.Close();
    const std::string before = ReadBytes(CataloguePath());
    // Before each of the two steps, and before the stored queries, of which one differs.
    for (int deadly = 1; deadly <= 3; ++deadly) {
        WriteBytes(CataloguePath(), before);
        RunUntilItDies([&] {
            int scripts = -1;  // the deletion below
            Database db(host_.host, WatchedProviders([&] {
                            if (++scripts == deadly) DieHere();
                        }),
                        folder_.Path());
            db.Open();
            db.GetConnection().RunScript("DELETE FROM tblNamedQuery WHERE name = 'qryLanguage'");
            BringUpToDate(db, kNew, kSteps);
        });
        EXPECT_EQ(Version(), kOld - 1 + deadly);
        EXPECT_EQ(Steps(), deadly == 1 ? "none" : deadly == 2 ? "1" : "1,2");

        OpenAsALaterProgram();
        EXPECT_EQ(Version(), kNew);
        EXPECT_EQ(Steps(), "1,2") << "killed before script " << deadly;
        EXPECT_EQ(Inspection(CataloguePath())
                      .ReadNumber("SELECT count(*) FROM tblNamedQuery WHERE name = 'qryLanguage'"),
                  1);
    }
}

TEST_F(MigrationTest, KilledDuringItsBackupHasChangedNothing) {
    db_.Close();
    RunUntilItDies([&] {
        db_.Open();
        DieBehind(1 << 16);
        BringUpToDate(db_, kNew, kSteps);
    });
    EXPECT_FALSE(HasBackups());
    OpenCatalogue(db_);
    BringUpToDate(db_, kNew, kSteps);
    EXPECT_EQ(Steps(), "1,2");
    EXPECT_EQ(ListBackups(folder_.Path()).size(), 1U);
}

/// A file of an older version, as programs of that time made it, opened by this one.
class OldFileTest : public CatalogueFixture, public ::testing::WithParamInterface<int> {
  protected:
    static constexpr std::string_view kRows =
        "INSERT INTO tblApplication(appID, appName) VALUES (7, 'Paint');"
        "INSERT INTO tblClass(classID, className, appID, languageID) VALUES (8, 'Grid', 7, 1);"
        "INSERT INTO tblCode(codeID, codeName, code, classID) VALUES (9, 'Draw', 'Sub Draw()', 8);"
        "INSERT INTO tblDate VALUES (3, '2001-03-14');";
    /// What only a damaged file has: the second of each goes.
    static constexpr std::string_view kDoubleLinks =
        "INSERT INTO tbl_date_link VALUES (9, 3, 3), (9, 3, 3);"
        "INSERT INTO tblCode_Link_Language VALUES (9, 4), (9, 2);";

    OldFileTest() {
        std::filesystem::remove(CataloguePath());
        std::string script = ReadBytes(SNIPPETARIUM_VERSION_1);
        for (int version = 1; version < GetParam(); ++version) {
            script += std::string(MigrationScript(version)) +
                      "PRAGMA user_version = " + std::to_string(version + 1) + ";";
        }
        CreateDatabase(CataloguePath(), script + std::string(kRows) + std::string(kDoubleLinks));
    }
    std::string CodeName() {
        return db_.GetConnection()
            .Execute("SELECT codeName FROM tblCode WHERE codeID = 9")["codeName"]
            .Text();
    }
    /// What the procedure is linked with.
    std::string Links() {
        return db_.GetConnection()
            .Execute(
                "SELECT group_concat(dateID) || ' ' || (SELECT group_concat(languageID) FROM "
                "tblCode_Link_Language WHERE codeID = 9) AS links FROM tbl_date_link "
                "WHERE ownerID = 9 AND ownerTableID = 3")["links"]
            .Text();
    }
};

TEST_P(OldFileTest, BecomesLikeANewOne) {
    ASSERT_EQ(Inspection(CataloguePath()).ReadNumber("PRAGMA user_version"), GetParam());
    OpenCatalogue(db_);
    EXPECT_EQ(CodeName(), "Draw");
    EXPECT_EQ(Links(), "3 4");
    for (const CheckFinding& finding : CheckCatalogue(db_).findings)
        ADD_FAILURE() << finding.what << ": " << finding.examples.front();
    EXPECT_EQ(ListBackups(folder_.Path()).size(), 1U);
    DeleteApplication(db_, 7);
    RestoreFromTrash(db_, ListTrash(db_).at(0).trashID);
    EXPECT_EQ(CodeName(), "Draw");
    EXPECT_EQ(Links(), "3 4");
}

TEST_P(OldFileTest, IsRecoveredIntoANewOneAndMissesNothingForItsAge) {
    const SalvageResult result = SalvageCatalogue(host_.host, folder_.Path());
    EXPECT_TRUE(result.report.IsComplete());
    OpenCatalogue(db_);
    EXPECT_EQ(CodeName(), "Draw");
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

INSTANTIATE_TEST_SUITE_P(OfEachVersion, OldFileTest, ::testing::Range(1, kCatalogueVersion));

}  // namespace
}  // namespace snippetarium::test
