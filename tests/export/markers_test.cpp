#include "export/markers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/export/combinations.h"

namespace snippetarium {
namespace {

using test::Combinations;

constexpr MarkerFamily kFamilies[] = {MarkerFamily::VisualBasic, MarkerFamily::C,
                                      MarkerFamily::Page};

/// What markers are made of, and what therefore makes a name hostile.
std::vector<std::string> PiecesOf(MarkerFamily family) {
    const std::string marker = MarkerText(family, "|");
    const std::size_t name = marker.find('|');
    return {"a", "*", "\r\n", marker.substr(0, name), marker.substr(name + 1)};
}

/// The markers of a text by the slowest and plainest means: at each place try every name.
std::vector<MarkerPlace> ReferencePlaces(const std::string& text,
                                         const std::vector<std::string>& markers,
                                         const std::string& lineBreak) {
    std::vector<MarkerPlace> places;
    for (std::size_t at = 0; at < text.size();) {
        MarkerPlace best;
        for (std::size_t i = 0; i < markers.size(); ++i) {
            std::size_t length = markers[i].size();
            if (text.compare(at, length, markers[i]) != 0) continue;
            if (at + length < text.size()) {
                if (text.compare(at + length, lineBreak.size(), lineBreak) != 0) continue;
                length += lineBreak.size();
            }
            if (length > best.length) best = {at + 1, length, i};
        }
        if (best.length > 0) places.push_back(best);
        at += std::max(best.length, std::size_t{1});
    }
    return places;
}

TEST(Markers, LookAsTheLanguageWantsThem) {
    const struct {
        std::int32_t languageID;
        std::string_view line;
    } cases[] = {
        {1, "'***Procedure f(x)***\r\n"},     {2, "/***Procedure f(x)***/"},
        {3, "'***Procedure f(x)***\r\n"},     {4, "/***Procedure f(x)***/"},
        {5, "/***Procedure f(x)***/"},        {6, "<!--**Procedure f(x)**-->\r\n"},
        {7, "/***Procedure f(x)***/"},        {8, "'***Procedure f(x)***\r\n"},
        {9, "<!--**Procedure f(x)**-->\r\n"}, {10, "'***Procedure f(x)***\r\n"},
        {0, "'***Procedure f(x)***\r\n"},     {32767, "'***Procedure f(x)***\r\n"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(MarkerLine(MarkerFamilyOf(test.languageID), "f(x)"), test.line)
            << test.languageID;
    }
}

TEST(Markers, AreTheSameAsTryingEveryNameAtEveryPlaceFinds) {
    for (const MarkerFamily family : kFamilies) {
        const std::vector<std::string> pieces = PiecesOf(family);
        const std::string& beginning = pieces[3];
        const std::string& end = pieces[4];
        const std::vector<std::vector<std::string>> nameSets = {
            {"a"},
            {"a", "a" + end},
            {"a" + end + "\r\n", "a", ""},
            {"a" + end + beginning, "*", "a*", "aa"},
            {beginning + "a" + end + "\r\n" + "a", "a"},
        };
        for (const auto& names : nameSets) {
            const MarkedProcedures procedures{family, names};
            std::vector<std::string> markers;
            for (const std::string& name : names)
                markers.push_back(MarkerText(family, name));
            const std::string lineBreak = family == MarkerFamily::C ? "" : "\r\n";
            for (const std::string& tail : Combinations(pieces, 4)) {
                const std::string text = beginning + tail;
                ASSERT_EQ(FindMarkers(text, procedures), ReferencePlaces(text, markers, lineBreak))
                    << text << "\nnames: " << ::testing::PrintToString(names);
            }
        }
    }
}

TEST(Markers, OfOneProcedureAreRemovedAndRenamedAndEveryOtherStays) {
    for (const MarkerFamily family : kFamilies) {
        std::vector<std::string> pieces = PiecesOf(family);
        std::erase(pieces, "*");
        std::vector<std::string> names = Combinations(pieces, 3);
        names.erase(names.begin());  // a procedure has a name
        for (const std::string& gone : names) {
            for (const std::string& kept : names) {
                if (gone == kept) continue;
                const MarkedProcedures procedures{family, {kept, gone}};
                const auto text = [&](const std::string& first, const std::string& second) {
                    return "|" + first + "|" + second + "|" + MarkerLine(family, kept) +
                           MarkerText(family, "|");
                };
                const std::string before = text(MarkerLine(family, kept), MarkerLine(family, gone));
                ASSERT_EQ(RemoveMarker(before, procedures, gone),
                          text(MarkerLine(family, kept), ""))
                    << "removed '" << gone << "', kept '" << kept << "'";
                ASSERT_EQ(RenameMarker(before, procedures, gone, "new"),
                          text(MarkerLine(family, kept), MarkerLine(family, "new")))
                    << "renamed '" << gone << "', kept '" << kept << "'";
            }
        }
    }
}

TEST(Markers, AreFoundForAProcedureThatIsNoLongerListed) {
    const MarkedProcedures others{MarkerFamily::C, {"f***/"}};
    const std::string text = "/***Procedure f***/***/\r\n/***Procedure f***/\r\n";
    EXPECT_TRUE(HasMarker(text, others, "f"));
    EXPECT_EQ(RemoveMarker(text, others, "f"), "/***Procedure f***/***/\r\n\r\n");
    EXPECT_FALSE(HasMarker(text, others, "F"));
    EXPECT_EQ(RemoveMarker(text, others, "F"), text);
}

TEST(Markers, KeepTheBreakTheyHadWhenRenamed) {
    const MarkedProcedures none{MarkerFamily::Page, {}};
    EXPECT_EQ(RenameMarker("<!--**Procedure a**-->\r\n<!--**Procedure a**-->", none, "a", "long"),
              "<!--**Procedure long**-->\r\n<!--**Procedure long**-->");
}

TEST(Markers, AreAppendedOnceOnALineOfTheirOwn) {
    const struct {
        MarkerFamily family;
        std::string_view text;
        std::string_view expected;
    } cases[] = {
        {MarkerFamily::VisualBasic, "", "'***Procedure f***\r\n"},
        {MarkerFamily::VisualBasic, "x", "x\r\n'***Procedure f***\r\n"},
        {MarkerFamily::VisualBasic, "x\r\n", "x\r\n'***Procedure f***\r\n"},
        {MarkerFamily::VisualBasic, "'***Procedure f***", "'***Procedure f***"},
        {MarkerFamily::VisualBasic, "'***Procedure f***\r\nx", "'***Procedure f***\r\nx"},
        {MarkerFamily::C, "x", "x\r\n/***Procedure f***/"},
        {MarkerFamily::C, "int /***Procedure f***/;", "int /***Procedure f***/;"},
        {MarkerFamily::C, "/***Procedure f***/***/",
         "/***Procedure f***/***/\r\n/***Procedure f***/"},
        {MarkerFamily::Page, "<html>", "<html>\r\n<!--**Procedure f**-->\r\n"},
    };
    for (const auto& test : cases) {
        const MarkedProcedures procedures{test.family, {"f", "f***/"}};
        EXPECT_EQ(AppendMarker(test.text, procedures, "f"), test.expected) << test.text;
    }
}

TEST(Markers, DoNotPileUpBlankLinesWhenOneIsAppendedAndRemovedAgainAndAgain) {
    for (const MarkerFamily family : kFamilies) {
        const MarkedProcedures procedures{family, {"f"}};
        const std::string once = AppendMarker("x", procedures, "f");
        const std::string removed = RemoveMarker(once, procedures, "f");
        EXPECT_EQ(removed, "x\r\n");
        EXPECT_EQ(AppendMarker(removed, procedures, "f"), once);
    }
}

}  // namespace
}  // namespace snippetarium
