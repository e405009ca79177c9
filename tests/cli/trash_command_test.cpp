#include "store/deletion.h"
#include "store/trash.h"
#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

class TrashCommandTest : public CommandTest {
  protected:
    TrashCommandTest() {
        MakeSample();
        tree_ = Run({"tree"}).output;
        Change([](Database& db) {
            // Now, or the entries would be years old for the program, which goes by the true clock.
            static_cast<FakeClock&>(db.GetHost().clock).now = std::chrono::system_clock::now();
            DeleteClass(db, 3);
            DeleteApplication(db, 2);
        });
    }
    nlohmann::ordered_json Entries() const {
        return DocumentOf(Run({"--json", "trash", "list"}))["entries"];
    }

    std::string tree_;
};

TEST_F(TrashCommandTest, ListsWhatWasDeletedAndBringsItBack) {
    EXPECT_NE(Run({"tree"}).output, tree_);
    const auto entries = Entries();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0]["trashID"], 2);
    EXPECT_EQ(entries[0]["kind"], "application");
    EXPECT_EQ(entries[0]["class"], nullptr);
    EXPECT_EQ(entries[1]["kind"], "class");
    EXPECT_EQ(entries[1]["application"], entries[0]["name"]);
    EXPECT_GT(entries[1]["procedures"], 0);
    EXPECT_LT(entries[1]["deletedOn"], entries[1]["keptUntil"]);
    const std::string list = Run({"trash"}).output;
    EXPECT_LT(list.find(entries[0]["deletedOn"]), list.find(entries[1]["name"]));

    const CommandResult restored = Run({"trash", "restore", "2"});
    EXPECT_EQ(restored.output,
              "Restored: application '" + entries[0]["name"].get<std::string>() + "'  (a2)\n");
    const auto document = DocumentOf(Run({"--json", "trash", "restore", "1"}));
    EXPECT_EQ(document["id"], 3);
    EXPECT_EQ(document["key"], "a2f3");
    EXPECT_EQ(document["application"], entries[0]["name"]);
    EXPECT_EQ(document["remarks"].size(), 0U);
    EXPECT_EQ(Run({"tree"}).output, tree_);
    EXPECT_EQ(Run({"trash"}).output, "The trash is empty.\n");
}

TEST_F(TrashCommandTest, SaysWhatBecameOfAnEntryThatCouldNotGoBackWhereItWas) {
    const CommandResult result = Run({"trash", "restore", "1"});
    EXPECT_EQ(result.status, kDone) << result.error;
    EXPECT_NE(result.output.find(" has been deleted. One of this name was made for it"),
              std::string::npos)
        << result.output;
    EXPECT_EQ(Run({"trash", "restore", "2"}).status, kDone);
    EXPECT_EQ(Run({"tree"}).output, tree_);
}

TEST_F(TrashCommandTest, EmptiesTheTrashOnlyWithConsent) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"trash", "empty"}, {"--no", "trash", "empty"}}) {
        EXPECT_EQ(Run(words).status, kFailed);
        EXPECT_EQ(Entries().size(), 2U);
    }
    EXPECT_EQ(Run({"--yes", "trash", "empty", "--older-than", "1"}).output,
              "Removed from the trash: 0\n");
    EXPECT_EQ(DocumentOf(Run({"--json", "--yes", "trash", "empty"}))["removed"], 2);
    EXPECT_EQ(Entries().size(), 0U);
}

TEST_F(TrashCommandTest, RefusesWhatMakesNoSense) {
    for (const std::vector<std::string>& words :
         std::initializer_list<std::vector<std::string>>{{"trash", "restore"},
                                                         {"trash", "restore", "x"},
                                                         {"trash", "restore", "0"},
                                                         {"trash", "list", "1"},
                                                         {"trash", "list", "--older-than", "1"},
                                                         {"trash", "empty", "1"},
                                                         {"trash", "empty", "--older-than", "-1"},
                                                         {"trash", "burn"}}) {
        EXPECT_EQ(Run(words).status, kWrongUsage) << words.back();
    }
    const CommandResult missing = Run({"trash", "restore", "9"});
    EXPECT_EQ(missing.status, kFailed);
    EXPECT_NE(missing.error.find("no entry 9 in the trash"), std::string::npos) << missing.error;
    EXPECT_EQ(Entries().size(), 2U);
}

}  // namespace
}  // namespace snippetarium::test
