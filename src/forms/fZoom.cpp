#include "forms/fZoom.h"

#include <QShortcut>

#include "forms/fPage.h"
#include "forms/help_key.h"
#include "forms/qt_text.h"
#include "forms/window_size.h"
#include "navigator/help.h"
#include "ui_fZoom.h"

namespace snippetarium {

namespace {

constexpr double kEnlargement = 1.8;
constexpr int kTabCharacters = 4;

}  // namespace

fZoom::fZoom(Database& db, QWidget* parent)
    : QWidget(parent, Qt::Window), ui_(std::make_unique<Ui::fZoom>()) {
    ui_->setupUi(this);
    FitOnScreen(*this);
    ui_->txtZoom->document()->setDocumentMargin(16);
    connect(ui_->txtZoom, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        emit MenuRequested(ui_->txtZoom->viewport()->mapToGlobal(at));
    });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this,
            &fZoom::FindRequested);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    new HelpKey(this, [&db] { OpenHelp(db, AnchorOf("fZoom")); });
}

fZoom::~fZoom() = default;

void fZoom::ShowTextOf(const fPage& page) {
    const QPlainTextEdit& shown = page.Text();
    QFont font = shown.font();
    font.setPointSizeF(font.pointSizeF() * kEnlargement);
    ui_->txtZoom->setFont(font);
    ui_->txtZoom->setTabStopDistance(kTabCharacters * QFontMetricsF(font).horizontalAdvance(' '));
    ui_->txtZoom->setLineWrapMode(shown.lineWrapMode());
    ui_->txtZoom->ShowPage(page.ShownPage());
    setWindowTitle(tr("%1 - Zoom").arg(ToQt(page.ShownPage().name)));
    show();
    raise();
    activateWindow();
    ui_->txtZoom->setFocus();
}

QPlainTextEdit& fZoom::Text() const {
    return *ui_->txtZoom;
}

}  // namespace snippetarium
