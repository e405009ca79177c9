#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "engine/create_database.h"
#include "store/catalogue_content.h"
#include "store/database.h"
#include "tests/fakes.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {

/// A test on a new delivered catalogue in a folder of its own. Every box that it did not look for
/// and take away fails it.
class CatalogueFixture : public ::testing::Test {
  protected:
    CatalogueFixture() { CreateDatabase(folder_.File(kCatalogueFileName), CreationScript()); }

    void TearDown() override {
        db_.Close();
        for (const ShownBox& box : host_.messages.shown) {
            ADD_FAILURE() << "unexpected box: " << ::testing::PrintToString(box);
        }
    }

    /// The one box that was shown since the last call; the test answers for it.
    ShownBox TakeBox() {
        if (host_.messages.shown.empty()) {
            ADD_FAILURE() << "no box was shown";
            return {};
        }
        const ShownBox box = host_.messages.shown.front();
        host_.messages.shown.erase(host_.messages.shown.begin());
        return box;
    }
    std::string CataloguePath() const { return folder_.File(kCatalogueFileName); }

    TemporaryFolder folder_;
    FakeHost host_;
    Database db_{host_.host, CatalogueProviders(), folder_.Path()};
};

/// As CatalogueFixture, opened.
class OpenCatalogueFixture : public CatalogueFixture {
  protected:
    OpenCatalogueFixture() { OpenCatalogue(db_); }
};

}  // namespace snippetarium::test
