#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/store/delivered_catalogue.h"

namespace snippetarium::test {
namespace {

/// The exit status of the program for a file.
int MakeCatalogue(const std::string& path) {
    const std::string command =
        "'" SNIPPETARIUM_MAKE_CATALOGUE "' '" + path + "' 2>'" + path + ".messages'";
    const int status = std::system(command.c_str());
    return status == -1 ? -1 : status / 256;
}

std::string ApplicationNames(const std::string& path) {
    Connection connection(CatalogueProviders());
    connection.SetConnectionString("Provider=" + std::string(kCatalogueProvider) +
                                   ";Data Source=" + path);
    connection.Open();
    std::string names;
    for (const std::string& row :
         DeliveredCatalogue::AllRows(connection.Execute("SELECT appName FROM tblApplication"))) {
        names += row + ";";
    }
    return names;
}

TEST(MakeCatalogue, WritesADeliveredCatalogueAlsoOverAnotherOne) {
    const TemporaryFolder folder;
    const std::string path = folder.File("new.mde");
    ASSERT_EQ(MakeCatalogue(path), 0) << ReadBytes(path + ".messages");
    EXPECT_EQ(ApplicationNames(path), "Application Undefined;");

    WriteBytes(path, "something else");
    WriteBytes(path + ".new", "left by a run that was killed");
    WriteBytes(path + "-wal", "of something else");
    ASSERT_EQ(MakeCatalogue(path), 0) << ReadBytes(path + ".messages");
    EXPECT_EQ(ApplicationNames(path), "Application Undefined;");
    EXPECT_FALSE(std::filesystem::exists(path + ".new"));
}

TEST(MakeCatalogue, LeavesACatalogueThatIsOpenAlone) {
    DeliveredCatalogue catalogue;
    catalogue.Act("INSERT INTO tblApplication(appName) VALUES('Mine');");
    EXPECT_EQ(MakeCatalogue(catalogue.Path()), 1);
    EXPECT_NE(ReadBytes(catalogue.Path() + ".messages").find("open"), std::string::npos);
    EXPECT_EQ(ApplicationNames(catalogue.Path()), "Application Undefined;Mine;");
}

TEST(MakeCatalogue, SaysWhereItCouldNotWrite) {
    const TemporaryFolder folder;
    const std::string command = "'" SNIPPETARIUM_MAKE_CATALOGUE "' '" +
                                folder.File("no such folder/new.mde") + "' 2>'" +
                                folder.File("messages") + "'";
    EXPECT_NE(std::system(command.c_str()), 0);
    EXPECT_FALSE(ReadBytes(folder.File("messages")).empty());
}

}  // namespace
}  // namespace snippetarium::test
