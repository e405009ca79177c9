#include "navigator/missing_catalogue.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "store/database.h"
#include "tests/fakes.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {
namespace {

TEST(MissingCatalogue, IsMadeOnlyInAFolderThatIsThereAndWhereTheUserWantsIt) {
    const TemporaryFolder folder;
    const std::string file = folder.File(kCatalogueFileName);
    FakeHost host;
    EXPECT_TRUE(OfferCatalogue(host.messages, folder.File("mistyped")));
    EXPECT_TRUE(host.messages.shown.empty()) << "opening it tells what is wrong";

    host.messages.Expect(StandardAnswer::No);
    EXPECT_FALSE(OfferCatalogue(host.messages, folder.Path()));
    EXPECT_NE(host.messages.shown.at(0).text.find(folder.Path()), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(file));

    host.messages.Expect(StandardAnswer::Yes);
    EXPECT_TRUE(OfferCatalogue(host.messages, folder.Path()));
    host.messages.shown.clear();
    Database db(host.host, CatalogueProviders(), folder.Path());
    OpenCatalogue(db);
    EXPECT_TRUE(db.GetConnection().IsOpen());
    CloseCatalogue(db);
    EXPECT_TRUE(OfferCatalogue(host.messages, folder.Path())) << "there is one now";
    EXPECT_TRUE(host.messages.shown.empty());
}

}  // namespace
}  // namespace snippetarium::test
