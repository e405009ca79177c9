#include "support/mod_fso.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/fake_file_system.h"
#include "tests/fakes.h"

namespace snippetarium {
namespace {

using test::BoxKind;
using test::FakeFileSystem;
using test::FakeMessageBoxes;
using test::ShownBox;

class ModFsoTest : public ::testing::Test {
  protected:
    ModFsoTest() { files_.AddFile("/src/sub/x.frm", "1\r\n2\r\n3"); }

    FakeFileSystem files_;
    FakeMessageBoxes messages_;
};

TEST_F(ModFsoTest, ExistenceIsAskedForTheKindSelected) {
    struct Case {
        const char* path;
        bool isDrive;
        bool isFolder;
        bool isFile;
    };
    constexpr Case kCases[] = {
        {"/", true, true, false},
        {"/src\\sub", false, true, false},
        {"/src\\sub\\x.frm", false, false, true},
        {"/src\\no", false, false, false},
    };
    for (const Case& row : kCases) {
        EXPECT_EQ(FSObjectExists(files_, messages_, row.path, 1), row.isDrive) << row.path;
        EXPECT_EQ(FSObjectExists(files_, messages_, row.path, 2), row.isFolder) << row.path;
        EXPECT_EQ(FSObjectExists(files_, messages_, row.path, 4), row.isFile) << row.path;
    }
    EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(ModFsoTest, EachSelectorGivesItsPartOfThePath) {
    constexpr std::pair<std::int16_t, const char*> kParts[] = {
        {1, "C:"}, {2, "C:\\src"}, {4, "x.frm"}, {8, "x"}, {16, "frm"}};
    for (const auto& [selector, part] : kParts) {
        EXPECT_EQ(GetFromPath(messages_, "C:\\src\\x.frm", selector), part);
    }
    EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(ModFsoTest, StreamsAreOpenedForReadingAndAppending) {
    auto reading = OpenTextFile(files_, messages_, "/src\\sub\\x.frm", 1);
    ASSERT_TRUE(reading.has_value());
    EXPECT_EQ(reading->ReadLine(), "1");
    auto appending = OpenTextFile(files_, messages_, "/src\\sub\\new.frm", 8);
    ASSERT_TRUE(appending.has_value());
    appending->WriteLine("a");
    appending->Close();
    EXPECT_EQ(files_.ReadFile("/src/sub/new.frm"), "a\r\n");
    EXPECT_TRUE(messages_.shown.empty());
}

TEST_F(ModFsoTest, AWrongSelectorIsToldToTheUserAndNothingIsDone) {
    struct Wrapper {
        std::function<void(std::int16_t)> call;
        std::vector<std::int16_t> accepted;
        std::string naming;
        std::string values;
    };
    const Wrapper wrappers[] = {
        {[&](std::int16_t value) {
             EXPECT_FALSE(FSObjectExists(files_, messages_, "/src", value));
         },
         {1, 2, 4},
         "the argument 'drive1folder2file4' for the function 'FSObjectExists'",
         "1: drive\r\n2: folder\r\n4: file"},
        {[&](std::int16_t value) { EXPECT_EQ(GetFromPath(messages_, "C:\\x.c", value), ""); },
         {1, 2, 4, 8, 16},
         "the argument 'Drive1Parent2File4Base8Ext16' for the function 'GetFromPath'",
         "1: drive name\r\n2: parent folder name\r\n4: file name\r\n"
         "8: file name without extension\r\n16: file extension"},
        {[&](std::int16_t value) {
             EXPECT_FALSE(OpenTextFile(files_, messages_, "/src/sub/x.frm", value).has_value());
         },
         {1, 8},
         "the argument 'read1Append8' for the function 'OpenTextFile'",
         "1: for reading\r\n8: for appending"},
    };
    for (const Wrapper& wrapper : wrappers) {
        for (std::int16_t value = -2; value <= 33; ++value) {
            const auto& accepted = wrapper.accepted;
            if (std::find(accepted.begin(), accepted.end(), value) != accepted.end()) continue;
            messages_.shown.clear();
            wrapper.call(value);
            ASSERT_EQ(messages_.shown.size(), 1U) << wrapper.naming << value;
            const ShownBox& box = messages_.shown.front();
            EXPECT_EQ(box.kind, BoxKind::Error);
            EXPECT_EQ(box.title, "Snippetarium Error Message");
            EXPECT_NE(box.text.find("'" + std::to_string(value) + "' as " + wrapper.naming),
                      std::string::npos)
                << box.text;
            EXPECT_NE(box.text.find("\r\n\r\n" + wrapper.values + "\r\n\r\n"), std::string::npos)
                << box.text;
        }
    }
}

TEST_F(ModFsoTest, SkippingStopsAtTheEndAndCountingGivesWhatIsLeft) {
    constexpr std::pair<std::size_t, std::size_t> kSkippedAndLeft[] = {
        {0, 3}, {1, 2}, {3, 0}, {4, 0}};
    for (const auto& [skipped, left] : kSkippedAndLeft) {
        auto stream = OpenTextFile(files_, messages_, "/src/sub/x.frm", 1);
        ASSERT_TRUE(stream.has_value());
        SkipLines(*stream, skipped);
        EXPECT_EQ(CountLines(*stream), left);
        EXPECT_TRUE(stream->AtEnd());
    }
}

}  // namespace
}  // namespace snippetarium
