#include "store/program_folder.h"

#include <gtest/gtest.h>

namespace snippetarium::test {
namespace {

TEST(ProgramFolder, IsTheOneNamedElseTheProgramsOwnElseTheUsersData) {
    const struct {
        ProgramFolderSources sources;
        bool isWritable;
        std::string_view path;
        std::string_view helpPath;
        bool isUserData;
    } cases[] = {
        {{"/option", "/environment", "/bin", "/data"}, true, "/option", "/option", false},
        {{"", "/environment", "/bin", "/data"}, true, "/environment", "/environment", false},
        {{"/option", "", "/bin", "/data"}, false, "/option", "/option", false},
        {{"", "", "/bin", "/data"}, true, "/bin", "/bin", false},
        {{"", "", "/bin", "/data"}, false, "/data/snippetarium", "/bin", true},
        {{"", "", "/bin", ""}, false, "/bin", "/bin", false},
    };
    for (const auto& test : cases) {
        const ProgramFolder folder =
            ChooseProgramFolder(test.sources, [&](const std::string& path) {
                EXPECT_EQ(path, "/bin") << "a folder that the user names is never judged";
                return test.isWritable;
            });
        EXPECT_EQ(folder.path, test.path);
        EXPECT_EQ(folder.helpPath, test.helpPath);
        EXPECT_EQ(folder.isUserData, test.isUserData);
    }
}

}  // namespace
}  // namespace snippetarium::test
