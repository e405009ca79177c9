#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <memory>
#include <set>

#include "forms/fAddClass.h"
#include "forms/fAddCode.h"
#include "forms/fAddDate.h"
#include "forms/fApplication.h"
#include "forms/fAuthors.h"
#include "forms/fCalendar.h"
#include "forms/fClass.h"
#include "forms/fCode.h"
#include "forms/fCommonWord.h"
#include "forms/fDrafts.h"
#include "forms/fEditSearchWord.h"
#include "forms/fExport.h"
#include "forms/fImport.h"
#include "forms/fKeywords.h"
#include "forms/fLanguage.h"
#include "forms/fSaveTo.h"
#include "forms/fSearch.h"
#include "forms/fSlctLanguage.h"
#include "forms/fTopicsFound.h"
#include "tests/forms/dialog_fixture.h"
#include "tests/forms/named_control.h"

namespace snippetarium::test {
namespace {

// clang-format off
constexpr NamedControl kControls[] = {
    {"fAuthors",        "lstAuthors",    "QListWidget",    ""},
    {"fAuthors",        "txtFilter",     "QLineEdit",      ""},
    {"fAuthors",        "lstKnown",      "QListView",      ""},
    {"fAuthors",        "cmdChoose",     "QPushButton",    "Choo&se"},
    {"fAuthors",        "txtFirst",      "QLineEdit",      ""},
    {"fAuthors",        "txtMiddle",     "QLineEdit",      ""},
    {"fAuthors",        "txtLast",       "QLineEdit",      ""},
    {"fAuthors",        "cmdAdd",        "QPushButton",    "&Add"},
    {"fAuthors",        "cmdChange",     "QPushButton",    "Chan&ge"},
    {"fAuthors",        "cmdRemove",     "QPushButton",    "&Remove"},
    {"fAddDate",        "txtDate",       "QLineEdit",      ""},
    {"fAddDate",        "cmdCalendar",   "QPushButton",    "Cale&ndar..."},
    {"fAddDate",        "lstDates",      "QListWidget",    ""},
    {"fAddDate",        "cmdOK",         "QPushButton",    "&OK"},
    {"fLanguage",       "lstVwLanguage", "QTreeWidget",    ""},
    {"fLanguage",       "txtLanguage",   "QLineEdit",      ""},
    {"fLanguage",       "cmdRename",     "QPushButton",    "&Rename"},
    {"fLanguage",       "cmdDelete",     "QPushButton",    "&Delete"},
    {"fSlctLanguage",   "lstLanguage",   "QListView",      ""},
    {"fSlctLanguage",   "cmdLanguages",  "QPushButton",    "&Edit Languages..."},
    {"fKeywords",       "txtKeywords",   "QPlainTextEdit", ""},
    {"fKeywords",       "cmbSeparator",  "QComboBox",      ""},
    {"fKeywords",       "lstWords",      "QListWidget",    ""},
    {"fKeywords",       "cmdEdit",       "QPushButton",    "&Edit Word..."},
    {"fKeywords",       "cmdRemove",     "QPushButton",    "&Remove Keywords"},
    {"fEditSearchWord", "txtWord",       "QLineEdit",      ""},
    {"fEditSearchWord", "lstVwTopic",    "QTreeView",      ""},
    {"fEditSearchWord", "cmdDelete",     "QPushButton",    "&Delete"},
    {"fCommonWord",     "txtWord",       "QLineEdit",      ""},
    {"fCommonWord",     "lstWords",      "QListView",      ""},
    {"fCommonWord",     "cmdAdd",        "QPushButton",    "&Add"},
    {"fCommonWord",     "cmdDelete",     "QPushButton",    "&Delete"},
    {"fAddClass",       "trVwSource",    "QTreeView",      ""},
    {"fAddClass",       "txtName",       "QLineEdit",      ""},
    {"fAddCode",        "lblSource",     "QLabel",         "&Procedure to copy:"},
    {"fApplication", "txtName",          "QLineEdit",   ""},
    {"fApplication", "txtPath",          "QLineEdit",   ""},
    {"fApplication", "cmdPath",          "QPushButton", "&Browse..."},
    {"fApplication", "txtVersion",       "QLineEdit",   ""},
    {"fApplication", "txtComment",       "QPlainTextEdit", ""},
    {"fApplication", "txtKeywords",      "QLineEdit",   ""},
    {"fApplication", "cmdKeywords",      "QPushButton", "&Keywords..."},
    {"fApplication", "txtAuthors",       "QLineEdit",   ""},
    {"fApplication", "cmdAuthors",       "QPushButton", "A&uthors..."},
    {"fApplication", "txtDates",         "QLineEdit",   ""},
    {"fApplication", "cmdDates",         "QPushButton", "&Dates..."},
    {"fApplication", "cmdSave",          "QPushButton", "&Save"},
    {"fApplication", "cmdOK",            "QPushButton", "&OK"},
    {"fApplication", "cmdCancel",        "QPushButton", "&Cancel"},
    {"fApplication", "cmdHelp",          "QPushButton", "&Help"},
    {"fClass",       "txtName",          "QLineEdit",   ""},
    {"fClass",       "cmbApplication",   "QComboBox",   ""},
    {"fClass",       "cmbLanguage",      "QComboBox",   ""},
    {"fClass",       "cmdLanguage",      "QPushButton", "Se&lect..."},
    {"fClass",       "txtPath",          "QLineEdit",   ""},
    {"fClass",       "txtComment",       "QPlainTextEdit", ""},
    {"fClass",       "txtText",          "QPlainTextEdit", ""},
    {"fClass",       "cmdOK",            "QPushButton", "&OK"},
    {"fCode",        "txtName",          "QLineEdit",   ""},
    {"fCode",        "cmbApplication",   "QComboBox",   ""},
    {"fCode",        "cmbClass",         "QComboBox",   ""},
    {"fCode",        "cmbLanguage",      "QComboBox",   ""},
    {"fCode",        "txtComment",       "QPlainTextEdit", ""},
    {"fCode",        "txtCode",          "QPlainTextEdit", ""},
    {"fCode",        "cmdOK",            "QPushButton", "&OK"},
    {"fDrafts",      "lstDrafts",        "QListWidget", ""},
    {"fDrafts",      "cmdOpen",          "QPushButton", "&Go On"},
    {"fDrafts",      "cmdThrowAway",     "QPushButton", "&Throw Away..."},
    {"fImport",      "dlstSrcDrive",     "QComboBox",   ""},
    {"fImport",      "lblDrive",         "QLabel",      "&Drive:"},
    {"fImport",      "dlstSrcDir",       "QTreeWidget", ""},
    {"fImport",      "lblFolder",        "QLabel",      "F&older:"},
    {"fImport",      "flstSrcFiles",     "QListView",   ""},
    {"fImport",      "lblSrcFile",       "QLabel",      "&File:"},
    {"fImport",      "chkSubfolder",     "QCheckBox",   "Include &Subfolder"},
    {"fImport",      "lstSrcFiles",      "QListView",   ""},
    {"fImport",      "lstSelFiles",      "QListView",   ""},
    {"fImport",      "lblFileSelected",  "QLabel",      "A &List of Files to Import:"},
    {"fImport",      "cmdAddOne",        "QPushButton", ""},
    {"fImport",      "cmdAddAll",        "QPushButton", ""},
    {"fImport",      "cmdRmvOne",        "QPushButton", ""},
    {"fImport",      "cmdRmvAll",        "QPushButton", ""},
    {"fImport",      "txtApp",           "QLineEdit",   ""},
    {"fImport",      "lblApplication",   "QLabel",      "&Application:"},
    {"fImport",      "txtAppPath",       "QLineEdit",   ""},
    {"fImport",      "lblAppPath",       "QLabel",      "Application &Path:"},
    {"fImport",      "txtLanguage",      "QLineEdit",   ""},
    {"fImport",      "lblLanguage",      "QLabel",      "La&nguage:"},
    {"fImport",      "cmdImport",        "QPushButton", "I&mport"},
    {"fImport",      "cmdExit",          "QPushButton", "E&xit"},
    {"fImport",      "lblTime",          "QLabel",      ""},
    {"fExport",      "cmdHelp",          "QPushButton", "&Help"},
    {"fSaveTo",      "cmdHelp",          "QPushButton", "&Help"},
    {"fCalendar",    "cmdOK",            "QPushButton", "&OK"},
};
constexpr const char* kForms[] = {"fApplication", "fClass", "fCode", "fDrafts", "fAuthors", "fAddDate", "fLanguage", "fSlctLanguage", "fKeywords", "fEditSearchWord", "fCommonWord", "fAddClass", "fAddCode", "fImport", "fExport", "fSaveTo", "fSearch", "fTopicsFound", "fCalendar"};
// clang-format on

class DialogsTest : public DialogFixture {
  protected:
    /// A form as the program opens it.
    std::unique_ptr<QWidget> Make(const std::string& form) {
        if (auto listDialog = MakeListDialog(form)) return listDialog;
        if (auto editor = MakeEditor(form)) return editor;
        if (form == "fImport") return std::make_unique<fImport>(db_, files_, state_, nullptr);
        if (form == "fSaveTo") return std::make_unique<fSaveTo>(db_, files_, "/", nullptr);
        if (form == "fSearch") return std::make_unique<fSearch>(db_, nullptr);
        if (form == "fTopicsFound") return std::make_unique<fTopicsFound>(db_, topics_, nullptr);
        if (form == "fCalendar")
            return std::make_unique<fCalendar>(db_, QDate(2026, 1, 2), nullptr);
        return std::make_unique<fExport>(
            db_, files_, ExportTarget{NodeKind::Class, {2, 3, 0}, "Export class: Grid", "Grid.cls"},
            nullptr);
    }

    std::unique_ptr<QWidget> MakeListDialog(const std::string& form) {
        if (form == "fAuthors")
            return std::make_unique<fAuthors>(db_, std::vector<LinkedAuthor>{}, nullptr);
        if (form == "fAddDate")
            return std::make_unique<fAddDate>(db_, std::vector<std::string>{}, nullptr);
        if (form == "fLanguage") return std::make_unique<fLanguage>(db_, nullptr);
        if (form == "fSlctLanguage") return std::make_unique<fSlctLanguage>(db_, 0, nullptr);
        if (form == "fKeywords")
            return std::make_unique<fKeywords>(db_, Owner{}, KeywordEntry{"word"}, nullptr);
        if (form == "fEditSearchWord")
            return std::make_unique<fEditSearchWord>(db_, noise_, "word", SearchWordUse::Index,
                                                     nullptr);
        if (form == "fCommonWord") return std::make_unique<fCommonWord>(db_, nullptr);
        if (form == "fAddClass") return std::make_unique<fAddClass>(db_, 1, nullptr);
        if (form == "fAddCode") return std::make_unique<fAddCode>(db_, 1, nullptr);
        return nullptr;
    }

    std::unique_ptr<QWidget> MakeEditor(const std::string& form) {
        if (form == "fApplication")
            return std::make_unique<fApplication>(db_, NewApplicationEditor(db_, noise_));
        if (form == "fClass") return std::make_unique<fClass>(db_, NewClassEditor(db_, noise_, 0));
        if (form == "fCode") return std::make_unique<fCode>(db_, NewCodeEditor(db_, noise_, 0), 0);
        if (form == "fDrafts")
            return std::make_unique<fDrafts>(db_, std::vector<Draft>(1), nullptr);
        return nullptr;
    }

    ImportState state_;
    TopicList topics_;
    NoiseWords noise_;
};

TEST_F(DialogsTest, HaveControlsOfTheNamesKindsAndCaptionsThatTheyAreKnownBy) {
    for (const NamedControl& row : kControls) {
        const std::unique_ptr<QWidget> form = Make(row.form);
        EXPECT_EQ(form->objectName(), row.form);
        const auto* control = form->findChild<QWidget*>(row.name);
        ASSERT_NE(control, nullptr) << row.form << "." << row.name;
        EXPECT_TRUE(control->inherits(row.kind)) << row.form << "." << row.name;
        if (*row.caption == '\0') continue;
        EXPECT_EQ(CaptionOf(*control), row.caption) << row.name;
    }
    const std::unique_ptr<QWidget> import = Make("fImport");
    import->show();
    EXPECT_FALSE(Find<QListView>(*import, "flstSrcFiles").isVisible());
    EXPECT_EQ(Find<QListView>(*import, "lstSelFiles").toolTip(), "Please fill the empty boxes");
    EXPECT_EQ(Find<QLineEdit>(*import, "txtApp").toolTip(),
              "Please add an application if the code file belongs to an application");
}

TEST_F(DialogsTest, OpenTheirHelpAtF1InEachControlAndAtTheHelpButton) {
    for (const char* form : kForms) {
        const std::unique_ptr<QWidget> window = Make(form);
        window->show();
        for (QWidget* control : window->findChildren<QWidget*>()) {
            const bool takesKeys = control->isVisible() && control->focusPolicy() != Qt::NoFocus;
            if (!takesKeys || control->objectName().startsWith("qt_")) continue;
            qtHost_.Help().Close();
            PressKey(*control, Qt::Key_F1);
            EXPECT_TRUE(qtHost_.Help().IsVisible())
                << form << "." << control->objectName().toStdString();
        }
        auto* const help = window->findChild<QPushButton*>("cmdHelp");
        if (help == nullptr) continue;
        qtHost_.Help().Close();
        help->click();
        EXPECT_TRUE(qtHost_.Help().IsVisible()) << form;
    }
}

TEST_F(DialogsTest, GiveEveryControlANameToBeReadAndEveryAccessKeyOnce) {
    for (const char* form : kForms) {
        const std::unique_ptr<QWidget> window = Make(form);
        std::set<QString> keys;
        for (const QWidget* control : window->findChildren<QWidget*>()) {
            const QString name = control->objectName();
            if (name.isEmpty() || name.startsWith("qt_") || control->inherits("QScrollBar"))
                continue;
            const QString caption = QString::fromStdString(CaptionOf(*control));
            const bool canHaveFocus =
                control->focusPolicy() != Qt::NoFocus && !control->inherits("QHeaderView");
            EXPECT_TRUE(!canHaveFocus || !caption.isEmpty() || !control->accessibleName().isEmpty())
                << form << "." << name.toStdString();
            const bool hasKey = control->inherits("QAbstractButton") || control->inherits("QLabel");
            const QKeySequence key = hasKey ? QKeySequence::mnemonic(caption) : QKeySequence();
            if (key.isEmpty()) continue;
            EXPECT_TRUE(keys.insert(key.toString()).second)
                << form << " has " << key.toString().toStdString() << " twice";
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
