#include "forms/help_window.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QTextBrowser>
#include <QToolBar>
#include <QUrl>

#include "forms/icons.h"

namespace snippetarium {

namespace {

/// The page itself; where the catalogue's folder has no help, that of the installed program.
QString PlaceOf(const QString& page) {
    if (QFile::exists(page)) return page;
    const QString installed =
        QCoreApplication::applicationDirPath() + "/help/" + QFileInfo(page).fileName();
    return QFile::exists(installed) ? installed : page;
}

}  // namespace

HelpWindow::HelpWindow() : page_(new QTextBrowser(this)) {
    setObjectName("fHelp");
    setWindowTitle(tr("Snippetarium Help"));
    resize(840, 680);
    page_->setObjectName("txtHelp");
    page_->setAccessibleName(tr("Help page"));
    page_->setOpenExternalLinks(false);
    page_->document()->setDocumentMargin(16);
    setCentralWidget(page_);

    auto* bar = addToolBar(tr("Navigation"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    QAction* back = bar->addAction(Icon("back"), tr("Back"), page_, &QTextBrowser::backward);
    QAction* forward =
        bar->addAction(Icon("forward"), tr("Forward"), page_, &QTextBrowser::forward);
    back->setShortcut(QKeySequence::Back);
    forward->setShortcut(QKeySequence::Forward);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::Navigate(const QString& address) {
    const qsizetype anchor = address.indexOf('#');
    const QString path = PlaceOf(anchor < 0 ? address : address.left(anchor));
    if (!QFile::exists(path)) {
        page_->setPlainText(tr("The help page %1 is missing. Installing the program again brings "
                               "it back.")
                                .arg(path));
        return;
    }
    QUrl url = QUrl::fromLocalFile(path);
    if (anchor >= 0) url.setFragment(address.mid(anchor + 1));
    page_->setSource(url);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

}  // namespace snippetarium
