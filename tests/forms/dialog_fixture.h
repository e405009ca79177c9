#pragma once

#include <gtest/gtest.h>

#include <QListView>
#include <QTreeView>
#include <QTreeWidget>
#include <filesystem>
#include <string>
#include <vector>

#include "engine/create_database.h"
#include "forms/qt_host.h"
#include "store/catalogue_content.h"
#include "store/database.h"
#include "store/settings.h"
#include "support/disk_file_system.h"
#include "tests/forms/form_driver.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {

/// A delivered catalogue, open, and a folder of sources beside it, for tests of dialogs that need
/// no main window.
class DialogFixture : public ::testing::Test {
  protected:
    DialogFixture() {
        CreateDatabase(folder_.File(kCatalogueFileName), CreationScript());
        OpenCatalogue(db_);
    }
    void TearDown() override { CloseCatalogue(db_); }

    std::string Sources() const { return sources_.Path(); }
    void WriteSource(const std::string& name, std::string_view text) const {
        const std::string path = sources_.File(name);
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        WriteBytes(path, text);
    }

    std::vector<std::string> Select(std::string_view statement) {
        std::vector<std::string> rows;
        for (Recordset row = db_.GetConnection().Execute(statement); !row.EndOfFile();
             row.MoveNext())
            rows.push_back(row[std::size_t{0}].Text());
        return rows;
    }

    static std::vector<std::string> Rows(QObject& window, const char* list) {
        const QAbstractItemModel& model = *Find<QAbstractItemView>(window, list).model();
        std::vector<std::string> rows;
        for (int row = 0; row < model.rowCount(); ++row)
            rows.push_back(model.index(row, 0).data().toString().toStdString());
        return rows;
    }

    TemporaryFolder folder_;
    TemporaryFolder sources_;
    ModalDriver modal_;
    QtHost qtHost_;
    Database db_{qtHost_.Interfaces(), CatalogueProviders(), folder_.Path()};
    DiskFileSystem files_;
};

inline std::string CaptionOf(const QObject& control) {
    for (const char* property : {"text", "title"}) {
        const QVariant value = control.property(property);
        if (value.isValid()) return value.toString().toStdString();
    }
    return {};
}

}  // namespace snippetarium::test
