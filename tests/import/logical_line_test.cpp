#include "import/logical_line.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "import/basic_scan.h"
#include "tests/fakes.h"

namespace snippetarium {
namespace {

/// A text that is read line by line.
struct Reading {
    test::FakeHost world = {};
    ImportState state = {};
    LineProgress progress;
    LineReader reader;

    explicit Reading(std::string_view text)
        : progress(world.host, state, 10), reader(text, progress) {}
};

TEST(NormaliseKeyLine, MakesEachOfItsPassesOnce) {
    constexpr std::pair<std::string_view, std::string_view> kRows[] = {
        {"Sub  Foo()", "Sub Foo()"},
        {"Attribute VB_Name = \"modX\"", "Attribute VB_Name=\"modX\""},
        {"a  =  b", "a=b"},
        {"a > b >c> d", "a>b>c>d"},
        {"f ( x ) ( y )", "f(x )(y )"},
        {"If a >= b", "If a>=b"},
        {" = ", "="},
        {"  a  ", "a"},
        {"    ", ""},
        {"", ""},
        {"a\t = \tb", "a\t=\tb"},
        {"a = = b", "a==b"},
        {"a( ( b", "a((b"},
        // Runs of blanks: by twelves, fives, threes and twos.
        {"a        b", "a b"},
        {"a         b", "a  b"},
        {"a             b", "a b"},
        {"a                    b", "a  b"},
        {"a         =b", "a =b"},
    };
    for (const auto& [text, key] : kRows)
        EXPECT_EQ(NormaliseKeyLine(std::string(text)), key) << "'" << text << "'";
}

TEST(NormaliseKeyLine, TakesLongLinesInOneGo) {
    std::string line;
    std::string key;
    for (int i = 0; i < 200'000; ++i) {
        line += "a = ( b";
        key += "a=(b";
    }
    EXPECT_EQ(NormaliseKeyLine(line), key);
}

TEST(ReadLogicalLine, JoinsLinesThatAreContinued) {
    struct Row {
        std::string_view text;
        std::vector<std::pair<std::string_view, std::string_view>> lines;
    };
    const Row kRows[] = {
        {"a\r\nb", {{"a", "a"}, {"b", "b"}}},
        {"\t Sub  A( x )\xC3\xA9\r\n", {{"\t Sub  A( x )\xC3\xA9", "Sub A(x )"}}},
        {"Sub A(x, _\r\n  y) \r\nb", {{"Sub A(x, _\r\n  y) ", "Sub A(x, y)"}, {"b", "b"}}},
        {"a _  \r\n b_\r\nc\r\n", {{"a _  \r\n b_\r\nc", "a b c"}}},
        {"'____\r\nSub A()\r\n", {{"'____\r\nSub A()", "'___ Sub A()"}}},
        {"a _\r\n\r\nb", {{"a _\r\n", "a"}, {"b", "b"}}},
        {"a _", {{"a _", "a _"}}},
        {"a _\r\n", {{"a _", "a _"}}},
        {"\r\n\r\n", {{"", ""}, {"", ""}}},
        {"a\rb\r\r\n", {{"a\rb\r", "a\rb"}}},
        {"\xC3\xA9 _\xC3\xA9\r\nb", {{"\xC3\xA9 _\xC3\xA9\r\nb", "b"}}},
        {"", {}},
    };
    for (const Row& row : kRows) {
        Reading reading(row.text);
        std::vector<std::pair<std::string, std::string>> lines;
        while (!reading.reader.IsDone()) {
            const LogicalLine line = ReadLogicalLine(reading.reader);
            lines.emplace_back(line.raw, line.key);
        }
        const std::vector<std::pair<std::string, std::string>> expected(row.lines.begin(),
                                                                        row.lines.end());
        EXPECT_EQ(lines, expected) << row.text;
    }
}

TEST(ReadLogicalLine, MovesTheProgressWithEveryLineOfTheFile) {
    Reading reading("a _\r\nb _\r\nc\r\nd\r\n");
    ReadLogicalLine(reading.reader);
    EXPECT_EQ(reading.world.progress.unitValues, (std::vector<double>{10, 20, 30}));
    EXPECT_EQ(reading.reader.LineNumber(), 3U);
    ReadLogicalLine(reading.reader);
    EXPECT_EQ(reading.world.progress.unitValues.back(), 40);
}

TEST(ReadProcedureBody, EndsWithTheEndOfItsKind) {
    struct Row {
        std::string_view text;
        std::string_view body;
        bool isClosed;
        std::size_t strayStartLine;
    };
    constexpr Row kRows[] = {
        {"Sub A()\r\nx\r\n end sub\r\ny\r\n", "Sub A()\r\nx\r\n end sub\r\n", true, 0},
        {"Sub A(x, _\r\n y)\r\nEnd Sub", "Sub A(x, _\r\n y)\r\nEnd Sub\r\n", true, 0},
        {"Sub A()", "Sub A()\r\n", false, 0},
        {"Sub A()\r\nx\r\n\r\n", "Sub A()\r\nx\r\n\r\n", false, 0},
        {"Sub A()\r\nEnd Function\r\nEnd Sub 'a\r\nEnd Sub\r\n",
         "Sub A()\r\nEnd Function\r\nEnd Sub 'a\r\nEnd Sub\r\n", true, 0},
        {"Sub A(): End Sub\r\n\r\nPublic  Function F()\r\nSub B()\r\nEnd Sub\r\n",
         "Sub A(): End Sub\r\n\r\nPublic  Function F()\r\nSub B()\r\nEnd Sub\r\n", true, 3},
        // Two heads for one body.
        {"Sub A(x)\r\n#Else\r\nSub A(y)\r\n#End If\r\nEnd Sub",
         "Sub A(x)\r\n#Else\r\nSub A(y)\r\n#End If\r\nEnd Sub\r\n", true, 0},
        {"Sub A(x)\r\n'Sub B()\r\nSet Sub = F\r\nEnd Sub",
         "Sub A(x)\r\n'Sub B()\r\nSet Sub = F\r\nEnd Sub\r\n", true, 0},
    };
    for (const Row& row : kRows) {
        Reading reading(row.text);
        const LogicalLine first = ReadLogicalLine(reading.reader);
        const ProcedureBody body = ReadProcedureBody(reading.reader, first.raw, ProcedureKind::Sub);
        EXPECT_EQ(body.text, row.body);
        EXPECT_EQ(body.isClosed, row.isClosed) << row.text;
        EXPECT_EQ(body.strayStartLine, row.strayStartLine) << row.text;
    }
}

TEST(ReadProcedureBody, StopsAfterTheLineAtWhichTheImportIsCancelled) {
    Reading reading("Sub A()\r\n1\r\n2\r\n3\r\nEnd Sub\r\n");
    reading.world.events.At(3, [&] { reading.state.importCancelled = true; });
    const LogicalLine first = ReadLogicalLine(reading.reader);
    const ProcedureBody body = ReadProcedureBody(reading.reader, first.raw, ProcedureKind::Sub);
    EXPECT_EQ(body.text, "Sub A()\r\n1\r\n2\r\n");
    EXPECT_FALSE(body.isClosed);
}

}  // namespace
}  // namespace snippetarium
