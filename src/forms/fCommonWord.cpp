#include "forms/fCommonWord.h"

#include "editors/noise_word_list.h"
#include "forms/dialog_help.h"
#include "forms/filtered_list.h"
#include "forms/handler.h"
#include "forms/qt_text.h"
#include "store/database.h"
#include "store/reads_other.h"
#include "support/text.h"
#include "ui_fCommonWord.h"

namespace snippetarium {

fCommonWord::fCommonWord(Database& db, QWidget* parent)
    : QDialog(parent),
      db_(db),
      noise_(LoadNoiseWords(db)),
      ui_(std::make_unique<Ui::fCommonWord>()) {
    ui_->setupUi(this);
    list_ = new FilteredList(ui_->txtWord, ui_->lstWords);
    List();
    Connect();
    ShowState();
}

fCommonWord::~fCommonWord() = default;

void fCommonWord::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::CommonWordEvent, body);
}

void fCommonWord::Connect() {
    connect(ui_->cmdAdd, &QPushButton::clicked, this, [this] { OnEvent([this] { Add(); }); });
    connect(ui_->cmdDelete, &QPushButton::clicked, this, [this] { OnEvent([this] { Delete(); }); });
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(list_, &FilteredList::SelectionChanged, this, &fCommonWord::ShowState);
    connect(ui_->txtWord, &QLineEdit::textEdited, this, [this] {
        list_->SelectNone();
        ShowState();
    });
    ConnectHelp(db_, this, ui_->cmdHelp);
}

void fCommonWord::List() {
    words_.clear();
    for (Recordset row = CommonWordRS(db_); !row.EndOfFile(); row.MoveNext())
        words_.push_back(row["commonWord"].Text());
    list_->SetTexts(words_);
}

void fCommonWord::ShowState() {
    const bool mayWrite = !db_.IsReadOnly();
    const bool isDeletion = list_->Selected().has_value();
    const bool hasEntry = !ui_->txtWord->text().trimmed().isEmpty();
    setWindowTitle(isDeletion ? tr("Delete Noise Word") : tr("Add Noise Word"));
    ui_->cmdAdd->setEnabled(mayWrite);
    ui_->cmdDelete->setEnabled(mayWrite && isDeletion);
    QPushButton* const wanted = isDeletion ? ui_->cmdDelete : ui_->cmdAdd;
    (mayWrite && (isDeletion || hasEntry) ? wanted : ui_->cmdClose)->setDefault(true);
}

void fCommonWord::Add() {
    const std::string entry = FromQt(ui_->txtWord->text());
    ui_->txtWord->setFocus();
    const std::optional<NoiseEffect> effect = AddListedNoiseWord(db_, noise_, entry);
    if (!effect) return ui_->txtWord->selectAll();
    List();
    ui_->txtWord->clear();
    const std::string strings = Counted(effect->keywords, "keyword string", "keyword strings");
    Report(tr("'%1' is a noise word now. %2 changed.").arg(ToQt(entry).trimmed(), ToQt(strings)));
}

void fCommonWord::Delete() {
    const auto place = list_->Selected();
    if (!place) return;
    const std::string word = words_.at(*place);
    if (!DeleteListedNoiseWord(db_, noise_, word)) return;
    List();
    Report(tr("'%1' is no noise word any more. Keywords that have it find by it when they are "
              "entered again.")
               .arg(ToQt(word)));
}

void fCommonWord::Report(const QString& result) {
    hasChanged_ = true;
    ui_->lblResult->setText(result);
}

}  // namespace snippetarium
