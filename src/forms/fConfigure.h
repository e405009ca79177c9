#pragma once

#include <QDialog>
#include <memory>

#include "navigator/configuration.h"

class QRadioButton;

namespace snippetarium {

class Database;

namespace Ui {
class fConfigure;
}

/// The configuration: at which side each pane docks, and the colours of the windows.
class fConfigure final : public QDialog {
    Q_OBJECT

  public:
    fConfigure(Database& db, Layout& layout, QWidget* parent);
    ~fConfigure() override;

  private:
    struct SideOptions;

    SideOptions OptionsOf(Pane pane) const;
    void ShowSettings();
    PaneSides ChosenSides() const;
    void Store();
    void OpenHelpPage();

    Database& db_;
    Layout& layout_;
    std::unique_ptr<Ui::fConfigure> ui_;
};

}  // namespace snippetarium
