#include "engine/salvage.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <random>
#include <set>
#include <vector>

#include "engine/database_file.h"
#include "engine/inspection.h"
#include "engine/integrity.h"
#include "tests/engine/test_catalogue.h"
#include "tests/killed_child.h"

namespace snippetarium::test {
namespace {

constexpr std::size_t kPageSize = 4096;
constexpr std::string_view kMoreTables = R"(
CREATE TABLE tblLink(ownerID INTEGER NOT NULL, authorID INTEGER NOT NULL);
CREATE INDEX ixLink ON tblLink(ownerID);
CREATE TABLE tblPlain(plain TEXT);
CREATE TABLE tblSetting(name TEXT PRIMARY KEY COLLATE CATNC, value TEXT) WITHOUT ROWID;
CREATE TABLE tblOverlong(ownerID INTEGER, part TEXT, text TEXT);
CREATE UNIQUE INDEX ixOverlong ON tblOverlong(ownerID, part);
CREATE TRIGGER trgCode AFTER DELETE ON tblCode BEGIN DELETE FROM tblPlain; END;
ANALYZE;
DELETE FROM sqlite_stat1;
INSERT INTO sqlite_stat1(tbl, idx, stat) VALUES ('tblCode', 'ixCodeName', '1000000 2');
)";

struct Row {
    bool isReadable = false;
    std::string values;
};
using Rows = std::map<std::int64_t, Row>;

/// Reads a table number by number, each by a statement and a look-up of its own: the slow way that
/// leaves no doubt.
Rows ReadOneByOne(const std::string& path, const std::string& table, std::int64_t highest) {
    const DatabaseHandle database = OpenDatabase(path, OpenFlag::Read);
    RunStatements(database.get(), "PRAGMA writable_schema = ON; BEGIN");
    const StatementHandle statement = PrepareStatement(
        database.get(), "SELECT * FROM " + table + " NOT INDEXED WHERE rowid = ?1");
    Rows rows;
    for (std::int64_t number = 1; number <= highest; ++number) {
        sqlite3_bind_int64(statement.get(), 1, number);
        const int result = sqlite3_step(statement.get());
        if (result != SQLITE_DONE) {
            Row& row = rows[number];
            row.isReadable = result == SQLITE_ROW;
            for (int i = 0; row.isReadable && i < sqlite3_column_count(statement.get()); ++i) {
                const auto* text = sqlite3_column_text(statement.get(), i);
                row.values += text == nullptr ? "null" : reinterpret_cast<const char*>(text);
                row.values += "|";
            }
        }
        sqlite3_reset(statement.get());
    }
    return rows;
}

std::set<std::int64_t> Numbers(const std::vector<RowRange>& ranges) {
    std::set<std::int64_t> numbers;
    for (const RowRange& range : ranges) {
        for (std::int64_t number = range.first; number <= range.last; ++number)
            numbers.insert(number);
    }
    return numbers;
}

/// A closed catalogue with two thousand procedures, some of them many pages long, and some gaps.
class SalvageTest : public testing::Test {
  protected:
    static constexpr int kCodes = 2000;
    static constexpr int kLinks = 6000;

    SalvageTest() {
        const DatabaseHandle database = OpenDatabase(Path(), OpenFlag::ReadWrite);
        RunStatements(
            database.get(),
            std::string(kMoreTables) +
                "PRAGMA user_version = 7; BEGIN;"
                "WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
                "INSERT INTO tblCode SELECT i, 'name ' || i, substr(hex(zeroblob(10000)), 1, "
                "(i * 7919 % 900) * (CASE WHEN i % 50 THEN 1 ELSE 20 END)) || i, i % 90 FROM n;"
                "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 6000) "
                "INSERT INTO tblLink SELECT i, i % 7 FROM n;"
                "INSERT INTO tblPlain SELECT 'plain ' || ownerID FROM tblLink;"
                "INSERT INTO tblSetting SELECT 'setting ' || ownerID, 'value' FROM tblLink;"
                "DELETE FROM tblLink WHERE ownerID % 11 = 0; COMMIT");
        RunStatements(database.get(),
                      "DROP TRIGGER trgCode; DELETE FROM tblCode WHERE codeID % 13 = 0;"
                      "CREATE TRIGGER trgCode AFTER DELETE ON tblCode BEGIN "
                      "DELETE FROM tblPlain; END");
        plan_.creationScript =
            std::string(kTestSchema) + std::string(kMoreTables) + "PRAGMA user_version = 7;";
        plan_.deliveredTables = {"tblNamedQuery"};
        plan_.tablesWithPermanentRows = {"tblApplication"};
        catalogue_.connection.Close();
    }

    std::string Path() const { return catalogue_.Path(); }
    std::string Target() const { return catalogue_.folder.File("recovered.mde"); }

    void Overwrite(std::size_t page, std::string_view bytes) const {
        std::string content = ReadBytes(Path());
        content.replace(page * kPageSize, bytes.size(), bytes);
        WriteBytes(Path(), content);
    }
    std::size_t PageCount() const { return std::filesystem::file_size(Path()) / kPageSize; }
    std::size_t RootOf(const std::string& name) const {
        return static_cast<std::size_t>(Inspection(Path()).ReadNumber(
                   "SELECT rootpage FROM sqlite_schema WHERE name = '" + name + "'")) -
               1;
    }
    SalvageReport Recover() {
        std::filesystem::remove(Target());
        return SalvageDatabase(Path(), Target(), plan_, nullptr, nullptr);
    }
    static const SalvagedTable& TableOf(const SalvageReport& report, const std::string& name) {
        return *std::find_if(report.tables.begin(), report.tables.end(),
                             [&](const SalvagedTable& table) { return table.name == name; });
    }
    /// Everything that one by one can be read is in the new file, and what cannot is in the report.
    void ExpectAllThatCanBeRead(const SalvageReport& report, const std::string& name,
                                std::int64_t highest) const {
        const Rows damaged = ReadOneByOne(Path(), name, highest);
        const Rows saved = ReadOneByOne(Target(), name, highest);
        const std::set<std::int64_t> reported = Numbers(TableOf(report, name).unreadable);
        std::size_t lost = 0;
        for (const auto& [number, row] : damaged) {
            if (row.isReadable) {
                ASSERT_TRUE(saved.contains(number)) << name << " " << number;
                EXPECT_TRUE(saved.at(number).values == row.values) << name << " " << number;
            } else {
                ++lost;
                EXPECT_TRUE(reported.contains(number)) << name << " " << number;
            }
        }
        EXPECT_GE(reported.size(), lost);
        EXPECT_EQ(FindIntegrityProblems(Target(), nullptr), std::vector<std::string>());
    }

    TestCatalogue catalogue_;
    SalvagePlan plan_;
};

TEST_F(SalvageTest, OfASoundFileGivesTheSameCatalogue) {
    const SalvageReport report = Recover();
    EXPECT_TRUE(report.IsComplete());
    const Inspection before(Path());
    const Inspection after(Target());
    for (const SalvagedTable& table : report.tables) {
        const std::int64_t count = before.ReadNumber("SELECT count(*) FROM " + table.name);
        EXPECT_EQ(table.savedRows, count) << table.name;
        EXPECT_EQ(after.ReadNumber("SELECT count(*) FROM " + table.name), count) << table.name;
    }
    ExpectAllThatCanBeRead(report, "tblCode", kCodes);
    ExpectAllThatCanBeRead(report, "tblLink", kLinks);
    for (const std::string sql :
         {"SELECT count(*) FROM sqlite_schema", "SELECT count(*) FROM sqlite_stat1",
          "PRAGMA user_version", "PRAGMA application_id", "SELECT count(*) FROM tblNamedQuery",
          "SELECT seq FROM sqlite_sequence WHERE name = 'tblCode'"}) {
        EXPECT_EQ(after.ReadNumber(sql), before.ReadNumber(sql)) << sql;
    }
}

TEST_F(SalvageTest, SavesAllRowsOutsideDestroyedPages) {
    const std::string sound = ReadBytes(Path());
    std::mt19937 random(7);
    for (int round = 0; round < 9; ++round) {
        std::string damaged = sound;
        for (int count = 0; count < 1 + round; ++count) {
            std::string bytes(kPageSize, round % 3 == 0 ? '\0' : '\xEE');
            if (round % 3 == 1) {
                for (char& byte : bytes)
                    byte = static_cast<char>(random());
            }
            damaged.replace((2 + random() % (PageCount() - 2)) * kPageSize, kPageSize, bytes);
        }
        WriteBytes(Path(), damaged);
        const SalvageReport report = Recover();
        SCOPED_TRACE("round " + std::to_string(round));
        ExpectAllThatCanBeRead(report, "tblCode", kCodes);
        ExpectAllThatCanBeRead(report, "tblLink", kLinks);
        ExpectAllThatCanBeRead(report, "tblPlain", kLinks);
        EXPECT_TRUE(ReadBytes(Path()) == damaged) << "the damaged file stays as it is";
    }
}

TEST_F(SalvageTest, NeedsNoIndex) {
    for (const std::string name : {"ixCodeName", "ixLink"}) {
        Overwrite(RootOf(name), std::string(kPageSize, '\xEE'));
    }
    const SalvageReport report = Recover();
    EXPECT_TRUE(report.IsComplete());
    ExpectAllThatCanBeRead(report, "tblCode", kCodes);
    ExpectAllThatCanBeRead(report, "tblLink", kLinks);
}

TEST_F(SalvageTest, OfATableWithoutItsRootReportsEverything) {
    for (const std::string name : {"tblCode", "tblLink", "tblPlain", "tblSetting"}) {
        Overwrite(RootOf(name), std::string(kPageSize, '\xEE'));
    }
    const SalvageReport report = Recover();
    EXPECT_EQ(TableOf(report, "tblCode").UnreadableCount(), kCodes);
    EXPECT_EQ(TableOf(report, "tblLink").UnreadableCount(), kLinks) << "the index names the last";
    EXPECT_GE(TableOf(report, "tblPlain").UnreadableCount(), kLinks) << "nothing names the last";
    EXPECT_TRUE(TableOf(report, "tblSetting").hasUncountedLoss);
    EXPECT_EQ(FindIntegrityProblems(Target(), nullptr), std::vector<std::string>());
    EXPECT_EQ(Inspection(Target()).ReadNumber("SELECT count(*) FROM tblCode"), 3)
        << "of a table with a loss, the delivered rows come back";
}

TEST_F(SalvageTest, NeverGivesALostIdAgain) {
    RunStatements(OpenDatabase(Path(), OpenFlag::ReadWrite).get(),
                  "DROP TRIGGER trgCode; DELETE FROM tblCode WHERE codeID > 1500");
    Recover();
    Connection recovered(CatalogueProviders());
    recovered.SetConnectionString(ConnectionStringOf(Target()));
    recovered.Open();
    recovered.ExecuteAction("INSERT INTO tblCode (codeName) VALUES ('new')");
    EXPECT_EQ(recovered.Execute("SELECT max(codeID) FROM tblCode")[std::size_t{0}].Long(), 2001);
}

TEST_F(SalvageTest, PutsPermanentRowsBackAndLeavesOtherDeletedOnesDeleted) {
    RunStatements(OpenDatabase(Path(), OpenFlag::ReadWrite).get(),
                  "DROP TRIGGER trgCode; DELETE FROM tblApplication WHERE appID = 1;"
                  "UPDATE tblApplication SET appName = 'Mine' WHERE appID = 2;"
                  "DELETE FROM tblCode WHERE codeID = 1; DELETE FROM tblNamedQuery");
    EXPECT_TRUE(Recover().IsComplete());
    const Inspection after(Target());
    EXPECT_EQ(after.ReadNumber("SELECT count(*) FROM tblApplication WHERE appID = 1"), 1);
    EXPECT_EQ(after.ReadNumber("SELECT count(*) FROM tblApplication WHERE appName = 'Mine'"), 1);
    EXPECT_EQ(after.ReadNumber("SELECT count(*) FROM tblCode WHERE codeID = 1"), 0);
    EXPECT_GT(after.ReadNumber("SELECT count(*) FROM tblNamedQuery"), 0);
}

TEST_F(SalvageTest, TakesWhatACrashLeftInTheLog) {
    RunUntilItDies([&] {
        RunStatements(
            OpenDatabase(Path(), OpenFlag::ReadWrite).release(),
            "PRAGMA journal_mode = WAL; UPDATE tblCode SET codeName = 'late' WHERE codeID = 5");
        DieHere();
    });
    ASSERT_TRUE(HasPendingLog(Path()));
    const std::string before = ReadBytes(Path());
    EXPECT_TRUE(Recover().IsComplete());
    EXPECT_EQ(Inspection(Target()).ReadNumber("SELECT codeID FROM tblCode WHERE codeName = 'late'"),
              5);
    EXPECT_TRUE(ReadBytes(Path()) == before);
    EXPECT_TRUE(HasPendingLog(Path()));
}

TEST_F(SalvageTest, TakesWhatIsLeftOfAFileThatWasCutShort) {
    std::filesystem::resize_file(Path(), PageCount() / 2 * kPageSize);
    const SalvageReport report = Recover();
    EXPECT_FALSE(report.IsComplete());
    EXPECT_GT(TableOf(report, "tblCode").savedRows, 500);
    ExpectAllThatCanBeRead(report, "tblCode", kCodes);
}

TEST_F(SalvageTest, PointsOutTextsThatNobodyWrote) {
    // The middle of a long text, behind the number of the page where it goes on.
    const std::size_t page = static_cast<std::size_t>(Inspection(Path()).ReadNumber(
                                 "SELECT pageno FROM dbstat WHERE name = 'tblCode' AND pagetype = "
                                 "'overflow' LIMIT 1")) -
                             1;
    Overwrite(page, ReadBytes(Path()).substr(page * kPageSize, 4) + std::string(500, '\0'));
    const SalvageReport report = Recover();
    const SalvagedTable& codes = TableOf(report, "tblCode");
    EXPECT_EQ(codes.UnreadableCount(), 0);
    ASSERT_EQ(codes.suspect.size(), 1U);
    EXPECT_EQ(codes.suspect.front() % 50, 0) << "one of the long ones";
    EXPECT_FALSE(report.IsComplete());
}

TEST_F(SalvageTest, IsRefusedWhereNotEvenTheTablesCanBeListed) {
    const std::string sound = ReadBytes(Path());
    Overwrite(0, std::string(kPageSize, '\xEE'));
    EXPECT_EQ(ErrorNumberOf([&] { Recover(); }), 3343);
    EXPECT_FALSE(std::filesystem::exists(Target()));
    WriteBytes(Path(), "");
    EXPECT_EQ(ErrorNumberOf([&] { Recover(); }), 3343);
    EXPECT_FALSE(std::filesystem::exists(Target()));
}

TEST_F(SalvageTest, IsNotThereUntilItIsWhole) {
    struct AtOnce final : CancelPoll {
        bool IsCancelled() const override { return true; }
    } poll;
    EXPECT_EQ(ErrorNumberOf([&] { SalvageDatabase(Path(), Target(), plan_, nullptr, &poll); }),
              3059);
    EXPECT_FALSE(std::filesystem::exists(Target()));
    EXPECT_FALSE(std::filesystem::exists(Target() + ".part"));
    RunUntilItDies([&] {
        SalvageDatabase(
            Path(), Target(), plan_,
            [](double share) {
                if (share > 0.3) DieHere();
            },
            nullptr);
    });
    EXPECT_FALSE(std::filesystem::exists(Target()));
    EXPECT_TRUE(Recover().IsComplete());
}

}  // namespace
}  // namespace snippetarium::test
