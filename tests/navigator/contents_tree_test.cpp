#include "navigator/contents_tree.h"

#include <algorithm>
#include <map>
#include <random>

#include "tests/navigator/contents_mirror.h"

namespace snippetarium::test {
namespace {

ContentsRow Application(std::int32_t id, std::string text, std::int32_t children = 0) {
    return {.ids = {.appID = id}, .text = std::move(text), .childCount = children};
}

TEST(ContentsTree, HasAPlaceholderBelowWhatWasNotExpanded) {
    ContentsTree tree;
    const ContentsMirror mirror(tree);
    tree.Append(nullptr, {Application(2, "Two", 3), Application(3, "Three")});
    EXPECT_EQ(mirror.Keys(), "a2(ka2) a3");
    ContentsItem& two = tree.Top(0);
    EXPECT_TRUE(two.IsUnloaded());
    EXPECT_EQ(two.Child(0).Text(), "Loading...");
    EXPECT_EQ(two.Child(0).Kind(), NodeKind::Placeholder);
    tree.RemovePlaceholder(two);
    tree.Append(&two, {{.ids = {2, 7, 0}, .text = "Seven", .childCount = 1}});
    EXPECT_EQ(mirror.Keys(), "a2(a2f7(ka2f7)) a3");
    EXPECT_EQ(tree.Find({2, 7, 0}), &two.Child(0));
    EXPECT_EQ(tree.Find({2, 7, 1}), nullptr);
    EXPECT_EQ(tree.Find({2, 8, 0}), nullptr);
    EXPECT_EQ(tree.Find({}), nullptr);
    tree.Remove(two);
    EXPECT_EQ(mirror.Keys(), "a3");
    mirror.ExpectSame();
}

/// Merges random lists into one tree: the tree then has the list, what stayed kept its address and
/// what is below it, and the view was told right.
TEST(ContentsTree, MergesAnyListIntoAnyOther) {
    std::mt19937 random(5);
    ContentsTree tree;
    const ContentsMirror mirror(tree);
    for (int round = 0; round < 2'000; ++round) {
        std::vector<std::int32_t> ids = {1, 2, 3, 4, 5, 6, 7, 8};
        std::ranges::shuffle(ids, random);
        ids.resize(random() % (ids.size() + 1));
        if (round % 3 != 0) std::ranges::sort(ids);
        std::vector<ContentsRow> rows;
        std::string wanted;
        std::map<std::int32_t, const ContentsItem*> before;
        for (const std::int32_t id : ids) {
            const ContentsItem* const item = tree.Find({.appID = id});
            const bool hasChild = random() % 2 == 0;
            rows.push_back(Application(id, std::string(1, "xyz"[random() % 3]), hasChild ? 1 : 0));
            if (item) before[id] = item;
            wanted += (wanted.empty() ? "a" : " a") + std::to_string(id);
            if (!hasChild) continue;
            const bool isLoaded = item && item->ChildCount() > 0 && !item->IsUnloaded();
            const std::string key = "a" + std::to_string(id);
            wanted += isLoaded ? "(" + key + "f9)" : "(k" + key + ")";
        }
        tree.Merge(nullptr, rows);
        ASSERT_EQ(mirror.Keys(), wanted) << "round " << round;
        for (const auto& [id, item] : before)
            ASSERT_EQ(tree.Find({.appID = id}), item) << "round " << round;
        mirror.ExpectSame();
        if (ids.empty() || !tree.Top(0).IsUnloaded()) continue;
        tree.RemovePlaceholder(tree.Top(0));
        tree.Append(&tree.Top(0), {{.ids = {tree.Top(0).IDs().appID, 9, 0}, .text = "nine"}});
    }
}

}  // namespace
}  // namespace snippetarium::test
