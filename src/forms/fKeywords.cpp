#include "forms/fKeywords.h"

#include <algorithm>
#include <set>

#include "editors/catalogue_lists.h"
#include "forms/dialog_help.h"
#include "forms/fEditSearchWord.h"
#include "forms/handler.h"
#include "forms/modal.h"
#include "forms/qt_text.h"
#include "keywords/word_removal.h"
#include "keywords/word_replacement.h"
#include "keywords/words.h"
#include "store/database.h"
#include "support/case_fold.h"
#include "ui_fKeywords.h"

namespace snippetarium {

namespace {

constexpr int kSeparatorRole = Qt::UserRole + 1;

QString Caption(const Recordset& separator) {
    const QString description = ToQt(separator["separatorDescription"].TextView());
    const QString character = ToQt(separator["separator"].TextView()).trimmed();
    return character.isEmpty() ? description : description + "  " + character;
}

}  // namespace

fKeywords::fKeywords(Database& db, const Owner& owner, KeywordEntry entry, QWidget* parent)
    : QDialog(parent),
      db_(db),
      noise_(LoadNoiseWords(db)),
      entry_(std::move(entry)),
      ui_(std::make_unique<Ui::fKeywords>()) {
    ui_->setupUi(this);
    ListSeparators();
    ui_->txtKeywords->setPlainText(LinesToQt(entry_.text));
    ui_->txtKeywords->moveCursor(QTextCursor::End);
    ListWords();
    ShowStoredWords(owner);
    Connect();
}

fKeywords::~fKeywords() = default;

void fKeywords::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::KeywordsEvent, body);
}

void fKeywords::Connect() {
    connect(ui_->txtKeywords, &QPlainTextEdit::textChanged, this,
            [this] { OnEvent([this] { ListWords(); }); });
    connect(ui_->lstWords, &QListWidget::currentRowChanged, this, &fKeywords::EnableButtons);
    connect(ui_->lstWords, &QListWidget::itemDoubleClicked, ui_->cmdEdit, &QPushButton::click);
    connect(ui_->cmdEdit, &QPushButton::clicked, this, [this] { OnEvent([this] { EditWord(); }); });
    connect(ui_->cmdRemove, &QPushButton::clicked, this,
            [this] { OnEvent([this] { RemoveAll(); }); });
    connect(ui_->cmdOK, &QPushButton::clicked, this, [this] { OnEvent([this] { Accept(); }); });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ConnectHelp(db_, this, ui_->cmdHelp);
}

void fKeywords::ListSeparators() {
    for (Recordset row = AllSeparators(db_); !row.EndOfFile(); row.MoveNext()) {
        ui_->cmbSeparator->addItem(Caption(row), row["separatorID"].Long());
        ui_->cmbSeparator->setItemData(ui_->cmbSeparator->count() - 1,
                                       ToQt(row["separator"].TextView()), kSeparatorRole);
    }
    const int place = ui_->cmbSeparator->findData(entry_.separatorID);
    ui_->cmbSeparator->setCurrentIndex(std::max(place, 0));
}

KeywordEntry fKeywords::Entered() const {
    return {LinesFromQt(ui_->txtKeywords->toPlainText()), ui_->cmbSeparator->currentData().toInt()};
}

std::string fKeywords::SeparatorText() const {
    return FromQt(ui_->cmbSeparator->currentData(kSeparatorRole).toString());
}

void fKeywords::ListWords() {
    const int row = ui_->lstWords->currentRow();
    const std::string words = KeywordToSearchWords(Entered().text, noise_);
    ui_->lstWords->clear();
    for (const std::string_view word : SplitWords(words))
        ui_->lstWords->addItem(ToQt(word));
    ui_->lstWords->setCurrentRow(std::min(row, ui_->lstWords->count() - 1));
    EnableButtons();
}

/// A word of the index may have been changed or deleted there since the keywords were stored.
void fKeywords::ShowStoredWords(const Owner& owner) {
    ui_->lblStored->hide();
    if (owner.id == 0) return;
    const auto stored = LoadOwnerDetails(db_, owner).keywords;
    if (!stored || stored->entry.text != entry_.text) return;
    std::set<std::string> now;
    for (const std::string_view word : SplitWords(stored->searchWords))
        now.insert(FoldCase(word));
    std::set<std::string> derived;
    for (const std::string_view word : SplitWords(KeywordToSearchWords(entry_.text, noise_)))
        derived.insert(FoldCase(word));
    if (now == derived) return;
    ui_->lblStored->setText(
        tr("Its words were changed in the index and are now: %1. When changed keywords are stored, "
           "they are made anew.")
            .arg(ToQt(stored->searchWords)));
    ui_->lblStored->show();
}

void fKeywords::EnableButtons() {
    ui_->cmdEdit->setEnabled(ui_->lstWords->currentRow() >= 0);
    ui_->cmdRemove->setEnabled(!ui_->txtKeywords->toPlainText().isEmpty());
}

void fKeywords::EditWord() {
    const QListWidgetItem* const item = ui_->lstWords->currentItem();
    if (item == nullptr) return;
    const std::string word = FromQt(item->text());
    fEditSearchWord editor(db_, noise_, word, SearchWordUse::Keywords, this);
    if (RunModal(editor, db_.Reporter()) != QDialog::Accepted) return;
    const std::string text = Entered().text;
    ui_->txtKeywords->setPlainText(LinesToQt(
        editor.Word().empty() ? RemoveWords(text, SeparatorText(), NoiseWords(std::vector{word}))
                              : ReplaceWord(text, word, editor.Word())));
}

void fKeywords::RemoveAll() {
    ui_->txtKeywords->clear();
    ui_->txtKeywords->setFocus();
}

void fKeywords::Accept() {
    if (!CheckDetailChanges(db_, {.keywords = Entered()})) return ui_->txtKeywords->setFocus();
    entry_ = Entered();
    accept();
}

}  // namespace snippetarium
