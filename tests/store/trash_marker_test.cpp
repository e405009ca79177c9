#include "store/trash_marker.h"

#include <gtest/gtest.h>

#include <iterator>

namespace snippetarium::test {
namespace {

struct MarkerCase {
    std::string_view what;
    std::string_view before;
    std::string_view now;
    std::string_view result;
    std::string_view newName = "Draw";
};

// clang-format off
constexpr MarkerCase kVisualBasic[] = {
    {"nothing else changed", "a\r\n'***Procedure Draw***\r\nb", "a\r\nb", "a\r\n'***Procedure Draw***\r\nb"},
    {"the marker was never taken out", "a\r\n'***Procedure Draw***\r\nb", "a\r\n'***Procedure Draw***\r\nb", "a\r\n'***Procedure Draw***\r\nb"},
    {"changed behind", "a\r\n'***Procedure Draw***\r\nb", "a\r\nbb\r\nc", "a\r\n'***Procedure Draw***\r\nbb\r\nc"},
    {"changed before", "a\r\n'***Procedure Draw***\r\nb", "aa\r\nc\r\nb", "aa\r\nc\r\n'***Procedure Draw***\r\nb"},
    {"changed on both sides", "a\r\n'***Procedure Draw***\r\nb", "aa\r\nbb", "aa\r\nbb\r\n'***Procedure Draw***\r\n"},
    {"the text is gone", "a\r\n'***Procedure Draw***\r\nb", "", "'***Procedure Draw***\r\n"},
    {"the line before it is not one any more", "a\r\n'***Procedure Draw***\r\nb", "ab", "ab\r\n'***Procedure Draw***\r\n"},
    {"it ended the text, which goes on now", "a\r\n'***Procedure Draw***", "a\r\nb", "a\r\nb\r\n'***Procedure Draw***\r\n"},
    {"it is there under its new name", "'***Procedure Draw***\r\n", "'***Procedure Draw (2)***\r\n", "'***Procedure Draw (2)***\r\n", "Draw (2)"},
    {"a new name", "a\r\n'***Procedure Draw***\r\nb", "a\r\nb", "a\r\n'***Procedure Draw (2)***\r\nb", "Draw (2)"},
    {"a new name beside another's old one", "a\r\n'***Procedure Draw***\r\nb", "a\r\nb\r\n'***Procedure Draw***\r\n", "a\r\n'***Procedure Draw (2)***\r\nb\r\n'***Procedure Draw***\r\n", "Draw (2)"},
    {"two of them", "'***Procedure Draw***\r\na\r\n'***Procedure Draw***\r\nb", "a\r\nbb", "'***Procedure Draw***\r\na\r\n'***Procedure Draw***\r\nbb"},
    {"another procedure's marker went too", "'***Procedure Draw***\r\n'***Procedure Run***\r\nb", "b", "'***Procedure Draw***\r\nb"},
    {"it had none", "a", "b", "b\r\n'***Procedure Draw***\r\n"},
};
constexpr MarkerCase kC[] = {
    {"changed behind, in its line", "{/***Procedure Draw***/}", "{ }", "{/***Procedure Draw***/ }"},
    {"changed before, in its line", "{/***Procedure Draw***/}", "int f {}", "int f {/***Procedure Draw***/}"},
    {"changed on both sides", "{/***Procedure Draw***/}", "()", "()\r\n/***Procedure Draw***/"},
};
// clang-format on

template <std::size_t Count>
void Check(const MarkerCase (&cases)[Count], MarkerFamily family) {
    for (const MarkerCase& test : cases) {
        const MarkedProcedures procedures{family, {"Run"}};
        EXPECT_EQ(PutMarkersBack(
                      test.now, procedures,
                      {.codeName = "Draw", .newName = test.newName, .textBefore = test.before}),
                  test.result)
            << test.what;
    }
}

TEST(TrashMarker, GoesWhereTheTextAroundItIsTheSame) {
    Check(kVisualBasic, MarkerFamily::VisualBasic);
    Check(kC, MarkerFamily::C);
}

/// All texts of up to `length` pieces.
std::vector<std::string> Texts(std::size_t length) {
    static constexpr std::string_view kPieces[] = {"a\r\n", "'***Procedure Run***\r\n",
                                                   "'***Procedure Draw***\r\n", "x"};
    std::vector<std::string> texts{""};
    for (std::size_t i = 0, first = 0; i < length; ++i) {
        const std::size_t end = texts.size();
        for (std::size_t text = first; text < end; ++text) {
            for (const std::string_view piece : kPieces)
                texts.push_back(texts[text] + std::string(piece));
        }
        first = end;
    }
    return texts;
}

TEST(TrashMarker, OfAnyTextsIsThereAfterwardsAndNothingElseChanges) {
    const MarkedProcedures procedures{MarkerFamily::VisualBasic, {"Run", "Draw"}};
    for (const std::string& before : Texts(4)) {
        for (const std::string& now : Texts(3)) {
            if (HasMarker(now, procedures, "Draw")) continue;
            const std::string text = PutMarkersBack(
                now, procedures, {.codeName = "Draw", .newName = "Draw", .textBefore = before});
            ASSERT_TRUE(HasMarker(text, procedures, "Draw")) << before << "\n-\n" << now;
            const std::string without = RemoveMarker(text, procedures, "Draw");
            ASSERT_TRUE(without == now || without == now + "\r\n") << before << "\n-\n" << now;
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
