#include "editors/marker_style.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace snippetarium::test {
namespace {

constexpr MarkerFamily kFamilies[] = {MarkerFamily::VisualBasic, MarkerFamily::C,
                                      MarkerFamily::Page};

/// Which procedures the markers of a text name, one behind the other.
std::vector<std::size_t> Marked(std::string_view text, const MarkedProcedures& procedures) {
    std::vector<std::size_t> marked;
    for (const MarkerPlace& place : FindMarkers(text, procedures))
        marked.push_back(place.procedure);
    return marked;
}

/// The text with its markers taken out, and without line breaks, which a change of style may add.
std::string WithoutMarkers(std::string_view text, const MarkedProcedures& procedures) {
    std::string rest;
    std::size_t copied = 0;
    for (const MarkerPlace& place : FindMarkers(text, procedures)) {
        rest.append(text, copied, place.position - 1 - copied);
        copied = place.position - 1 + place.length;
    }
    rest.append(text, copied);
    std::erase(rest, '\r');
    std::erase(rest, '\n');
    return rest;
}

TEST(MarkerStyle, ChangesTheStyleOfMarkersAndNothingElse) {
    // Each text of up to four pieces: two markers, a line break, other text.
    for (const MarkerFamily from : kFamilies) {
        const MarkedProcedures before{from, {"f", "g"}};
        const std::string pieces[] = {MarkerLine(from, "f"), MarkerText(from, "g"), "\r\n",
                                      "int x;"};
        for (const MarkerFamily to : kFamilies) {
            const MarkedProcedures after{to, {"f", "g"}};
            for (int number = 0; number < 4 * 4 * 4 * 4; ++number) {
                std::string text;
                for (int rest = number, i = 0; i < 4; ++i, rest /= 4)
                    text += pieces[rest % 4];
                const std::string changed = WithMarkersOf(to, text, before);
                ASSERT_EQ(Marked(changed, after), Marked(text, before)) << text;
                ASSERT_EQ(WithoutMarkers(changed, after), WithoutMarkers(text, before)) << text;
                if (to == from) {
                    ASSERT_EQ(changed, text);
                }
            }
        }
    }
}

TEST(MarkerStyle, PutsAMarkerOfAnotherStyleOnALineOfItsOwn) {
    const MarkedProcedures c{MarkerFamily::C, {"f"}};
    EXPECT_EQ(WithMarkersOf(MarkerFamily::VisualBasic, "a /***Procedure f***/ b", c),
              "a '***Procedure f***\r\n b");
    EXPECT_EQ(WithMarkersOf(MarkerFamily::Page, "/***Procedure f***/\r\nb", c),
              "<!--**Procedure f**-->\r\nb");
    const MarkedProcedures vb{MarkerFamily::VisualBasic, {"f"}};
    EXPECT_EQ(WithMarkersOf(MarkerFamily::C, "'***Procedure f***\r\nb", vb),
              "/***Procedure f***/\r\nb");
}

}  // namespace
}  // namespace snippetarium::test
