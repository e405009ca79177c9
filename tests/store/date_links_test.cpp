#include "store/date_links.h"

#include "store/reads_authors_dates.h"
#include "store/writes_codes.h"
#include "support/arrays.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

constexpr Owner kClass{OwnerKind::Class, 7};
constexpr Owner kProcedure{OwnerKind::Procedure, 7};

class DateLinks : public WriteFixture {
  protected:
    void Replace(const Owner& owner, const std::vector<std::string>& dates) {
        ReplaceDateLinks(db_, owner, dates);
    }
    Rows DatesOf(const Owner& owner) {
        return DeliveredCatalogue::AllRows(
            DateRSByOwner(db_, owner.id, static_cast<std::int32_t>(owner.kind)));
    }
};

TEST_F(DateLinks, SendTheseStatements) {
    const auto replacing = [](Owner owner, std::vector<std::string> dates) {
        return [=](Database& db) { ReplaceDateLinks(db, owner, dates); };
    };
    // clang-format off
    ExpectStatements({
        {"a new date", [](Database& db) { EXPECT_EQ(FindOrAddDate(db, {2001, 3, 4}), 1); },
         {"SELECT dateID FROM tblDate WHERE dDate = #2001-03-04#;",
          "SELECT max(dateID) FROM tblDate",
          "INSERT INTO tblDate VALUES(1, #2001-03-04#)"}},
        {"a known date", [](Database& db) { EXPECT_EQ(FindOrAddDate(db, {2001, 3, 4}), 1); },
         {"SELECT dateID FROM tblDate WHERE dDate = #2001-03-04#;"}},
        {"dates among other texts", replacing(kClass, {"soon", "", "4-Mar-2001", "2/30/2001"}),
         {"DELETE FROM tbl_date_link WHERE ownerID = 7 AND ownerTableID = 2",
          "SELECT dateID FROM tblDate WHERE dDate = #2001-03-04#;",
          "INSERT INTO tbl_date_link VALUES(7, 1, 2)"}},
        {"no dates", replacing(kProcedure, {}),
         {"DELETE FROM tbl_date_link WHERE ownerID = 7 AND ownerTableID = 3"}},
        {"removal", [](Database& db) { RemoveDateLinks(db, OwnerKind::Class, "6,7"); },
         {"INSERT INTO tblIDsToDelete SELECT dateID AS ID FROM tbl_date_link WHERE ownerID IN (6,7) AND ownerTableID=2",
          "DELETE FROM tbl_date_link WHERE ownerID IN (6,7) AND ownerTableID=2",
          "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT dateID FROM tbl_date_link)",
          "DELETE FROM tblDate WHERE dateID IN (SELECT dateID FROM tblIDsToDelete)",
          "DELETE FROM tblIDsToDelete"}},
    });
    // clang-format on
    EXPECT_EQ(Select("SELECT * FROM tblDate"), Rows());
}

TEST_F(DateLinks, AreReplacedByTheDatesAmongTheEntriesHoweverTheyAreWritten) {
    Replace(kClass, {"2001-03-14", "3/15/2001"});
    Replace(kProcedure, {"14.03.2001"});
    EXPECT_EQ(DatesOf(kClass), (Rows{"2001-03-14|1", "2001-03-15|2"}));
    EXPECT_EQ(DatesOf(kProcedure), Rows{"2001-03-14|1"}) << "one row serves both";
    Replace(kClass, {"14-Mar-2001 10:30", "not a date", "31.4.2001"});
    EXPECT_EQ(DatesOf(kClass), Rows{"2001-03-14|1"});
    EXPECT_EQ(DatesOf(kProcedure), Rows{"2001-03-14|1"});
    EXPECT_EQ(Select("SELECT dateID FROM tblDate"), (Rows{"1", "2"})) << "only a deletion removes";
}

TEST_F(DateLinks, StayWhenAListSaysNothingAndGoWithAnEmptyOne) {
    const CodeFields fields{.name = "Draw", .dates = {"2001-03-14"}};
    const Owner owner{OwnerKind::Procedure, AddCode(db_, fields)};
    for (const auto& list : {FreshStringArray(), {}, {"", "2002-02-02"}}) {
        EXPECT_TRUE(UpdateCode(db_, owner.id, {.name = "Draw", .dates = list}));
        EXPECT_EQ(DatesOf(owner), Rows{"2001-03-14|1"});
    }
    Replace(owner, {});
    EXPECT_EQ(DatesOf(owner), Rows());
}

TEST_F(DateLinks, AFailedDateIsNotLinked) {
    EXPECT_EQ(FindOrAddDate(db_, {2001, 2, 29}), 0) << "there is no such day";
    TakeBox();
    RefuseInsertsInto("tblDate");
    Replace(kClass, {"2001-03-14"});
    ExpectFailedStatement();
    EXPECT_EQ(Select("SELECT * FROM tbl_date_link"), Rows());
}

}  // namespace
}  // namespace snippetarium::test
