#include "forms/fEditSearchWord.h"

#include <QHeaderView>

#include "editors/search_words.h"
#include "forms/dialog_help.h"
#include "forms/fKeywords.h"
#include "forms/handler.h"
#include "forms/modal.h"
#include "forms/qt_text.h"
#include "forms/topic_model.h"
#include "keywords/words.h"
#include "store/database.h"
#include "ui_fEditSearchWord.h"

namespace snippetarium {

namespace {

Owner OwnerOf(const Topic& topic) {
    return {static_cast<OwnerKind>(static_cast<std::int32_t>(topic.level) + 1), topic.id};
}

}  // namespace

fEditSearchWord::fEditSearchWord(Database& db, const NoiseWords& noise, std::string word,
                                 SearchWordUse use, QWidget* parent)
    : QDialog(parent),
      db_(db),
      noise_(noise),
      word_(std::move(word)),
      use_(use),
      ui_(std::make_unique<Ui::fEditSearchWord>()) {
    ui_->setupUi(this);
    ui_->txtWord->setText(ToQt(word_));
    ui_->txtWord->selectAll();
    for (QWidget* control :
         {static_cast<QWidget*>(ui_->lblTopics), static_cast<QWidget*>(ui_->lstVwTopic),
          static_cast<QWidget*>(ui_->cmdKeywords)})
        control->setVisible(IsOfIndex());
    if (IsOfIndex()) {
        model_ =
            new TopicModel(topics_, {tr("Procedure Names"), tr("Class"), tr("Application")}, this);
        ui_->lstVwTopic->setModel(model_);
        ui_->lstVwTopic->header()->setSectionResizeMode(QHeaderView::Stretch);
        ListTopics();
    } else {
        resize(width(), sizeHint().height());
    }
    Connect();
}

fEditSearchWord::~fEditSearchWord() = default;

void fEditSearchWord::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::EditSearchWordEvent, body);
}

void fEditSearchWord::Connect() {
    connect(ui_->cmdOK, &QPushButton::clicked, this, [this] { OnEvent([this] { Accept(); }); });
    connect(ui_->cmdDelete, &QPushButton::clicked, this, [this] { OnEvent([this] { Delete(); }); });
    connect(ui_->cmdKeywords, &QPushButton::clicked, this,
            [this] { OnEvent([this] { EditKeywords(); }); });
    connect(ui_->lstVwTopic, &QTreeView::doubleClicked, ui_->cmdKeywords, &QPushButton::click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ConnectHelp(db_, this, ui_->cmdHelp);
}

void fEditSearchWord::ListTopics() {
    if (!ListTopicsOfWord(db_, word_, topics_)) topics_.Replace({});
    model_->Refresh();
    ui_->lstVwTopic->setCurrentIndex(model_->index(0, 0));
    ui_->cmdKeywords->setEnabled(!topics_.Topics().empty());
}

void fEditSearchWord::EditKeywords() {
    const QModelIndex index = ui_->lstVwTopic->currentIndex();
    if (!index.isValid()) return;
    const Owner owner = OwnerOf(TopicOf(topics_.Topics().at(model_->TopicAt(index.row()))));
    const auto stored = LoadOwnerDetails(db_, owner).keywords;
    fKeywords keywords(db_, owner, stored ? stored->entry : KeywordEntry{}, this);
    if (RunModal(keywords, db_.Reporter()) != QDialog::Accepted) return;
    SaveDetailChanges(db_, noise_, owner, {.keywords = keywords.Entry()});
    hasChanged_ = true;
    ListTopics();
}

void fEditSearchWord::Accept() {
    const std::string entry = FromQt(ui_->txtWord->text());
    const std::string newWord(TrimBlanks(entry));
    const bool isDone = newWord == word_ || (CheckSearchWord(db_, noise_, entry) &&
                                             (!IsOfIndex() || RenameIndexWord(db_, word_, entry)));
    if (!isDone) {
        ui_->txtWord->selectAll();
        return ui_->txtWord->setFocus();
    }
    hasChanged_ = hasChanged_ || (IsOfIndex() && newWord != word_);
    word_ = newWord;
    accept();
}

void fEditSearchWord::Delete() {
    if (IsOfIndex() && !RemoveIndexWord(db_, word_)) return;
    hasChanged_ = hasChanged_ || IsOfIndex();
    word_.clear();
    accept();
}

}  // namespace snippetarium
