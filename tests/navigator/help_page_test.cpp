#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "navigator/help.h"

namespace snippetarium::test {
namespace {

std::string ReadHelpPage() {
    std::ifstream page(SNIPPETARIUM_SOURCES "/help/default.htm");
    return {std::istreambuf_iterator<char>(page), {}};
}

TEST(HelpPage, HasTheAnchorOfEveryWindowThatIsThere) {
    const std::string page = ReadHelpPage();
    std::size_t windows = 0;
    for (const HelpAnchor& help : HelpAnchors()) {
        const std::string form = SNIPPETARIUM_SOURCES "/src/forms/" + std::string(help.form);
        if (!std::filesystem::exists(form + ".ui")) continue;
        ++windows;
        const std::string anchor = "<a name=\"" + std::string(help.anchor) + "\">";
        EXPECT_NE(page.find(anchor), std::string::npos) << help.form << ": " << help.anchor;
    }
    EXPECT_GT(windows, 20U);
}

TEST(HelpPage, HasEachAnchorOnceAndAllThatItLeadsToAndShows) {
    const std::string page = ReadHelpPage();
    std::set<std::string> anchors;
    const auto valuesAfter = [&page](const std::string& start, const auto& take) {
        for (std::size_t at = page.find(start); at != std::string::npos;
             at = page.find(start, at + 1)) {
            const std::size_t begin = at + start.size();
            take(page.substr(begin, page.find('"', begin) - begin));
        }
    };
    valuesAfter("<a name=\"", [&](const std::string& anchor) {
        EXPECT_TRUE(anchors.insert(anchor).second) << anchor;
    });
    valuesAfter("<a href=\"#", [&](const std::string& target) {
        EXPECT_TRUE(anchors.contains(target)) << target;
    });
    // The pictures lie beside the page, with which they are copied.
    std::set<std::string> pictures;
    valuesAfter("<img src=\"", [&](const std::string& picture) { pictures.insert(picture); });
    for (const auto& file : std::filesystem::directory_iterator(SNIPPETARIUM_SOURCES "/help")) {
        const std::string name = file.path().filename().string();
        EXPECT_EQ(pictures.erase(name), name.ends_with(".png") ? 1U : 0U) << name;
    }
    EXPECT_TRUE(pictures.empty()) << *pictures.begin() << " is missing";
}

}  // namespace
}  // namespace snippetarium::test
