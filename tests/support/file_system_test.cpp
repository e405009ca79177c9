#include "support/file_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "support/disk_file_system.h"
#include "support/error.h"
#include "support/paths.h"
#include "tests/fake_file_system.h"
#include "tests/temporary_folder.h"

// What holds for every file system: the real one, and the fake that other tests rely on.

namespace snippetarium {
namespace {

using test::FakeFileSystem;
using test::TemporaryFolder;

class OnDisk {
  public:
    DiskFileSystem files;
    std::string Root() const { return folder_.Path(); }

  private:
    TemporaryFolder folder_;
};

class InMemory {
  public:
    InMemory() { files.AddFolder(Root()); }
    FakeFileSystem files;
    std::string Root() const { return "/home/ann"; }
};

template <typename World>
class FileSystemTest : public ::testing::Test {
  protected:
    std::string Path(std::string_view entry) const { return JoinPath(world_.Root(), entry); }
    FileSystem& Files() { return world_.files; }

  private:
    World world_;
};

using Worlds = ::testing::Types<OnDisk, InMemory>;
TYPED_TEST_SUITE(FileSystemTest, Worlds);

TYPED_TEST(FileSystemTest, WritesAndReadsBackUnderEitherSeparator) {
    using namespace std::string_literals;
    this->Files().MakeFolders(this->Path("sub\\deeper"));
    const std::string bytes = "a\r\nb\0\xFF"s;
    this->Files().WriteFile(this->Path("sub\\deeper/x.c"), bytes);
    EXPECT_EQ(this->Files().ReadFile(this->Path("sub/deeper\\x.c")), bytes);
    EXPECT_EQ(this->Files().FileSize(this->Path("sub\\deeper\\x.c")), bytes.size());
}

TYPED_TEST(FileSystemTest, WritingAgainReplacesAppendingAdds) {
    const std::string path = this->Path("x.c");
    this->Files().WriteFile(path, "a long content");
    this->Files().WriteFile(path, "new");
    EXPECT_EQ(this->Files().ReadFile(path), "new");
    this->Files().AppendToFile(path, "er");
    this->Files().AppendToFile(path, "");
    EXPECT_EQ(this->Files().ReadFile(path), "newer");
    this->Files().AppendToFile(this->Path("fresh"), "x");
    EXPECT_EQ(this->Files().ReadFile(this->Path("fresh")), "x");
    this->Files().WriteFile(path, "");
    EXPECT_EQ(this->Files().ReadFile(path), "");
}

TYPED_TEST(FileSystemTest, ExistenceTellsFilesFromFolders) {
    this->Files().MakeFolders(this->Path("sub"));
    this->Files().MakeFolders(this->Path("sub"));
    this->Files().WriteFile(this->Path("x.c"), "");
    EXPECT_TRUE(this->Files().FolderExists(this->Path("sub\\")));
    EXPECT_FALSE(this->Files().FileExists(this->Path("sub")));
    EXPECT_TRUE(this->Files().FileExists(this->Path("x.c")));
    EXPECT_FALSE(this->Files().FolderExists(this->Path("x.c")));
    EXPECT_TRUE(this->Files().DriveExists("/"));
    EXPECT_FALSE(this->Files().DriveExists(this->Path("sub")));
    EXPECT_FALSE(this->Files().DriveExists("C:"));
    for (const std::string& absent : {this->Path("no"), std::string(), std::string("/\0", 2)}) {
        EXPECT_FALSE(this->Files().FileExists(absent));
        EXPECT_FALSE(this->Files().FolderExists(absent));
        EXPECT_FALSE(this->Files().DriveExists(absent));
    }
}

TYPED_TEST(FileSystemTest, CopiesReplaceTheTargetAndLeaveTheSource) {
    this->Files().WriteFile(this->Path("from"), "new");
    this->Files().WriteFile(this->Path("to"), "something old");
    this->Files().CopyFile(this->Path("from"), this->Path("to"));
    EXPECT_EQ(this->Files().ReadFile(this->Path("from")), "new");
    EXPECT_EQ(this->Files().ReadFile(this->Path("to")), "new");
    this->Files().CopyFile(this->Path("to"), this->Path("to"));
    EXPECT_EQ(this->Files().ReadFile(this->Path("to")), "new");
}

TYPED_TEST(FileSystemTest, ListsFilesAndSubfoldersOfOneFolderOnly) {
    this->Files().MakeFolders(this->Path("sub/deeper"));
    this->Files().WriteFile(this->Path("Übung.c"), "");
    this->Files().WriteFile(this->Path("sub/inner.c"), "");
    const FolderListing listing = this->Files().ListFolder(this->Path(""));
    EXPECT_EQ(listing.files, std::vector<std::string>{"Übung.c"});
    EXPECT_EQ(listing.subfolders, std::vector<std::string>{"sub"});
    EXPECT_TRUE(listing.unlisted.empty());

    this->Files().DeleteFile(this->Path("Übung.c"));
    EXPECT_TRUE(this->Files().ListFolder(this->Path("")).files.empty());
}

TYPED_TEST(FileSystemTest, RefusalsCarryTheirNumberAndNameThePath) {
    using namespace error_number;
    FileSystem& files = this->Files();
    files.MakeFolders(this->Path("sub"));
    files.WriteFile(this->Path("x.c"), "old");
    const std::string nul("x\0y", 3);

    struct Refusal {
        std::string entry;
        std::function<void(const std::string&)> action;
        std::int32_t number;
    };
    const auto read = [&](const std::string& path) { files.ReadFile(path); };
    const auto write = [&](const std::string& path) { files.WriteFile(path, "new"); };
    const auto append = [&](const std::string& path) { files.AppendToFile(path, "new"); };
    const auto copyFrom = [&](const std::string& path) { files.CopyFile(path, path + "2"); };
    const auto copyTo = [&](const std::string& path) { files.CopyFile(this->Path("x.c"), path); };
    const auto remove = [&](const std::string& path) { files.DeleteFile(path); };
    const auto list = [&](const std::string& path) { files.ListFolder(path); };
    const auto makeFolders = [&](const std::string& path) { files.MakeFolders(path); };
    const auto size = [&](const std::string& path) { files.FileSize(path); };
    const auto time = [&](const std::string& path) { files.ModificationTime(path); };

    // clang-format off
    const Refusal refusals[] = {
        {"no.c", read, kFileNotFound},
        {"no.c", copyFrom, kFileNotFound},
        {"no.c", remove, kFileNotFound},
        {"no.c", size, kFileNotFound},
        {"no.c", time, kFileNotFound},
        {"no", list, kPathNotFound},
        {"no/x.c", write, kPathNotFound},
        {"no/x.c", append, kPathNotFound},
        {"no/x.c", copyTo, kPathNotFound},
        {"x.c/y.c", write, kPathNotFound},
        {"x.c/y.c", append, kPathNotFound},
        {"x.c", list, kPathNotFound},
        {"x.c/y", makeFolders, kPathNotFound},
        {"x.c", makeFolders, kPathNotFound},
        {"sub", read, kBadFileName},
        {"sub", write, kBadFileName},
        {"sub", append, kBadFileName},
        {"sub", copyTo, kBadFileName},
        {"sub", remove, kBadFileName},
        {nul, read, kBadFileName},
        {nul, write, kBadFileName},
        {nul, append, kBadFileName},
        {nul, remove, kBadFileName},
        {nul, list, kBadFileName},
        {nul, makeFolders, kBadFileName},
        {nul, size, kBadFileName},
    };
    // clang-format on
    for (const Refusal& row : refusals) {
        const std::string path = this->Path(row.entry);
        SCOPED_TRACE(path + " " + std::to_string(&row - refusals));
        try {
            row.action(path);
            ADD_FAILURE() << "was not refused";
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), row.number) << error.Description();
            std::string shown = "'" + ToPlatformPath(path) + "'";
            std::replace(shown.begin(), shown.end(), '\0', '?');
            EXPECT_NE(error.Description().find(shown), std::string::npos) << error.Description();
        }
    }
    EXPECT_EQ(files.ReadFile(this->Path("x.c")), "old");
    EXPECT_THROW(files.WriteFile("", "x"), Error);
}

}  // namespace
}  // namespace snippetarium
