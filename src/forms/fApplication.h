#pragma once

#include "editors/application_editor.h"
#include "forms/editor_window.h"

namespace snippetarium {

namespace Ui {
class fApplication;
}

/// The editor of an application.
class fApplication final : public EditorWindow {
    Q_OBJECT

  public:
    fApplication(Database& db, std::unique_ptr<ApplicationEditor> editor);
    ~fApplication() override;

  private:
    ApplicationRecord& Record() const;
    void ShowRecord() override;
    void TakeRecord() override;
    std::string_view RecordName() const override { return Record().name; }
    void Connect();
    void BrowsePath();

    std::unique_ptr<Ui::fApplication> ui_;
};

}  // namespace snippetarium
