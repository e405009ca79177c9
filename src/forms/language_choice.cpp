#include "forms/language_choice.h"

#include <QComboBox>
#include <QPushButton>

#include "forms/fSlctLanguage.h"
#include "forms/handler.h"
#include "forms/modal.h"
#include "navigator/language_guess.h"
#include "store/database.h"

namespace snippetarium {

LanguageChoice::LanguageChoice(Database& db, QComboBox* box, QPushButton* button)
    : QObject(box), db_(db), box_(box) {
    button->setEnabled(!db.IsReadOnly());
    connect(box, &QComboBox::currentIndexChanged, this, [this] { emit Changed(ID()); });
    connect(box, &QComboBox::activated, this, [this] { isUsersChoice_ = true; });
    connect(button, &QPushButton::clicked, this, [this] {
        Handle(db_.Reporter(), Procedure::LanguageChoiceEvent, [this] { OpenList(); });
    });
}

void LanguageChoice::Show(std::int32_t languageID) {
    FillLanguageBox(db_, box_, languageID);
    chosen_.Keep(box_, languageID);
    emit Changed(ID());
}

void LanguageChoice::Guess(std::string_view text) {
    if (isUsersChoice_) return;
    Handle(db_.Reporter(), Procedure::LanguageChoiceEvent, [&] { Select(GuessedLanguage(text)); });
}

void LanguageChoice::Select(std::int32_t languageID) {
    const int row = box_->findData(languageID);
    if (row >= 0) box_->setCurrentIndex(row);
}

void LanguageChoice::OpenList() {
    fSlctLanguage dialog(db_, SelectedID(box_), box_->window());
    const bool isAccepted = RunModal(dialog, db_.Reporter()) == QDialog::Accepted;
    // The list may have been changed there.
    FillLanguageBox(db_, box_, SelectedID(box_));
    if (!isAccepted) return;
    isUsersChoice_ = true;
    Select(dialog.LanguageID());
}

}  // namespace snippetarium
