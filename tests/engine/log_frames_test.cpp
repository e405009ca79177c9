#include "engine/log_frames.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "engine/sqlite_handle.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {
namespace {

constexpr int kRows = 40;

/// Statements of one transaction. They change few rows again and again, by more than fits into the
/// cache, so that the library writes pages into the log and later over themselves.
std::string RandomChanges(std::mt19937& random) {
    std::string script;
    for (auto count = 1 + random() % 12; count > 0; --count) {
        const std::string id = std::to_string(random() % kRows);
        const std::string text =
            "replace(hex(zeroblob(" + std::to_string(random() % 6000) + ")), '0', '" + id + "')";
        script += random() % 4 == 0 ? "DELETE FROM t WHERE id = " + id + ";"
                                    : "INSERT OR REPLACE INTO t VALUES (" + id + ", " + text + ");";
    }
    return script;
}

std::string Content(sqlite3* database) {
    return ScalarText(database, "SELECT group_concat(id || text) FROM (SELECT * FROM t)");
}

/// As another program sees the file.
std::string ContentOf(const std::string& path) {
    const DatabaseHandle reader = OpenDatabase(path, OpenFlag::Read);
    EXPECT_EQ(ScalarText(reader.get(), "PRAGMA integrity_check"), "ok");
    return Content(reader.get());
}

/// As the file is found after a kill at this moment.
std::string ContentAfterAKill(const std::string& path) {
    const TemporaryFolder folder;
    for (const char* const suffix : {"", "-wal"})
        std::filesystem::copy_file(path + suffix, folder.File("copy") + suffix);
    return ContentOf(folder.File("copy"));
}

TEST(LogFrames, HoldWhatIsCommittedForOthersAndAfterAKill) {
    for (unsigned seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const TemporaryFolder folder;
        const std::string path = folder.File("log");
        const std::string table = "CREATE TABLE t(id INTEGER PRIMARY KEY, text);";
        RunStatements(OpenDatabase(path, OpenFlag::Create).get(),
                      "PRAGMA page_size = " + std::to_string(seed % 2 == 0 ? 4096 : 8192) +
                          ";PRAGMA journal_mode = WAL;" + table);
        const DatabaseHandle database = OpenDatabase(path, OpenFlag::ReadWrite);
        RunStatements(database.get(),
                      "PRAGMA synchronous = NORMAL; PRAGMA cache_size = 3;"
                      "PRAGMA wal_autocheckpoint = " +
                          std::to_string(10 + random() % 100));
        const DatabaseHandle expected = OpenDatabase(":memory:", OpenFlag::Create);
        RunStatements(expected.get(), table);
        for (int transaction = 0; transaction < 40; ++transaction) {
            const std::string changes = RandomChanges(random);
            RunStatements(database.get(), "BEGIN;" + changes);
            if (transaction % 8 == 0) {
                EXPECT_EQ(ContentAfterAKill(path), Content(expected.get()));
            }
            const bool isKept = random() % 4 != 0;
            RunStatements(database.get(), isKept ? "COMMIT" : "ROLLBACK");
            if (isKept) RunStatements(expected.get(), changes);
            ASSERT_EQ(ContentOf(path), Content(expected.get())) << transaction;
            ASSERT_EQ(ContentAfterAKill(path), Content(expected.get())) << transaction;
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
