#include "forms/fAbout.h"

#include <QCoreApplication>

#include "forms/icons.h"
#include "forms/qt_text.h"
#include "ui_fAbout.h"

namespace snippetarium {

namespace {

constexpr int kLogoSize = 72;

}  // namespace

fAbout::fAbout(Use use, const std::string& cataloguePath, QWidget* parent)
    : QDialog(parent, use == Use::Splash ? Qt::SplashScreen : Qt::Dialog),
      ui_(std::make_unique<Ui::fAbout>()) {
    ui_->setupUi(this);
    ui_->imgLogo->setPixmap(
        Icon("snippetarium").pixmap(QSize(kLogoSize, kLogoSize), devicePixelRatioF()));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    large.setBold(true);
    ui_->lblProgram->setFont(large);
    ui_->lblVersion->setText(tr("Version %1").arg(QCoreApplication::applicationVersion()));
    ui_->cmdOK->setVisible(use == Use::Dialog);
    ui_->lblCatalogue->setText(use == Use::Splash ? tr("Loading the catalogue")
                                                  : tr("Catalogue: %1").arg(ToQt(cataloguePath)));
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    setFixedSize(sizeHint().expandedTo(QSize(420, 0)));
}

fAbout::~fAbout() = default;

void fAbout::ShowAtOnce() {
    show();
    // The window system has to place the window before anything can be painted in it.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    repaint();
}

}  // namespace snippetarium
