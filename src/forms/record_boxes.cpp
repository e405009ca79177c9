#include "forms/record_boxes.h"

#include <QComboBox>
#include <QSignalBlocker>

#include "editors/catalogue_lists.h"
#include "forms/icons.h"
#include "forms/qt_text.h"
#include "navigator/node.h"
#include "store/owner.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"

namespace snippetarium {

namespace {

struct Columns {
    const char* id;
    const char* name;
};

void AddRows(QComboBox* box, Recordset rows, const Columns& columns, const QIcon& icon = {}) {
    for (; !rows.EndOfFile(); rows.MoveNext())
        box->addItem(icon, ToQt(rows[columns.name].Text()).simplified(), rows[columns.id].Long());
}

}  // namespace

void FillApplicationBox(Database& db, QComboBox* box, std::int32_t selectedID) {
    const QSignalBlocker quiet(box);
    box->clear();
    AddRows(box, AppNameRS(db), {"appID", "appName"}, Icon("application"));
    const int undefined = box->findData(kUndefinedApplicationID);
    if (undefined >= 0) box->removeItem(undefined);
    box->insertItem(0, Icon("application"), ToQt(kUndefinedApplicationText),
                    kUndefinedApplicationID);
    box->setCurrentIndex(box->findData(ApplicationOrUndefined(selectedID)));
}

void FillClassBox(Database& db, QComboBox* box, std::int32_t appID, std::int32_t selectedID) {
    const QSignalBlocker quiet(box);
    box->clear();
    box->setPlaceholderText(ToQt(kUndefinedClassText));
    AddRows(box, ClassIDNameRSByAppID(db, appID), {"classID", "className"}, Icon("class"));
    box->setCurrentIndex(box->findData(selectedID));
}

void FillLanguageBox(Database& db, QComboBox* box, std::int32_t selectedID) {
    const QSignalBlocker quiet(box);
    box->clear();
    AddRows(box, AllLanguages(db), {"languageID", "language"});
    box->setCurrentIndex(box->findData(selectedID));
}

std::int32_t SelectedID(const QComboBox* box) {
    return box->currentData().toInt();
}

void ChosenID::Keep(const QComboBox* box, std::int32_t storedID) {
    stored_ = storedID;
    shown_ = SelectedID(box);
}

std::int32_t ChosenID::Of(const QComboBox* box) const {
    const std::int32_t selected = SelectedID(box);
    return selected == shown_ ? stored_ : selected;
}

}  // namespace snippetarium
