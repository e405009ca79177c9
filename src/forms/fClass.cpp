#include "forms/fClass.h"

#include "forms/language_choice.h"
#include "forms/qt_text.h"
#include "ui_fClass.h"

namespace snippetarium {

namespace {

constexpr int kCommentHeight = 100;
constexpr int kTextHeight = 400;

}  // namespace

fClass::fClass(Database& db, std::unique_ptr<ClassEditor> editor)
    : EditorWindow(db, std::move(editor), {.form = "fClass", .procedure = Procedure::ClassEvent}),
      ui_(std::make_unique<Ui::fClass>()),
      language_(nullptr) {
    ui_->setupUi(this);
    ui_->splitter->setStretchFactor(0, 1);
    ui_->splitter->setStretchFactor(1, 4);
    ui_->splitter->setSizes({kCommentHeight, kTextHeight});
    language_ = new LanguageChoice(db, ui_->cmbLanguage, ui_->cmdLanguage);
    Connect();
    Start(ui_->footer);
    ui_->txtName->selectAll();
}

fClass::~fClass() = default;

ClassRecord& fClass::Record() const {
    return static_cast<ClassEditor&>(Editor()).Record();
}

void fClass::Connect() {
    for (const QLineEdit* line : {ui_->txtName, ui_->txtPath})
        connect(line, &QLineEdit::textChanged, this, &fClass::Touch);
    connect(ui_->cmbApplication, &QComboBox::currentIndexChanged, this, &fClass::Touch);
    connect(language_, &LanguageChoice::Changed, this, &fClass::OnLanguage);
    connect(ui_->txtText, &CodeEdit::Filled, language_,
            [this] { language_->Guess(ui_->txtText->Code()); });
    Serve(ui_->txtComment);
    Serve(ui_->txtText);
}

void fClass::OnLanguage(std::int32_t languageID) {
    ui_->txtText->SetLanguage(languageID);
    ui_->txtComment->SetLanguage(languageID);
    Touch();
}

void fClass::ShowRecord() {
    const ClassRecord& record = Record();
    ui_->txtName->setText(ToQt(record.name));
    FillApplicationBox(Catalogue(), ui_->cmbApplication, record.appID);
    application_.Keep(ui_->cmbApplication, record.appID);
    language_->Show(record.languageID);
    ui_->txtPath->setText(PathToQt(record.pathInApp));
    ui_->txtComment->SetCode(record.comment);
    ui_->txtText->SetCode(record.declarations);
}

void fClass::TakeRecord() {
    ClassRecord& record = Record();
    record.name = FromQt(ui_->txtName->text());
    record.appID = application_.Of(ui_->cmbApplication);
    record.languageID = language_->ID();
    TakePath(ui_->txtPath->text(), record.pathInApp);
    record.comment = ui_->txtComment->Code();
    record.declarations = ui_->txtText->Code();
}

}  // namespace snippetarium
