#include "forms/fPage.h"

#include <QClipboard>
#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QTextDocumentFragment>
#include <algorithm>
#include <utility>

#include "forms/handler.h"
#include "forms/modal.h"
#include "forms/page_marks.h"
#include "forms/qt_text.h"
#include "navigator/node.h"
#include "store/database.h"
#include "store/settings.h"
#include "ui_fPage.h"

namespace snippetarium {

namespace {

constexpr std::string_view kTextSizeSetting = "page.textSteps";
constexpr int kMostSteps = 30;
constexpr int kFewestSteps = -5;

/// A row of the heading's table.
QString HtmlRow(const QString& label, const QString& text, const QString& target) {
    const QString cell =
        target.isEmpty() ? text : QString("<a href=\"%1\">%2</a>").arg(target, text);
    return QString("<tr><td style=\"padding-right:12px\">%1</td><td>%2</td></tr>").arg(label, cell);
}

}  // namespace

fPage::fPage(Database& db, QWidget* parent)
    : ChildPane(parent), db_(db), ui_(std::make_unique<Ui::fPage>()) {
    ui_->setupUi(this);
    hint_ = ui_->txtPage->placeholderText();
    ui_->lblHeading->setBackgroundRole(QPalette::AlternateBase);
    ui_->lblHeading->hide();
    ui_->lineHeading->hide();
    ui_->txtPage->document()->setDocumentMargin(8);
    ApplyTextSize();
    connect(ui_->lblHeading, &QLabel::linkActivated, this,
            [this](const QString& key) { emit NodeRequested(ParseNodeKey(FromQt(key))); });
    connect(ui_->txtPage, &PageText::LinkActivated, this,
            [this](const QString& key) { emit NodeRequested(ParseNodeKey(FromQt(key))); });
    connect(ui_->txtPage, &QPlainTextEdit::selectionChanged, this, &fPage::SelectionChanged);
    connect(ui_->txtPage, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        emit MenuRequested(ui_->txtPage->viewport()->mapToGlobal(at));
    });
}

fPage::~fPage() = default;

void fPage::ReadSettings() {
    textSteps_ = std::clamp(ToQt(Setting(db_, kTextSizeSetting)).toInt(), kFewestSteps, kMostSteps);
    ApplyTextSize();
}

void fPage::ShowPage(const NodeIDs& node) {
    Page page = ReadPage(db_, node);
    const bool isSame = page.node == page_.node && page.text == page_.text &&
                        page.links == page_.links && page.languageID == page_.languageID;
    page_ = std::move(page);
    if (page_.node != NodeIDs{}) history_.Visit(page_.node);
    ui_->lblHeading->ShowHtml(HeadingHtml());
    ui_->lblHeading->setVisible(page_.node != NodeIDs{});
    ui_->lineHeading->setVisible(page_.node != NodeIDs{});
    ui_->txtPage->setPlaceholderText(TextInPlaceOfNone());
    if (isSame) return;
    // Another heading leaves the text another height, which it is to have before it is laid out.
    ui_->layout->activate();
    ui_->txtPage->ShowPage(page_);
    MarkWords({});
}

QString fPage::TextInPlaceOfNone() const {
    if (page_.node == NodeIDs{}) return hint_;
    switch (KindOf(page_.node)) {
        case NodeKind::Procedure:
            return tr("This procedure has no code yet.");
        case NodeKind::Class:
            return tr("This class has no text yet.");
        default:
            return tr("This application has no classes yet.");
    }
}

QString fPage::HeadingHtml() const {
    QString html = "<p style=\"font-size:large; margin-bottom:6px\"><b>" +
                   ToQt(page_.name).toHtmlEscaped() + "</b></p><table cellspacing=\"0\">";
    for (const HeadingLine& line : page_.heading) {
        html += HtmlRow(tr(std::string(line.label).c_str()).toHtmlEscaped(),
                        ToQt(line.text).toHtmlEscaped(), ToQt(line.targetKey));
    }
    return html + "</table>";
}

void fPage::changeEvent(QEvent* event) {
    ChildPane::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    // The colour of links is part of the text that was laid out.
    ui_->lblHeading->clear();
    ui_->lblHeading->ShowHtml(HeadingHtml());
}

QPlainTextEdit& fPage::Text() const {
    return *ui_->txtPage;
}

void fPage::MarkWords(const QStringList& words) {
    snippetarium::MarkWords(*ui_->txtPage, words);
}

bool fPage::HasSelection() const {
    return ui_->txtPage->textCursor().hasSelection();
}

void fPage::SetWrap(bool wrap) {
    ui_->txtPage->setLineWrapMode(wrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
}

void fPage::Copy() {
    ui_->txtPage->copy();
}

void fPage::SelectAll() {
    ui_->txtPage->selectAll();
}

void fPage::Clear() {
    ShowPage({});
}

void fPage::CopyWhole() {
    QGuiApplication::clipboard()->setText(ToQt(TextToCopy(db_, page_.node)));
}

void fPage::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(ToQt(page_.name));
    QPrintDialog dialog(&printer, this);
    dialog.setObjectName("cdlPrint");
    dialog.setOption(QAbstractPrintDialog::PrintSelection, HasSelection());
    if (RunModal(dialog, db_.Reporter()) != QDialog::Accepted) return;
    if (dialog.printRange() != QAbstractPrintDialog::Selection) {
        return ui_->txtPage->print(&printer);
    }
    QPlainTextEdit selected;
    selected.setFont(ui_->txtPage->font());
    selected.setPlainText(ui_->txtPage->textCursor().selection().toPlainText());
    selected.print(&printer);
}

void fPage::ChangeTextSize(int steps) {
    textSteps_ = steps == 0 ? 0 : std::clamp(textSteps_ + steps, kFewestSteps, kMostSteps);
    StoreSetting(db_, kTextSizeSetting, textSteps_ == 0 ? "" : std::to_string(textSteps_));
    ApplyTextSize();
}

void fPage::ApplyTextSize() {
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(std::max(4.0, font().pointSizeF() + textSteps_));
    ui_->txtPage->setFont(fixed);
    ui_->txtPage->setTabStopDistance(4 * QFontMetricsF(fixed).horizontalAdvance(' '));
}

void fPage::FocusFirst() {
    ui_->txtPage->setFocus();
}

}  // namespace snippetarium
