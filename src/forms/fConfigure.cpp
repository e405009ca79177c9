#include "forms/fConfigure.h"

#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/theme.h"
#include "navigator/help.h"
#include "store/database.h"
#include "ui_fConfigure.h"

namespace snippetarium {

namespace {

/// Each pane's member of PaneSides.
// clang-format off
constexpr std::pair<Pane, Side PaneSides::*> kSides[] = {
    {Pane::Contents, &PaneSides::content},
    {Pane::Index,    &PaneSides::index},
    {Pane::Search,   &PaneSides::search},
    {Pane::Bookmark, &PaneSides::bookmark},
};
// clang-format on

}  // namespace

struct fConfigure::SideOptions {
    QRadioButton* left;
    QRadioButton* right;
};

fConfigure::fConfigure(Database& db, Layout& layout, QWidget* parent)
    : QDialog(parent), db_(db), layout_(layout), ui_(std::make_unique<Ui::fConfigure>()) {
    ui_->setupUi(this);
    ShowSettings();
    connect(ui_->cmdOK, &QPushButton::clicked, this,
            [this] { Handle(db_.Reporter(), Procedure::ConfigureEvent, [this] { Store(); }); });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->cmdHelp, &QPushButton::clicked, this, &fConfigure::OpenHelpPage);
    new HelpKey(this, [this] { OpenHelpPage(); });
}

fConfigure::~fConfigure() = default;

fConfigure::SideOptions fConfigure::OptionsOf(Pane pane) const {
    switch (pane) {
        case Pane::Contents:
            return {ui_->optnContentLeft, ui_->optnContentRight};
        case Pane::Index:
            return {ui_->optnIndexLeft, ui_->optnIndexRight};
        case Pane::Search:
            return {ui_->optnSearchLeft, ui_->optnSearchRight};
        case Pane::Bookmark:
            break;
    }
    return {ui_->optnBookmarkLeft, ui_->optnBookmarkRight};
}

void fConfigure::ShowSettings() {
    const PaneSides sides = ReadPaneSides(db_);
    for (const auto& [pane, side] : kSides) {
        const SideOptions options = OptionsOf(pane);
        (sides.*side == Side::Left ? options.left : options.right)->setChecked(true);
    }
    QRadioButton* const themes[] = {ui_->optnThemeDesktop, ui_->optnThemeLight, ui_->optnThemeDark};
    themes[static_cast<std::size_t>(ReadTheme(db_))]->setChecked(true);
    // Tab goes to the choice that is made, from which the arrow keys lead to the others.
    for (QRadioButton* option : findChildren<QRadioButton*>())
        option->setFocusPolicy(option->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

PaneSides fConfigure::ChosenSides() const {
    PaneSides sides;
    for (const auto& [pane, side] : kSides)
        sides.*side = OptionsOf(pane).right->isChecked() ? Side::Right : Side::Left;
    return sides;
}

void fConfigure::Store() {
    StorePaneSides(db_, ChosenSides(), layout_);
    Theme theme = Theme::Desktop;
    if (ui_->optnThemeLight->isChecked()) theme = Theme::Light;
    if (ui_->optnThemeDark->isChecked()) theme = Theme::Dark;
    StoreTheme(db_, theme);
    ApplyTheme(theme);
    accept();
}

void fConfigure::OpenHelpPage() {
    Handle(db_.Reporter(), Procedure::ConfigureEvent,
           [this] { OpenHelp(db_, AnchorOf("fConfigure")); });
}

}  // namespace snippetarium
