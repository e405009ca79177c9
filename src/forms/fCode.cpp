#include "forms/fCode.h"

#include "forms/language_choice.h"
#include "forms/qt_text.h"
#include "navigator/name_proposal.h"
#include "store/owner.h"
#include "store/reads_classes.h"
#include "ui_fCode.h"

namespace snippetarium {

namespace {

constexpr int kCommentHeight = 100;
constexpr int kTextHeight = 400;

}  // namespace

fCode::fCode(Database& db, std::unique_ptr<CodeEditor> editor, std::int32_t appID)
    : EditorWindow(db, std::move(editor), {.form = "fCode", .procedure = Procedure::CodeEvent}),
      ui_(std::make_unique<Ui::fCode>()),
      language_(nullptr),
      appID_(appID) {
    ui_->setupUi(this);
    ui_->splitter->setStretchFactor(0, 1);
    ui_->splitter->setStretchFactor(1, 4);
    ui_->splitter->setSizes({kCommentHeight, kTextHeight});
    language_ = new LanguageChoice(db, ui_->cmbLanguage, ui_->cmdLanguage);
    Connect();
    ConnectBoxes();
    Start(ui_->footer);
    ui_->txtCode->setFocus();
}

fCode::~fCode() = default;

CodeRecord& fCode::Record() const {
    return static_cast<CodeEditor&>(Editor()).Record();
}

void fCode::Connect() {
    connect(ui_->txtName, &QLineEdit::textChanged, this, &fCode::Touch);
    connect(language_, &LanguageChoice::Changed, this, &fCode::OnLanguage);
    connect(ui_->txtCode, &CodeEdit::Filled, language_,
            [this] { language_->Guess(ui_->txtCode->Code()); });
    Serve(ui_->txtComment);
    Serve(ui_->txtCode);
}

void fCode::ConnectBoxes() {
    connect(ui_->cmbApplication, &QComboBox::currentIndexChanged, this,
            [this] { OnEvent([this] { OnApplication(); }); });
    connect(ui_->cmbClass, &QComboBox::currentIndexChanged, this, &fCode::Touch);
}

/// Another application has other classes; its first one is as good a guess as any.
void fCode::OnApplication() {
    FillClassBox(Catalogue(), ui_->cmbClass, SelectedID(ui_->cmbApplication), 0);
    if (ui_->cmbClass->count() > 0) ui_->cmbClass->setCurrentIndex(0);
    Touch();
}

void fCode::OnLanguage(std::int32_t languageID) {
    ui_->txtCode->SetLanguage(languageID);
    ui_->txtComment->SetLanguage(languageID);
    Touch();
}

std::int32_t fCode::ApplicationOfRecord() const {
    const std::int32_t classID = ClassOrUndefined(Record().classID);
    const bool isInNone = Editor().IsNew() && classID == kUndefinedClassID;
    return isInNone && appID_ != 0 ? appID_ : AppIDByClassID(Catalogue(), classID);
}

void fCode::ShowRecord() {
    const CodeRecord& record = Record();
    ui_->txtName->setText(ToQt(record.name));
    const std::int32_t appID = ApplicationOfRecord();
    FillApplicationBox(Catalogue(), ui_->cmbApplication, appID);
    FillClassBox(Catalogue(), ui_->cmbClass, appID, record.classID);
    class_.Keep(ui_->cmbClass, record.classID);
    language_->Show(record.languageID);
    ui_->txtComment->SetCode(record.comment);
    ui_->txtCode->SetCode(record.code);
}

void fCode::TakeRecord() {
    CodeRecord& record = Record();
    record.name = FromQt(ui_->txtName->text());
    record.classID = class_.Of(ui_->cmbClass);
    record.languageID = language_->ID();
    record.comment = ui_->txtComment->Code();
    record.code = ui_->txtCode->Code();
}

void fCode::OnPause() {
    if (!Editor().IsNew() || ui_->txtName->text() != proposed_) return;
    const std::string code = ui_->txtCode->Code();
    const std::string className = FromQt(ui_->cmbClass->currentText());
    proposed_ =
        ToQt(ProposedName({.code = code, .languageID = language_->ID(), .className = className}));
    ui_->txtName->setText(proposed_);
}

}  // namespace snippetarium
