#include "engine/inspection.h"

#include <gtest/gtest.h>

#include "engine/integrity.h"
#include "tests/engine/test_catalogue.h"

namespace snippetarium::test {
namespace {

struct Cancelled final : CancelPoll {
    bool IsCancelled() const override { return true; }
};

TEST(Inspection, SeesOneMomentOfACatalogueThatIsBeingWritten) {
    TestCatalogue catalogue;
    const Inspection inspection(catalogue.Path());
    catalogue.connection.ExecuteAction("DELETE FROM tblCode");
    EXPECT_EQ(inspection.ReadNumber("SELECT count(*) FROM tblCode"), 3);
    EXPECT_EQ(Inspection(catalogue.Path()).ReadNumber("SELECT count(*) FROM tblCode"), 0);
}

TEST(Inspection, CannotWrite) {
    TestCatalogue catalogue;
    EXPECT_EQ(ErrorNumberOf([&] { Inspection(catalogue.Path()).Read("DELETE FROM tblCode"); }),
              3027);
    EXPECT_EQ(catalogue.Scalar("SELECT count(*) FROM tblCode"), "3");
}

TEST(Inspection, LooksAtWhatAScriptMakes) {
    const Inspection inspection = Inspection::OfScript(std::string(kTestSchema));
    EXPECT_EQ(
        inspection.ReadNumber("SELECT count(*) FROM sqlite_schema WHERE type = 'index' AND sql "
                              "IS NOT NULL"),
        1);
}

TEST(Integrity, OfASoundFileHasNoProblems) {
    TestCatalogue catalogue;
    EXPECT_EQ(FindIntegrityProblems(catalogue.Path(), nullptr), std::vector<std::string>());
}

TEST(Integrity, NamesDamageWhereverItIs) {
    TestCatalogue catalogue;
    catalogue.connection.Close();
    const std::string sound = ReadBytes(catalogue.Path());
    ASSERT_EQ(sound.size() % 4096, 0U);
    for (std::size_t page = 0; page < sound.size() / 4096; ++page) {
        std::string bytes = sound;
        bytes.replace(page * 4096 + (page == 0 ? 100 : 0), 3000, std::string(3000, '\xEE'));
        WriteBytes(catalogue.Path(), bytes);
        EXPECT_FALSE(FindIntegrityProblems(catalogue.Path(), nullptr).empty()) << page;
        EXPECT_TRUE(ReadBytes(catalogue.Path()) == bytes);
    }
    WriteBytes(catalogue.Path(), "no database at all, whatever its name says");
    EXPECT_FALSE(FindIntegrityProblems(catalogue.Path(), nullptr).empty());
}

TEST(Integrity, NamesAnIndexThatLacksARow) {
    TestCatalogue catalogue;
    catalogue.connection.Close();
    RunStatements(OpenDatabase(catalogue.Path(), OpenFlag::ReadWrite).get(),
                  "PRAGMA writable_schema = ON; "
                  "UPDATE sqlite_schema SET sql = 'CREATE INDEX ixCodeName ON tblCode(code)' "
                  "WHERE name = 'ixCodeName'");
    const std::vector<std::string> problems = FindIntegrityProblems(catalogue.Path(), nullptr);
    ASSERT_FALSE(problems.empty());
    EXPECT_NE(problems.front().find("ixCodeName"), std::string::npos) << problems.front();
}

TEST(Integrity, CanBeCancelled) {
    TestCatalogue catalogue;
    for (int doubled = 0; doubled < 14; ++doubled) {
        catalogue.connection.ExecuteAction(
            "INSERT INTO tblCode (codeName) SELECT 'x' FROM tblCode");
    }
    const Cancelled poll;
    EXPECT_EQ(ErrorNumberOf([&] { FindIntegrityProblems(catalogue.Path(), &poll); }), 3059);
}

}  // namespace
}  // namespace snippetarium::test
