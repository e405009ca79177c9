#include "search/marked_words.h"

#include <gtest/gtest.h>

namespace snippetarium::test {
namespace {

using Words = std::vector<std::string>;

TEST(MarkedWordsTest, AreTheWordsAndPhrasesThatAPageWasFoundBy) {
    struct Case {
        SearchKind kind;
        const char* entry;
        Words words;
    };
    // clang-format off
    const Case cases[] = {
        {SearchKind::Code,    "grid view",                    {"grid", "view"}},
        {SearchKind::Code,    "(grid or  View)and(draw)",     {"grid", "View", "draw"}},
        {SearchKind::Code,    "grid and not old view",        {"grid", "view"}},
        {SearchKind::Code,    "not \"old view\" or x",        {"x"}},
        {SearchKind::Code,    "a \"grid view\" 'b c",         {"a", "grid view", "b c"}},
        {SearchKind::Keyword, "grid NOT x OR grid",           {"grid"}},
        {SearchKind::Code,    "pa%inter_ % [abc]",            {"inter", "abc"}},
        {SearchKind::Name,    " \"draw a grid\" ",            {"draw a grid"}},
        {SearchKind::Comment, "not and",                      {"not and"}},
        {SearchKind::Author,  "'Ann Lee'",                    {"Ann Lee"}},
        {SearchKind::Date,    "grid",                         {}},
        {SearchKind::Code,    " ( ) \"",                      {}},
    };
    // clang-format on
    for (const Case& row : cases)
        EXPECT_EQ(MarkedWords({.kind = row.kind, .entry = row.entry}), row.words) << row.entry;
}

}  // namespace
}  // namespace snippetarium::test
