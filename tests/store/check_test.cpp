#include "store/check.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "engine/sqlite_handle.h"
#include "store/backup.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/filled_catalogue.h"

namespace snippetarium::test {
namespace {

using enum FindingKind;

/// A fault and what the check is to say of it. Where the last is false, mending cannot help.
struct PlantedFault {
    std::string_view script;
    FindingKind kind;
    std::int64_t count;
    std::string_view example;
    bool isMendable = true;
};

// clang-format off
constexpr PlantedFault kPlantedFaults[] = {
    {"DROP INDEX ixCodeName", MissingSchemaObject, 1, "index ixCodeName"},
    {"DROP TRIGGER trgClassMoved; DROP TRIGGER trgCodeMoved", MissingSchemaObject, 2, "trigger trgClassMoved"},
    {"DROP TABLE tblKeywordTemp", MissingSchemaObject, 1, "table tblKeywordTemp"},
    {"DROP TABLE tblCommonWord", MissingSchemaObject, 2, "table tblCommonWord"},
    {"DROP INDEX ixAppName; CREATE INDEX ixAppName ON tblApplication(appName COLLATE BINARY)", ChangedSchemaObject, 1, "index ixAppName"},
    {"ALTER TABLE tblSetting ADD COLUMN note TEXT", ChangedSchemaObject, 1, "table tblSetting", false},
    {"DELETE FROM sqlite_stat1 WHERE tbl = 'tblCode'", ChangedStatistics, 4, "('tblCode', 'ixCodeClass', '1000000 20 1 1')"},
    {"UPDATE sqlite_stat1 SET stat = '3 1' WHERE idx = 'ixAppName'", ChangedStatistics, 2, "('tblApplication', 'ixAppName', '2000 1')"},
    {"ANALYZE", ChangedStatistics, 50, ""},
    {"DELETE FROM tblNamedQuery WHERE name IN ('qryLanguage', 'qryFavorite')", ChangedStoredQuery, 2, "qryFavorite"},
    {"UPDATE tblNamedQuery SET body = body || ' ' WHERE name = 'qryLanguage'", ChangedStoredQuery, 1, "qryLanguage"},
    {"INSERT INTO tblNamedQuery VALUES ('qryMine', '', 'SELECT 1')", ChangedStoredQuery, 1, "qryMine"},
    {"DROP TRIGGER trgApplicationDeleted; DELETE FROM tblApplication WHERE appID = 1; UPDATE tblClass SET appID = 2 WHERE classID = 1", MissingPermanentRow, 1, "appID 1"},
    {"DELETE FROM tblClass WHERE classID = 1", MissingPermanentRow, 1, "classID 1"},
    {"DELETE FROM tblSeparator WHERE separatorID > 3", MissingPermanentRow, 2, "separatorID 4"},
    {"DELETE FROM tblWindowSize", MissingPermanentRow, 1, "w_hID 1"},
    {"UPDATE tblClass SET appID = 99 WHERE classID = 2; DELETE FROM tblFavorite", ClassWithoutApplication, 1, "classID 2"},
    {"UPDATE tblCode SET classID = -1 WHERE codeID BETWEEN 10 AND 19", ProcedureWithoutClass, 10, "codeID 10"},
    {"UPDATE tblApplication SET keywordID = 99 WHERE appID = 2", OwnerWithoutItsKeyword, 1, "appID 2"},
    {"UPDATE tblClass SET keywordID = 0 WHERE classID = 3", OwnerWithoutItsKeyword, 1, "classID 3"},
    {"UPDATE tblCode SET keywordID = 99 WHERE codeID = 4", OwnerWithoutItsKeyword, 1, "codeID 4"},
    {"UPDATE tblKeyword SET separatorID = 6 WHERE keywordID = 5", KeywordWithoutSeparator, 1, "keywordID 5"},
    {"INSERT INTO tblKeyword_link_searchWord VALUES (99, 1), (1, 98)", KeywordLinkToNothing, 2, "keywordID 99, searchWordID 1"},
    {"INSERT INTO tblSearchWord VALUES (77, 'lonely')", UnlinkedSearchWord, 1, "searchWordID 77"},
    {"INSERT INTO tbl_Author_Link VALUES (9999, 1, 3), (99, 1, 2), (99, 1, 1), (1, 1, 4)", AuthorLinkWithoutOwner, 4, "ownerID 9999, ownerTableID 3"},
    {"INSERT INTO tbl_Author_Link VALUES (2, 99, 3)", AuthorLinkWithoutAuthor, 1, "authorID 99"},
    {"INSERT INTO tbl_date_link VALUES (9999, 1, 3), (99, 1, 2), (99, 1, 1), (1, 1, 0)", DateLinkWithoutOwner, 4, "ownerID 1, ownerTableID 0"},
    {"INSERT INTO tbl_date_link VALUES (2, 99, 3)", DateLinkWithoutDate, 1, "dateID 99"},
    {"UPDATE tblClass SET languageID = 12 WHERE classID = 4", ClassOfUnknownLanguage, 1, "classID 4", false},
    {"INSERT INTO tblCode_Link_Language VALUES (9999, 1)", LanguageLinkWithoutProcedure, 1, "codeID 9999"},
    {"UPDATE tblCode_Link_Language SET languageID = 12 WHERE codeID = 5", LanguageLinkWithoutLanguage, 1, "codeID 5"},
    {"INSERT INTO tblFavorite VALUES (2, 2, 9999), (2, 99, NULL), (99, 2, NULL)", BookmarkOfNothing, 3, "appID 2, classID 2, codeID 9999"},
    {"INSERT INTO tblSourceForm VALUES (99, 'utf-8')", SourceFormWithoutClass, 1, "classID 99"},
    {"INSERT INTO tblOverlong VALUES (99, 2, 'classDI', 'x'), (1, 5, 'code', 'x')", OverlongTextWithoutOwner, 2, "ownerID 1, ownerTableID 5"},
    {"INSERT INTO tblTrashCode(trashID, codeID) VALUES (7, 1)", TrashWithoutEntry, 1, "trashID 7"},
    {"INSERT INTO tblIDsToDelete VALUES (7), (8), (7)", LeftoverToDelete, 2, "ID 7"},
    {"INSERT INTO tblClassesToEmpty VALUES (7)", LeftoverToDelete, 1, "classID 7"},
    {"INSERT INTO tblSetting (name, value) VALUES ('import.cutShort 3', 'told'), ('import.cutShort 9999', 'new'), ('import.underWay', '4')", ClassCutShort, 2, "classID 3, Grid1"},
    {"INSERT INTO tblNameBlock VALUES (3, 0, '00010005', 'draw1'), (2, 1, '', '')", StaleNames, 1, "ownerTableID 2, block 1"},
    {"INSERT INTO tblDraftText VALUES (7, 'code', 'x', NULL)", DraftTextWithoutDraft, 1, "draftID 7"},
    {"INSERT INTO tblDate VALUES (71, '14.03.2001'), (72, '2001-02-30'), (73, NULL), (74, '2001-03-14 24:00:00'), (75, 'now'), (76, '2001-03-14 8:30')", DateThatIsNone, 6, "dateID 71", false},
};
// clang-format on

const CheckFinding* FindKind(const CheckReport& report, FindingKind kind) {
    const auto found =
        std::find_if(report.findings.begin(), report.findings.end(),
                     [&](const CheckFinding& finding) { return finding.kind == kind; });
    return found == report.findings.end() ? nullptr : &*found;
}

std::string Describe(const CheckReport& report) {
    std::string text = report.isComplete ? "" : "not complete\n";
    for (const CheckFinding& finding : report.findings) {
        text += std::to_string(finding.count) + " " + finding.what;
        for (const std::string& example : finding.examples)
            text += "; " + example;
        text += "\n";
    }
    return text;
}

class CheckTest : public OpenCatalogueFixture {
  protected:
    void Fill() { db_.GetConnection().RunScript(FillScript(600)); }
};

TEST_F(CheckTest, FindsNothingInANewCatalogueNorInAFilledOne) {
    EXPECT_EQ(Describe(CheckCatalogue(db_)), "");
    Fill();
    EXPECT_EQ(Describe(CheckCatalogue(db_)), "");
    EXPECT_TRUE(CheckCatalogue(db_).IsSound());
}

TEST_F(CheckTest, FindsEachFaultAndMendsWhatCanBeMended) {
    Fill();
    db_.Close();
    const std::string filled = ReadBytes(CataloguePath());
    for (const PlantedFault& fault : kPlantedFaults) {
        SCOPED_TRACE(fault.script);
        WriteBytes(CataloguePath(), filled);
        RunStatements(OpenDatabase(CataloguePath(), OpenFlag::ReadWrite).get(),
                      std::string(fault.script));
        const std::string planted = ReadBytes(CataloguePath());
        const CheckReport report = CheckCatalogue(db_);
        EXPECT_TRUE(ReadBytes(CataloguePath()) == planted) << "a check changes nothing";

        const CheckFinding* finding = FindKind(report, fault.kind);
        ASSERT_NE(finding, nullptr) << Describe(report);
        if (!fault.example.empty()) {
            EXPECT_EQ(finding->count, fault.count) << Describe(report);
            EXPECT_EQ(finding->examples.front(), fault.example);
        }
        EXPECT_LE(finding->examples.size(), 5U);
        EXPECT_FALSE(finding->advice.empty());
        EXPECT_TRUE(report.isComplete);
        EXPECT_EQ(report.IsSound(), finding->weight == FindingWeight::Information);

        db_.SetMode(AccessMode::ReadWrite);
        OpenCatalogue(db_);
        EXPECT_EQ(MendCatalogue(db_, report), true);
        EXPECT_EQ(CheckCatalogue(db_).IsSound(), fault.isMendable) << Describe(CheckCatalogue(db_));
        db_.Close();
        host_.clock.Advance(std::chrono::seconds(1));
    }
}

TEST_F(CheckTest, TellsOfTablesAndIndexesOfOtherPrograms) {
    db_.GetConnection().RunScript(
        "CREATE TABLE mine(x); CREATE INDEX ixMine ON tblCode(code); CREATE VIEW vw AS SELECT 1");
    const CheckReport report = CheckCatalogue(db_);
    const CheckFinding* finding = FindKind(report, ForeignSchemaObject);
    ASSERT_NE(finding, nullptr);
    EXPECT_EQ(finding->examples,
              (std::vector<std::string>{"table mine", "index ixMine", "view vw"}));
    EXPECT_TRUE(report.IsSound());
}

TEST_F(CheckTest, ChecksTheRestWhereATableIsMissing) {
    Fill();
    db_.GetConnection().RunScript(
        "DROP TABLE tblKeyword; DELETE FROM tblWindowSize;"
        "INSERT INTO tblSourceForm VALUES (99, 'x')");
    const CheckReport report = CheckCatalogue(db_);
    EXPECT_TRUE(report.isComplete);
    EXPECT_NE(FindKind(report, NotChecked), nullptr);
    EXPECT_NE(FindKind(report, MissingPermanentRow), nullptr) << Describe(report);
    EXPECT_NE(FindKind(report, SourceFormWithoutClass), nullptr) << Describe(report);
}

TEST_F(CheckTest, NamesDamageAndLooksAtWhatIsLeft) {
    Fill();
    db_.GetConnection().RunScript("INSERT INTO tblIDsToDelete VALUES (7)");
    db_.Close();
    std::string bytes = ReadBytes(CataloguePath());
    const std::string sound = bytes;
    bytes.replace(bytes.size() - 20 * 4096, 4096, std::string(4096, '\xEE'));
    WriteBytes(CataloguePath(), bytes);
    const CheckReport report = CheckCatalogue(db_);
    const CheckFinding* damage = FindKind(report, DamagedFile);
    ASSERT_NE(damage, nullptr) << Describe(report);
    EXPECT_FALSE(damage->examples.empty());
    EXPECT_NE(FindKind(report, LeftoverToDelete), nullptr) << Describe(report);
    EXPECT_TRUE(report.isComplete);
    EXPECT_FALSE(MendCatalogue(db_, report));
    EXPECT_NE(TakeBox().text.find("is damaged, so nothing was mended"), std::string::npos);
    EXPECT_TRUE(ReadBytes(CataloguePath()) == bytes);

    for (const std::string& hopeless :
         {std::string("no catalogue"), sound.substr(0, sound.size() / 2),
          std::string(4096, '\xEE') + sound.substr(4096)}) {
        WriteBytes(CataloguePath(), hopeless);
        const CheckReport ofHopeless = CheckCatalogue(db_);
        EXPECT_NE(FindKind(ofHopeless, DamagedFile), nullptr) << Describe(ofHopeless);
        EXPECT_FALSE(ofHopeless.IsSound());
        EXPECT_TRUE(ReadBytes(CataloguePath()) == hopeless);
    }
}

TEST_F(CheckTest, ThatIsCancelledSaysNothing) {
    Fill();
    host_.events.At(1, [&] {
        host_.clock.Advance(std::chrono::seconds(1));
        host_.PressCancelAt(3);
    });
    const CheckReport report = CheckCatalogue(db_);
    EXPECT_FALSE(report.isComplete);
    EXPECT_FALSE(report.IsSound());
    EXPECT_FALSE(host_.progress.IsOpen());
}

TEST_F(CheckTest, OfAMissingFileIsReportedAndNeverSound) {
    db_.Close();
    std::filesystem::remove(CataloguePath());
    EXPECT_FALSE(CheckCatalogue(db_).IsSound());
    EXPECT_NE(TakeBox().text.find("QRT Error Code: 10793"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(CataloguePath()));
}

TEST_F(CheckTest, MendingIsAllOrNothingAfterABackup) {
    CheckReport report;
    report.findings.resize(2);
    report.findings[0].mendingScript = "DELETE FROM tblCommonWord";
    report.findings[1].mendingScript = "DELETE FROM tblNoSuch";
    EXPECT_FALSE(MendCatalogue(db_, report));
    TakeBox();
    EXPECT_GT(ScalarLong(db_, "SELECT count(*) FROM tblCommonWord"), 100);
    EXPECT_EQ(ListBackups(folder_.Path()).size(), 1U);
    EXPECT_TRUE(MendCatalogue(db_, CheckCatalogue(db_)));
    EXPECT_EQ(ListBackups(folder_.Path()).size(), 1U) << "there is nothing to mend";
}

}  // namespace
}  // namespace snippetarium::test
