#pragma once

#include "editors/code_editor.h"
#include "forms/editor_window.h"
#include "forms/record_boxes.h"

namespace snippetarium {

class LanguageChoice;

namespace Ui {
class fCode;
}

/// The editor of a procedure.
class fCode final : public EditorWindow {
    Q_OBJECT

  public:
    /// `appID` is the application whose classes a new procedure without a class is offered; 0 for
    /// any other.
    fCode(Database& db, std::unique_ptr<CodeEditor> editor, std::int32_t appID);
    ~fCode() override;

  private:
    CodeRecord& Record() const;
    void ShowRecord() override;
    void TakeRecord() override;
    std::string_view RecordName() const override { return Record().name; }
    void OnPause() override;
    void Connect();
    void ConnectBoxes();
    void OnApplication();
    void OnLanguage(std::int32_t languageID);
    std::int32_t ApplicationOfRecord() const;

    std::unique_ptr<Ui::fCode> ui_;
    LanguageChoice* language_;
    ChosenID class_;
    std::int32_t appID_;
    /// The name that was proposed last; while it stands in its control the next may replace it.
    QString proposed_;
};

}  // namespace snippetarium
