#include "forms/status_panels.h"

#include <QEvent>
#include <QLabel>
#include <QStatusBar>

#include "forms/icons.h"

namespace snippetarium {

namespace {

QLabel* AddLabel(QStatusBar* bar, const char* name, int stretch) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    if (stretch > 0) {
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        bar->addWidget(label, stretch);
    } else {
        bar->addPermanentWidget(label);
    }
    return label;
}

}  // namespace

StatusPanels::StatusPanels(QStatusBar* bar)
    : QObject(bar),
      node_(AddLabel(bar, "lblStatusNode", 1)),
      work_(AddLabel(bar, "lblStatusWork", 0)),
      counts_(AddLabel(bar, "lblStatusCounts", 0)),
      lock_(AddLabel(bar, "imgStatusReadOnly", 0)),
      readOnly_(AddLabel(bar, "lblStatusReadOnly", 0)) {
    node_->setAccessibleName(tr("Selected"));
    node_->installEventFilter(this);
    node_->setContentsMargins(6, 0, 0, 0);
    work_->hide();
    lock_->setPixmap(Icon("lock").pixmap(16, 16));
    readOnly_->setText(tr("Read only"));
    SetReadOnly(false);
}

void StatusPanels::SetNode(const QString& path) {
    path_ = path;
    node_->setToolTip(path);
    ShowNode();
}

void StatusPanels::ShowNode() {
    const int room = node_->contentsRect().width();
    node_->setText(node_->fontMetrics().elidedText(path_, Qt::ElideMiddle, room));
}

void StatusPanels::SetWork(const QString& work) {
    work_->setText(work);
    work_->setVisible(!work.isEmpty());
}

void StatusPanels::SetCounts(const QString& counts) {
    counts_->setText(counts);
}

void StatusPanels::SetReadOnly(bool isReadOnly) {
    lock_->setVisible(isReadOnly);
    readOnly_->setVisible(isReadOnly);
}

bool StatusPanels::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) ShowNode();
    return QObject::eventFilter(watched, event);
}

}  // namespace snippetarium
