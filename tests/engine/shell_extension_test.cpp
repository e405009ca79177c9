#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>

#include "tests/engine/test_catalogue.h"

namespace snippetarium::test {
namespace {

/// What a command prints, both outputs.
std::string OutputOf(const std::string& command) {
    const auto close = [](FILE* pipe) { pclose(pipe); };
    const std::unique_ptr<FILE, decltype(close)> pipe(popen((command + " 2>&1").c_str(), "r"),
                                                      close);
    std::string output;
    for (int byte = fgetc(pipe.get()); byte != EOF; byte = fgetc(pipe.get())) {
        output += static_cast<char>(byte);
    }
    return output;
}

class ShellExtensionTest : public testing::Test {
  protected:
    void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "the shell cannot load a module that was built under the sanitizers";
#endif
        if (OutputOf("sqlite3 --version").find("3.") != 0) {
            GTEST_SKIP() << "the sqlite3 shell is not installed";
        }
        catalogue_.connection.Close();
    }
    std::string Shell(const std::string& sql, const std::string& options = {}) const {
        return OutputOf("sqlite3 -batch -init /dev/null " + options + " '" + catalogue_.Path() +
                        "' \"" + sql + "\"");
    }
    std::string ShellWithModule(const std::string& sql) const {
        // As a user writes it: without the file's extension.
        const std::string path = CATNC_MODULE;
        return Shell(sql, "-cmd '.load " + path.substr(0, path.rfind('.')) + "'");
    }
    TestCatalogue catalogue_;
};

TEST_F(ShellExtensionTest, TheShellReadsTheCatalogueWithItsOwnComparison) {
    EXPECT_EQ(ShellWithModule("SELECT codeID FROM tblCode WHERE codeName = 'DRAW' ORDER BY codeID"),
              "1\n3\n");
    EXPECT_EQ(ShellWithModule("SELECT codeID FROM tblCode WHERE codeName LIKE '[!d-e]%'"), "2\n");
    EXPECT_EQ(ShellWithModule("SELECT 'ÄRGER' = 'ärger' COLLATE CATNC"), "1\n");
    EXPECT_EQ(ShellWithModule("PRAGMA integrity_check"), "ok\n");
    EXPECT_NE(ShellWithModule(".dump").find("INSERT INTO tblCode VALUES(1,'Draw','Sub Draw()',1);"),
              std::string::npos);
    EXPECT_NE(ShellWithModule("SELECT 1 LIKE '[a'").find("Error"), std::string::npos);
}

TEST_F(ShellExtensionTest, WithoutTheModuleTheShellFailsRatherThanSpoilAnIndex) {
    EXPECT_NE(Shell("UPDATE tblCode SET codeName = 'x'").find("no such collation sequence: CATNC"),
              std::string::npos);
    EXPECT_EQ(Shell("SELECT codeName FROM tblCode WHERE codeID = 2"), "Fill\n");
}

}  // namespace
}  // namespace snippetarium::test
