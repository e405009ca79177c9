#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "engine/create_database.h"
#include "forms/fMain.h"
#include "forms/qt_host.h"
#include "store/catalogue_content.h"
#include "store/database.h"
#include "tests/forms/form_driver.h"
#include "tests/store/filled_catalogue.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {

/// The program on a catalogue of its own with 1,000 procedures in 51 classes of 3 applications, and
/// one in none.
class DesktopFixture : public ::testing::Test {
  protected:
    DesktopFixture() { CreateDatabase(folder_.File(kCatalogueFileName), Script()); }

    static std::string Script() {
        return std::string(CreationScript()) + FillScript(1000) +
               "DELETE FROM tblSetting;"
               "INSERT INTO tblCode(codeName, code, classID) VALUES ('Loose', 'Sub Loose', 1);";
    }

    void TearDown() override {
        if (window_) window_->close();
        window_.reset();
        db_.reset();
    }

    void StartProgram() {
        db_ =
            std::make_unique<Database>(qtHost_.Interfaces(), CatalogueProviders(), folder_.Path());
        window_ = std::make_unique<fMain>(*db_, qtHost_);
        ASSERT_TRUE(window_->Start());
        window_->activateWindow();
        RunEvents();
    }
    void EndProgram() {
        window_->close();
        window_.reset();
        db_.reset();
    }

    template <typename Control>
    Control& Get(const char* name) {
        return Find<Control>(*window_, name);
    }

    TemporaryFolder folder_;
    ModalDriver modal_;
    QtHost qtHost_;
    std::unique_ptr<Database> db_;
    std::unique_ptr<fMain> window_;
};

}  // namespace snippetarium::test
