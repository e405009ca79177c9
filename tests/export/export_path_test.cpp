#include "export/export_path.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/disk_file_system.h"
#include "support/error.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {
namespace {

namespace fs = std::filesystem;

class ExportPathTest : public ::testing::Test {
  protected:
    ExportPathTest() {
        fs::create_directories(disk_.File("out/sub"));
        fs::create_directory(disk_.File("private"));
    }
    std::string Destination() const { return disk_.File("out"); }
    ClassDestination Target(std::string_view storedPath) const {
        return TargetBelow(files_, Destination(), storedPath);
    }

    TemporaryFolder disk_;
    DiskFileSystem files_;
};

TEST_F(ExportPathTest, KeepsEveryPathBelowTheDestination) {
    for (const std::string path :
         {"Form1.frm", "sub\\Form1.frm", "sub/Form1.frm", "new\\deep\\er\\x.c", ".\\x.c",
          "sub\\\\x.c", "...", "..x", "x..", "..\x20\\x.c", ".hidden", "a b\\c:d.c"}) {
        const ClassDestination target = Target(path);
        EXPECT_EQ(target.refusal, "") << path;
        EXPECT_TRUE(files_.RealPath(target.path).starts_with(files_.RealPath(Destination()) + "/"))
            << target.path;
    }
    EXPECT_EQ(files_.RealPath(Target("sub\\Form1.frm").path),
              files_.RealPath(Destination()) + "/sub/Form1.frm");
}

TEST_F(ExportPathTest, RefusesWhatLeadsOut) {
    using namespace std::string_literals;
    const struct {
        std::string path;
        std::string_view refusal;
    } cases[] = {
        {"/etc/passwd", "leads out of the destination folder"},
        {"\\x.c", "leads out of the destination folder"},
        {"\\\\server\\share\\x.c", "leads out of the destination folder"},
        {"//server/share/x.c", "leads out of the destination folder"},
        {"C:\\x.c", "leads out of the destination folder"},
        {"c:/x.c", "leads out of the destination folder"},
        {"C:x.c", "leads out of the destination folder"},
        {"..\\x.c", "leads out of the destination folder"},
        {"sub\\..\\..\\x.c", "leads out of the destination folder"},
        {"sub/../x.c", "leads out of the destination folder"},
        {"sub\\..", "leads out of the destination folder"},
        {"..", "leads out of the destination folder"},
        {"", "is not the path of a file"},
        {".", "is not the path of a file"},
        {"sub\\", "is not the path of a file"},
        {"sub\\.", "is not the path of a file"},
        {"a\0b"s, "has a name that no file can have"},
        {std::string(256, 'n'), "has a name that no file can have"},
        {std::string(256, 'n') + "\\x.c", "has a name that no file can have"},
    };
    for (const auto& [path, refusal] : cases) {
        const ClassDestination target = Target(path);
        EXPECT_EQ(target.refusal, refusal) << path;
        EXPECT_EQ(target.path, "");
    }
}

TEST_F(ExportPathTest, FollowsLinksAndRefusesThoseThatLeadOut) {
    fs::create_symlink(disk_.File("private"), disk_.File("out/away"));
    fs::create_symlink("../../private/x.c", disk_.File("out/sub/file.c"));
    fs::create_symlink("../private/not-yet", disk_.File("out/dangling"));
    fs::create_symlink("../outside", disk_.File("out/sibling"));
    fs::create_symlink("sub", disk_.File("out/within"));
    fs::create_directory(disk_.File("outside"));  // its name begins like the destination's
    fs::create_symlink("circle", disk_.File("out/circle"));
    for (const std::string path : {"away\\x.c", "away\\deep\\x.c", "sub\\file.c", "dangling",
                                   "dangling\\x.c", "sibling\\x.c", "within\\file.c"}) {
        EXPECT_EQ(Target(path).refusal, "leads out of the destination folder by a link") << path;
    }
    EXPECT_EQ(Target("within\\x.c").refusal, "");
    EXPECT_THROW(Target("circle\\x.c"), Error);

    // The destination itself is the user's choice, link or not.
    fs::create_symlink("out", disk_.File("shortcut"));
    EXPECT_EQ(TargetBelow(files_, disk_.File("shortcut"), "sub\\x.c").refusal, "");
    EXPECT_EQ(TargetBelow(files_, disk_.File("shortcut/.."), "out\\x.c").refusal, "");
    EXPECT_EQ(TargetBelow(files_, "/", "x.c").refusal, "");
}

TEST_F(ExportPathTest, KnowsTheSamePlaceUnderItsNames) {
    fs::create_symlink("out", disk_.File("shortcut"));
    const std::string out = disk_.File("out");
    for (const std::string& name :
         {out, out + "/", out + "\\", out + "/sub/..", disk_.File("shortcut")}) {
        EXPECT_TRUE(IsSamePlace(files_, name, out)) << name;
    }
    for (const std::string& name :
         {disk_.File("private"), out + "/sub", disk_.File("OUT"), std::string()}) {
        EXPECT_FALSE(IsSamePlace(files_, name, out)) << name;
    }
    EXPECT_FALSE(IsSamePlace(files_, "", ""));
}

TEST_F(ExportPathTest, ProtectsTheCataloguesOwnFiles) {
    fs::create_symlink(disk_.File("private"), disk_.File("out/away"));
    const std::string folder = disk_.File("private");
    for (const std::string_view name :
         {"private/QRT_SN.mde", "private\\QRT_SN.mde-wal", "out/away/QRT_SN.mde",
          "private/QRT_SN.lock", "private/Q1R1T_SN1.mde", "out/../private/QRT_SN.mde"}) {
        EXPECT_THROW(RefuseCatalogueFile(files_, folder, disk_.File(name)), Error) << name;
    }
    for (const std::string_view name :
         {"out/QRT_SN.mde", "private/x.c", "private/sub/QRT_SN.mde"}) {
        EXPECT_NO_THROW(RefuseCatalogueFile(files_, folder, disk_.File(name))) << name;
    }
}

}  // namespace
}  // namespace snippetarium::test
