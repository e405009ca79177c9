#pragma once

#include "editors/class_editor.h"
#include "forms/editor_window.h"
#include "forms/record_boxes.h"

namespace snippetarium {

class LanguageChoice;

namespace Ui {
class fClass;
}

/// The editor of a class.
class fClass final : public EditorWindow {
    Q_OBJECT

  public:
    fClass(Database& db, std::unique_ptr<ClassEditor> editor);
    ~fClass() override;

  private:
    ClassRecord& Record() const;
    void ShowRecord() override;
    void TakeRecord() override;
    std::string_view RecordName() const override { return Record().name; }
    void Connect();
    void OnLanguage(std::int32_t languageID);

    std::unique_ptr<Ui::fClass> ui_;
    LanguageChoice* language_;
    ChosenID application_;
};

}  // namespace snippetarium
