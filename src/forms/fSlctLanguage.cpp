#include "forms/fSlctLanguage.h"

#include <algorithm>

#include "editors/catalogue_lists.h"
#include "editors/field_rules.h"
#include "forms/dialog_help.h"
#include "forms/fLanguage.h"
#include "forms/filtered_list.h"
#include "forms/handler.h"
#include "forms/modal.h"
#include "store/database.h"
#include "ui_fSlctLanguage.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNoLanguage = "Please select a language.";

}  // namespace

fSlctLanguage::fSlctLanguage(Database& db, std::int32_t languageID, QWidget* parent)
    : QDialog(parent),
      db_(db),
      languageID_(languageID),
      ui_(std::make_unique<Ui::fSlctLanguage>()) {
    ui_->setupUi(this);
    list_ = new FilteredList(ui_->txtFilter, ui_->lstLanguage);
    List(languageID_);
    Connect();
}

fSlctLanguage::~fSlctLanguage() = default;

void fSlctLanguage::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::SelectLanguageEvent, body);
}

void fSlctLanguage::Connect() {
    connect(ui_->cmdLanguages, &QPushButton::clicked, this,
            [this] { OnEvent([this] { EditLanguages(); }); });
    connect(ui_->cmdOK, &QPushButton::clicked, this, [this] { OnEvent([this] { Accept(); }); });
    connect(ui_->lstLanguage, &QListView::doubleClicked, ui_->cmdOK, &QPushButton::click);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    // What is left of the list while one types is what one means.
    connect(ui_->txtFilter, &QLineEdit::textEdited, this, [this] { list_->SelectFirst(); });
    ConnectHelp(db_, this, ui_->cmdHelp);
}

void fSlctLanguage::List(std::int32_t selectedID) {
    languageIDs_.clear();
    std::vector<std::string> names;
    for (Recordset row = AllLanguages(db_); !row.EndOfFile(); row.MoveNext()) {
        languageIDs_.push_back(row["languageID"].Long());
        names.push_back(row["language"].Text());
    }
    list_->SetTexts(std::move(names));
    const auto found = std::ranges::find(languageIDs_, selectedID);
    if (found != languageIDs_.end())
        list_->Select(static_cast<std::size_t>(found - languageIDs_.begin()));
}

std::int32_t fSlctLanguage::Selected() const {
    const auto place = list_->Selected();
    return place ? languageIDs_.at(*place) : 0;
}

void fSlctLanguage::EditLanguages() {
    fLanguage languages(db_, this);
    RunModal(languages, db_.Reporter());
    List(languages.LanguageID());
}

void fSlctLanguage::Accept() {
    if (Selected() == 0) {
        RefuseEntry(db_, kNoLanguage);
        return ui_->txtFilter->setFocus();
    }
    languageID_ = Selected();
    accept();
}

}  // namespace snippetarium
