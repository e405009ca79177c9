#include "forms/fIndex.h"

#include <algorithm>

#include "forms/fTopicsFound.h"
#include "forms/handler.h"
#include "forms/kept_scroll.h"
#include "forms/list_keys.h"
#include "forms/modal.h"
#include "forms/qt_text.h"
#include "forms/words_model.h"
#include "store/database.h"
#include "ui_fIndex.h"

namespace snippetarium {

fIndex::fIndex(Database& db, QWidget* parent)
    : ChildPane(parent),
      db_(db),
      index_(db),
      ui_(std::make_unique<Ui::fIndex>()),
      model_(new WordsModel(index_, this)) {
    ui_->setupUi(this);
    ui_->lblIndex->hide();
    ui_->lstIndex->setModel(model_);
    new ListKeys(ui_->txtIndex, ui_->lstIndex);
    connect(ui_->txtIndex, &QLineEdit::textEdited, this,
            [this](const QString& typed) { SelectRow(index_.RowFor(FromQt(typed))); });
    const auto open = [this] {
        Handle(db_.Reporter(), Procedure::IndexEvent, [this] { OpenSelected(); });
    };
    connect(ui_->txtIndex, &QLineEdit::returnPressed, this, open);
    connect(ui_->lstIndex, &QListView::activated, this, open);
    connect(ui_->lstIndex->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &fIndex::SelectionChanged);
}

fIndex::~fIndex() = default;

void fIndex::Load() {
    const std::string word = SelectedWord();
    ui_->lblIndex->setText(ToQt(kLoadingIndexText));
    ui_->lblIndex->show();
    ui_->lblIndex->repaint();
    const KeptScroll kept(ui_->lstIndex);
    model_->BeginChange();
    index_.Load();
    model_->EndChange();
    ui_->lblIndex->setVisible(index_.Count() == 0);
    ui_->lblIndex->setText(tr("There are no keywords yet."));
    MakeCurrent(index_.RowOf(word));
}

bool fIndex::HasWord() const {
    return ui_->lstIndex->currentIndex().isValid();
}

void fIndex::SelectWord(const std::string& word) {
    SelectRow(index_.RowOf(word));
}

std::string fIndex::SelectedWord() const {
    const QModelIndex index = ui_->lstIndex->currentIndex();
    if (!index.isValid()) return {};
    return std::string(index_.WordAt(static_cast<std::size_t>(index.row())));
}

void fIndex::MakeCurrent(std::optional<std::size_t> row) {
    const QModelIndex index = row ? model_->index(static_cast<int>(*row)) : QModelIndex();
    ui_->lstIndex->setCurrentIndex(index);
}

void fIndex::SelectRow(std::optional<std::size_t> row) {
    MakeCurrent(row);
    const QModelIndex index = ui_->lstIndex->currentIndex();
    if (index.isValid()) ui_->lstIndex->scrollTo(index, QAbstractItemView::PositionAtTop);
}

void fIndex::OpenSelected() {
    const std::string word = SelectedWord();
    if (word.empty()) return;
    const WordTopics found = index_.OpenWord(word);
    if (found == WordTopics::One) emit DisplayRequested(ToQt(index_.Topics().KeyAt(0)));
    if (found != WordTopics::Several) return;
    fTopicsFound dialog(db_, index_.Topics(), window());
    RunModal(dialog, db_.Reporter());
    if (!dialog.ChosenKey().empty()) emit DisplayRequested(ToQt(dialog.ChosenKey()));
}

void fIndex::DeleteSelected() {
    const std::string word = SelectedWord();
    if (word.empty()) return;
    const auto row = static_cast<std::size_t>(ui_->lstIndex->currentIndex().row());
    if (!index_.DeleteWord(word)) return;
    const KeptScroll kept(ui_->lstIndex);
    model_->BeginChange();
    model_->EndChange();
    if (index_.Count() > 0) MakeCurrent(std::min(row, index_.Count() - 1));
}

void fIndex::FocusFirst() {
    ui_->txtIndex->setFocus();
    ui_->txtIndex->selectAll();
}

}  // namespace snippetarium
