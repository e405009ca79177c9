#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "navigator/contents_tree.h"

namespace snippetarium::test {

/// A view as an item model feeds it: it knows the tree only by what the observer is told, and reads
/// what was inserted. Whoever forgets to tell of a change, or tells wrong rows, makes the two
/// differ.
class ContentsMirror final : public ContentsObserver {
  public:
    /// Runs after each insertion, as events do.
    std::function<void()> afterInsert;

    explicit ContentsMirror(ContentsTree& tree) : tree_(tree), root_(WholeTree(tree)) {
        tree_.SetObserver(this);
    }
    ~ContentsMirror() override { tree_.SetObserver(nullptr); }
    ContentsMirror(const ContentsMirror&) = delete;
    ContentsMirror& operator=(const ContentsMirror&) = delete;

    /// The tree as the view has it: "a2(a2f2(ka2f2) a2f3) a3".
    std::string Keys() const { return KeysOf(root_); }
    std::string Texts() const { return TextsOf(root_); }

    void ExpectSame() const {
        const Item tree = WholeTree(tree_);
        EXPECT_EQ(Keys(), KeysOf(tree));
        EXPECT_EQ(Texts(), TextsOf(tree));
    }

    void WillReset() override {}
    void DidReset() override { root_ = WholeTree(tree_); }
    void WillInsert(const ContentsItem* parent, std::size_t first, std::size_t last) override {
        Note(parent, first, last);
        EXPECT_LE(first, Of(parent).children.size());
    }
    void DidInsert() override {
        Item& mirror = Of(parent_);
        for (std::size_t row = first_; row <= last_; ++row) {
            const ContentsItem& item = parent_ ? parent_->Child(row) : tree_.Top(row);
            EXPECT_EQ(item.Row(), row);
            EXPECT_EQ(item.Parent(), parent_);
            auto& children = mirror.children;
            children.insert(children.begin() + static_cast<std::ptrdiff_t>(row),
                            {item.Key(), item.Text(), {}});
            Read(item, children[row]);
        }
        if (afterInsert) afterInsert();
    }
    void WillRemove(const ContentsItem* parent, std::size_t first, std::size_t last) override {
        auto& children = Of(parent).children;
        ASSERT_LT(last, children.size());
        children.erase(children.begin() + static_cast<std::ptrdiff_t>(first),
                       children.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    }
    void DidRemove() override {}
    void WillMove(const ContentsItem* parent, std::size_t from, std::size_t to) override {
        auto& children = Of(parent).children;
        ASSERT_LT(to, from);
        Item moved = std::move(children.at(from));
        children.erase(children.begin() + static_cast<std::ptrdiff_t>(from));
        children.insert(children.begin() + static_cast<std::ptrdiff_t>(to), std::move(moved));
    }
    void DidMove() override {}
    void TextChanged(const ContentsItem& item) override {
        Of(item.Parent()).children.at(item.Row()).text = item.Text();
    }

  private:
    /// A node as the view keeps it.
    struct Item {
        std::string key;
        std::string text;
        std::vector<Item> children;
    };

    static Item WholeTree(const ContentsTree& tree) {
        Item root;
        for (std::size_t row = 0; row < tree.TopCount(); ++row)
            Add(tree.Top(row), root);
        return root;
    }

    void Note(const ContentsItem* parent, std::size_t first, std::size_t last) {
        parent_ = parent;
        first_ = first;
        last_ = last;
    }

    /// By the rows above it, so that a wrong one shows.
    Item& Of(const ContentsItem* item) {
        if (!item) return root_;
        Item& parent = Of(item->Parent());
        EXPECT_EQ(parent.children.at(item->Row()).key, item->Key());
        return parent.children.at(item->Row());
    }

    static void Add(const ContentsItem& item, Item& parent) {
        parent.children.push_back({item.Key(), item.Text(), {}});
        Read(item, parent.children.back());
    }
    static void Read(const ContentsItem& item, Item& mirror) {
        for (std::size_t row = 0; row < item.ChildCount(); ++row)
            Add(item.Child(row), mirror);
    }

    static std::string KeysOf(const Item& item) {
        std::string keys;
        for (const Item& child : item.children) {
            keys += (keys.empty() ? "" : " ") + child.key;
            if (!child.children.empty()) keys += "(" + KeysOf(child) + ")";
        }
        return keys;
    }
    static std::string TextsOf(const Item& item) {
        std::string texts;
        for (const Item& child : item.children)
            texts += child.text + "\n" + TextsOf(child);
        return texts;
    }

    ContentsTree& tree_;
    Item root_;
    const ContentsItem* parent_ = nullptr;
    std::size_t first_ = 0;
    std::size_t last_ = 0;
};

}  // namespace snippetarium::test
