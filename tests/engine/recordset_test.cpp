#include "engine/recordset.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

#include "tests/engine/test_catalogue.h"

namespace snippetarium::test {
namespace {

Recordset TwoRows() {
    RecordsetBuilder rows({"codeID", "codeName"});
    rows.AddInteger(7);
    rows.AddText("Draw");
    rows.AddNull();
    rows.AddText("");
    return rows.Take();
}

TEST(Recordset, IsWalkedFromTheFirstRowToItsEnd) {
    Recordset rows = TwoRows();
    EXPECT_EQ(rows["codeID"].Long(), 7);
    EXPECT_EQ(rows["CODENAME"].Text(), "Draw");
    rows.MoveNext();
    EXPECT_TRUE(rows["codeID"].IsNull());
    EXPECT_FALSE(rows["codeName"].IsNull()) << "an empty text is no null";
    rows.MoveNext();
    EXPECT_TRUE(rows.EndOfFile());
    rows.MoveNext();
    rows.MoveFirst();
    EXPECT_EQ(rows["codeID"].Long(), 7);
}

TEST(Recordset, TellsWhyAFieldCannotBeRead) {
    Recordset rows = TwoRows();
    EXPECT_EQ(ErrorNumberOf([&] { (void)rows["code"]; }), 3265);
    EXPECT_EQ(ErrorNumberOf([&] { (void)rows[2]; }), 3265);
    rows.MoveNext();
    rows.MoveNext();
    EXPECT_EQ(ErrorNumberOf([&] { (void)rows["codeID"]; }), 3021);
    rows.Close();
    EXPECT_EQ(ErrorNumberOf([&] { (void)rows["codeID"]; }), 3704);
    EXPECT_EQ(ErrorNumberOf([&] { (void)Recordset()[std::size_t{0}]; }), 3704);
}

TEST(Recordset, MissingOrMovedFromIsClosedAndAtItsEnd) {
    Recordset rows = TwoRows();
    const Recordset taken = std::move(rows);
    for (const Recordset* empty : {&std::as_const(rows)}) {
        EXPECT_FALSE(empty->IsOpen());
        EXPECT_TRUE(empty->EndOfFile());
        EXPECT_EQ(empty->RowCount(), 0U);
    }
    EXPECT_EQ(taken["codeName"].Text(), "Draw");
    EXPECT_TRUE(Recordset().EndOfFile());
}

TEST(Recordset, OfNoRowsIsOpenAndKnowsItsColumns) {
    RecordsetBuilder none({"appID"});
    const Recordset rows = none.Take();
    EXPECT_TRUE(rows.IsOpen());
    EXPECT_TRUE(rows.EndOfFile());
    EXPECT_EQ(rows.ColumnName(0), "appID");
}

TEST(Value, ConvertsToWholeNumbers) {
    const struct {
        Value value;
        std::int32_t expected;
    } cases[] = {
        {Value(), 0},
        {Value::Integer(-2147483648LL), std::numeric_limits<std::int32_t>::min()},
        {Value::Real(2.5), 2},
        {Value::Real(3.5), 4},
        {Value::Real(-0.5), 0},
        {Value::Text("42"), 42},
        {Value::Text("1e3"), 1000},
        {Value::Text("-7.5"), -8},
    };
    for (const auto& test : cases)
        EXPECT_EQ(test.value.Long(), test.expected) << test.value.Text();
}

TEST(Value, RefusesWhatIsNoWholeNumberOf32Bits) {
    const Value cases[] = {
        Value::Integer(2147483648LL), Value::Real(1e300), Value::Real(std::nan("")),
        Value::Text("12 apples"),     Value::Text(""),    Value::Text("9999999999999999999999"),
    };
    for (const Value& value : cases) {
        EXPECT_EQ(ErrorNumberOf([&] { (void)value.Long(); }), 3421) << value.Text();
    }
}

}  // namespace
}  // namespace snippetarium::test
