// What each kind of search finds, with and without a language, as a plain loop over the procedures
// would.
#include <gtest/gtest.h>

#include "tests/search/search_fixture.h"

namespace snippetarium::test {
namespace {

constexpr DateRange kYear2001 = {{2001, 1, 1}, {2001, 12, 31}};

struct Meaning {
    SearchKind kind;
    std::string entry;
    std::function<bool(int)> holds;
    /// Applications and classes, without a language; and the classes that are found with theirs.
    Keys above = {};
    Keys classesOfTheirLanguage = {};
};

bool HasNumber(int i, const std::string& digits) {
    return std::to_string(i).find(digits) == 0;
}

const Meaning kMeanings[] = {
    {SearchKind::Keyword, "word5", [](int i) { return i % 50 == 4; }, {"c3"}, {"c3"}},
    {SearchKind::Keyword, "word1", [](int i) { return i % 50 == 0; }, {"a2"}},
    {SearchKind::Keyword, "WORD2 word3", [](int i) { return i % 50 == 1 || i % 50 == 2; }},
    {SearchKind::Keyword, "word2 OR word3", [](int i) { return i % 50 == 1 || i % 50 == 2; }},
    {SearchKind::Keyword, "word1?", [](int i) { return i % 50 >= 9 && i % 50 <= 18; }},
    {SearchKind::Keyword, "word4*",
     [](int i) { return i % 50 == 3 || (i % 50 >= 39 && i % 50 <= 48); }},
    {SearchKind::Keyword, "ord5", [](int) { return false; }},
    {SearchKind::Keyword, "word5 and word7", [](int i) { return i % 50 == 4; }, {"c3"}, {"c3"}},
    {SearchKind::Keyword,
     "word7 and word5 and wor?5",
     [](int i) { return i % 50 == 4; },
     {"c3"},
     {"c3"}},
    {SearchKind::Keyword, "word5 and word8", [](int) { return false; }},
    {SearchKind::Keyword, "word5 AND word7", [](int) { return false; }},
    {SearchKind::Keyword,
     "\"ord5\"",
     [](int i) { return i % 50 == 4 || i % 50 == 49; },
     {"c3"},
     {"c3"}},
    {SearchKind::Name, "aw7", [](int i) { return HasNumber(i, "7"); }},
    {SearchKind::Name, "'draw1'", [](int i) { return HasNumber(i, "1"); }},
    {SearchKind::Code, "Draw77", [](int i) { return i == 77; }},
    {SearchKind::Code, "Draw77 draw78", [](int i) { return i == 77 || i == 78; }},
    {SearchKind::Code, "Sub and Draw3?", [](int i) { return HasNumber(i, "3"); }},
    {SearchKind::Code, "Draw5 and not Draw5[0-9]", [](int i) { return i == 5; }},
    {SearchKind::Code, "plicit", [](int) { return true; }},
    {SearchKind::Code, "\"b Draw77()\"", [](int i) { return i == 77; }},
    {SearchKind::Comment, "draws 7", [](int i) { return i % 3 != 0 && HasNumber(i, "7"); }},
    {SearchKind::Comment, "S _7", [](int i) { return i % 3 != 0 && i >= 10 && i % 10 == 7; }},
    {SearchKind::Author, "Ann", [](int i) { return i % 2 == 0; }, {"a2", "c2"}, {"c2"}},
    {SearchKind::Author, "b*", [](int i) { return i % 2 == 1; }},
    {SearchKind::Author, "vera lou", [](int i) { return i == 7; }},
    {SearchKind::Date, "", [](int i) { return i % 3 == 0; }, {"a2", "c2"}, {"c2"}},
};

int ClassLanguage(int classID) {
    return classID >= 3 && classID <= 5 ? classID + 3 : 1;
}

bool HasLanguage(int i, int language) {
    const bool hasOwn = i != 25;
    const bool isOwn = hasOwn && 1 + i % 11 == language;
    const bool isClasss = ClassLanguage(2 + i / 20) == language;
    if (language == 6 || language == 9) return isClasss && hasOwn;
    if (language == 7 || language == 8) return isClasss || isOwn;
    return isClasss;
}

using SearchMeaning = SearchFixture;

TEST_F(SearchMeaning, OfEveryKindIsWhatItSays) {
    for (const Meaning& test : kMeanings) {
        EXPECT_EQ(Find({.kind = test.kind, .entry = test.entry, .dates = kYear2001}),
                  Procedures(test.holds, test.above))
            << static_cast<int>(test.kind) << ": " << test.entry;
    }
}

TEST_F(SearchMeaning, OfEveryKindWithALanguageIsItsPartOfThatLanguage) {
    for (const Meaning& test : kMeanings) {
        for (const std::int16_t language : std::initializer_list<std::int16_t>{1, 6, 7, 8, 9, 11}) {
            Keys expected =
                Procedures([&](int i) { return test.holds(i) && HasLanguage(i, language); });
            for (const std::string& key : test.classesOfTheirLanguage) {
                if (ClassLanguage(std::stoi(key.substr(1))) == language) expected.insert(key);
            }
            EXPECT_EQ(Find({.kind = test.kind,
                            .entry = test.entry,
                            .isLanguageChecked = true,
                            .languageID = language,
                            .dates = kYear2001}),
                      expected)
                << static_cast<int>(test.kind) << ": " << test.entry << " in " << language;
        }
    }
}

TEST_F(SearchMeaning, OfALaterAuthorNameFindsOwnersOfOtherLevelsWithTheSameNumber) {
    const auto isEven = [](int i) { return i % 2 == 0; };
    EXPECT_EQ(Find(SearchKind::Author, "Lee"), Procedures(isEven, {"a2", "c2", "c4", "c6"}))
        << "the procedures 4 and 6 are hers, and the classes 4 and 6 come with them";
    EXPECT_EQ(Find({.kind = SearchKind::Author,
                    .entry = "Lee",
                    .isLanguageChecked = true,
                    .languageID = 7}),
              Procedures([&](int i) { return isEven(i) && HasLanguage(i, 7); }))
        << "with a language there are brackets";
}

TEST_F(SearchMeaning, OfDatesIncludesBothEndsAndNothingWhenTheyAreReversed) {
    const auto find = [this](DateTime from, DateTime to) {
        return Find({.kind = SearchKind::Date, .dates = {from, to}});
    };
    const Keys onThatDay = Procedures([](int i) { return i % 3 == 0; }, {"a2", "c2"});
    EXPECT_EQ(find({2001, 3, 14}, {2001, 3, 14}), onThatDay);
    EXPECT_EQ(find({2001, 3, 15}, {2001, 3, 13}), Keys());
    EXPECT_EQ(find({2001, 3, 15}, {2002, 11, 30}), Keys());
}

TEST_F(SearchMeaning, OfAnIndexWordIsThatWordOnEveryLevel) {
    const auto find = [this](std::string_view word) {
        TopicList list;
        ListTopicsOfWord(db_, word, list);
        return KeysOf(list);
    };
    EXPECT_EQ(find("word7"), Procedures([](int i) { return i % 50 == 4 || i % 50 == 6; }, {"c3"}));
    EXPECT_EQ(find("WORD1"), Procedures([](int i) { return i % 50 == 0; }, {"a2"}));
    EXPECT_EQ(find("word*"), Keys());
    EXPECT_EQ(find("don't"), Keys());
    ExecuteSQL(db_, "UPDATE tblSearchWord SET searchWord = 'don''t' WHERE searchWordID = 9");
    EXPECT_EQ(find("don't"), Procedures([](int i) { return i % 50 == 8; }));
}

TEST_F(SearchMeaning, OfKeywordsGoesUpToThirtyWordsJoinedByAnd) {
    std::string entry = "word7";
    for (int word = 2; word <= 29; ++word)
        entry += " and word5";
    EXPECT_EQ(Find(SearchKind::Keyword, entry),
              Procedures([](int i) { return i % 50 == 4; }, {"c3"}));
}

}  // namespace
}  // namespace snippetarium::test
