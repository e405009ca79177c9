#include "forms/editor_footer.h"

#include <QEvent>

#include "editors/author_text.h"
#include "editors/edited_details.h"
#include "forms/qt_text.h"
#include "ui_editor_footer.h"

namespace snippetarium {

namespace {

/// A long text is seen from its beginning.
void Show(QLineEdit* line, const QString& text) {
    line->setText(text.simplified());
    line->setCursorPosition(0);
    line->setToolTip(line->text());
}

}  // namespace

EditorFooter::EditorFooter(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::EditorFooter>()) {
    ui_->setupUi(this);
    TintLines();
    connect(ui_->cmdKeywords, &QPushButton::clicked, this, &EditorFooter::KeywordsRequested);
    connect(ui_->cmdAuthors, &QPushButton::clicked, this, &EditorFooter::AuthorsRequested);
    connect(ui_->cmdDates, &QPushButton::clicked, this, &EditorFooter::DatesRequested);
    connect(ui_->cmdSave, &QPushButton::clicked, this, &EditorFooter::SaveRequested);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &EditorFooter::AcceptRequested);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &EditorFooter::CancelRequested);
    connect(ui_->cmdHelp, &QPushButton::clicked, this, &EditorFooter::HelpRequested);
}

EditorFooter::~EditorFooter() = default;

void EditorFooter::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) TintLines();
}

/// What is changed by a button does not look like something to type into.
void EditorFooter::TintLines() {
    QPalette tinted;
    tinted.setColor(QPalette::Base, palette().color(QPalette::Window));
    for (QLineEdit* line : {ui_->txtKeywords, ui_->txtAuthors, ui_->txtDates})
        line->setPalette(tinted);
}

void EditorFooter::ShowDetails(const EditedDetails& details) {
    QStringList authors;
    for (const AuthorName& author : details.authors)
        authors.push_back(ToQt(AuthorText(author)));
    QStringList dates;
    for (const std::string& date : details.dates)
        dates.push_back(ToQt(date));
    Show(ui_->txtKeywords, ToQt(details.keywords.text));
    Show(ui_->txtAuthors, authors.join(", "));
    Show(ui_->txtDates, dates.join(", "));
}

void EditorFooter::ShowState(const QString& state) {
    ui_->lblState->setText(state);
}

void EditorFooter::SetReadOnly() {
    for (QPushButton* button :
         {ui_->cmdKeywords, ui_->cmdAuthors, ui_->cmdDates, ui_->cmdSave, ui_->cmdOK})
        button->setEnabled(false);
    ShowState(tr("The catalogue can only be read."));
}

}  // namespace snippetarium
