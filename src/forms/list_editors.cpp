#include "forms/list_editors.h"

#include <QWidget>

#include "forms/fAddClass.h"
#include "forms/fAddCode.h"
#include "forms/fCommonWord.h"
#include "forms/fContents.h"
#include "forms/fEditSearchWord.h"
#include "forms/fIndex.h"
#include "forms/fLanguage.h"
#include "forms/modal.h"
#include "store/database.h"

namespace snippetarium {

ListEditors::ListEditors(Database& db, QWidget& window, const Panes& panes)
    : QObject(&window), db_(db), window_(window), panes_(panes) {}

void ListEditors::Perform(MenuCommand command) {
    switch (command) {
        case MenuCommand::EditLanguages:
            return EditLanguages();
        case MenuCommand::EditNoiseWords:
            return EditNoiseWords();
        case MenuCommand::EditIndexWord:
            return EditIndexWord();
        case MenuCommand::AddExistingClass:
            return AddExisting(AddExistingClass(db_, panes_.contents.Selection()));
        case MenuCommand::AddExisting:
            return AddExisting(AddExistingAt(db_, panes_.contents.Selection()));
        default:
            return;
    }
}

void ListEditors::EditLanguages() {
    fLanguage dialog(db_, &window_);
    RunModal(dialog, db_.Reporter());
    if (dialog.HasChangedCatalogue()) ShowChanges();
}

void ListEditors::EditNoiseWords() {
    fCommonWord dialog(db_, &window_);
    RunModal(dialog, db_.Reporter());
    if (dialog.HasChangedCatalogue()) ShowChanges();
}

void ListEditors::EditIndexWord() {
    const std::string word = panes_.index.SelectedWord();
    if (word.empty()) return;
    const NoiseWords noise = LoadNoiseWords(db_);
    fEditSearchWord dialog(db_, noise, word, SearchWordUse::Index, &window_);
    RunModal(dialog, db_.Reporter());
    if (!dialog.HasChangedCatalogue()) return;
    ShowChanges();
    panes_.index.SelectWord(dialog.Word());
}

void ListEditors::AddExisting(const std::optional<CopyTarget>& target) {
    if (!target) return;
    target->kind == NodeKind::Class ? AddClass(*target) : AddCode(*target);
}

void ListEditors::AddClass(const CopyTarget& target) {
    fAddClass dialog(db_, target.appID, &window_);
    if (RunModal(dialog, db_.Reporter()) != QDialog::Accepted) return;
    ShowChanges();
    panes_.contents.SelectNode({.appID = target.appID, .classID = dialog.ClassID()});
}

void ListEditors::AddCode(const CopyTarget& target) {
    fAddCode dialog(db_, target.classID, &window_);
    if (RunModal(dialog, db_.Reporter()) != QDialog::Accepted) return;
    ShowChanges();
    panes_.contents.SelectNode({target.appID, target.classID, dialog.CodeID()});
}

void ListEditors::ShowChanges() {
    panes_.contents.Refresh();
    emit ListsChanged();
}

}  // namespace snippetarium
