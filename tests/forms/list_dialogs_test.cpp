#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QTreeWidget>

#include "editors/author_list.h"
#include "editors/class_record.h"
#include "editors/code_record.h"
#include "editors/languages.h"
#include "forms/fAddDate.h"
#include "forms/fAuthors.h"
#include "forms/fCommonWord.h"
#include "forms/fEditSearchWord.h"
#include "forms/fKeywords.h"
#include "forms/fLanguage.h"
#include "forms/fSlctLanguage.h"
#include "store/reads_languages.h"
#include "store/writes_applications.h"
#include "support/message_boxes.h"
#include "tests/forms/dialog_fixture.h"

namespace snippetarium::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kFiftyOne(51, 'x');

/// The small editors, each driven by the names of its controls.
class ListDialogsTest : public DialogFixture {
  protected:
    ListDialogsTest() {
        AddApplication(db_, {.name = "Paint"});
        SaveClassRecord(db_, {.name = "Grid", .appID = 2, .languageID = 1});
        SaveCodeRecord(db_, {.name = "Draw", .classID = 2, .code = "Sub Draw()\r\nEnd Sub"});
    }

    static void Click(QWidget& dialog, const char* button) {
        ASSERT_TRUE(Find<QPushButton>(dialog, button).isEnabled()) << button;
        Find<QPushButton>(dialog, button).click();
    }
    static void Type(QWidget& dialog, const char* entry, const QString& text) {
        Find<QLineEdit>(dialog, entry).setText(text);
        // As keys do: what is left of a filtered list is not selected by itself.
        emit Find<QLineEdit>(dialog, entry).textEdited(text);
    }
    static void Enter(QWidget& dialog, const char* entry, const QString& text) {
        Type(dialog, entry, text);
        PressKey(Find<QWidget>(dialog, entry), Qt::Key_Return);
    }
    /// Clicks the button, which is to be answered by a refusal.
    void ExpectRefusal(QWidget& dialog, const char* button, const std::string& message) {
        modal_.ExpectBox(QMessageBox::Ok);
        Click(dialog, button);
        EXPECT_EQ(modal_.LastText(), message);
        EXPECT_TRUE(dialog.isVisible());
    }
    Texts SearchWords() {
        return Select("SELECT searchWord FROM tblSearchWord ORDER BY searchWord");
    }
    void Give(const Owner& owner, const DetailChanges& changes) {
        SaveDetailChanges(db_, LoadNoiseWords(db_), owner, changes);
    }

    static constexpr Owner kApplication{OwnerKind::Application, 2};
    static constexpr Owner kClass{OwnerKind::Class, 2};
    static constexpr Owner kProcedure{OwnerKind::Procedure, 1};
};

TEST_F(ListDialogsTest, AuthorsAreChosenAddedAndRemovedAndRefusedWhereTheyAreNone) {
    Give(kApplication, {.authors = std::vector<AuthorName>{{"Ann", "", "Lee"}, {"", "", "Fox"}}});
    fAuthors dialog(db_, LoadOwnerDetails(db_, kClass).authors, nullptr);
    dialog.show();
    EXPECT_EQ(Rows(dialog, "lstKnown"), (Texts{"Fox", "Ann Lee"}));

    ExpectRefusal(dialog, "cmdAdd", "Please enter the author's name.");
    Type(dialog, "txtFirst", "  ");
    ExpectRefusal(dialog, "cmdAdd", "Please enter the author's name.");
    Type(dialog, "txtLast", QString::fromStdString(kFiftyOne));
    ExpectRefusal(dialog, "cmdAdd",
                  "A part of the author's name is too long (over 50 characters).");
    Type(dialog, "txtFirst", " Conor ");
    Enter(dialog, "txtLast", "O'Brien \"Con\"");
    EXPECT_EQ(Rows(dialog, "lstAuthors"), Texts{"Conor O'Brien \"Con\""});
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtLast").text(), "");

    Type(dialog, "txtFilter", "LEE");
    EXPECT_EQ(Rows(dialog, "lstKnown"), Texts{"Ann Lee"});
    PressKey(Find<QWidget>(dialog, "txtFilter"), Qt::Key_Down);
    PressKey(Find<QWidget>(dialog, "txtFilter"), Qt::Key_Return);
    EXPECT_EQ(Rows(dialog, "lstAuthors").size(), 2U);
    PressKey(Find<QWidget>(dialog, "txtFilter"), Qt::Key_Down);
    ExpectRefusal(dialog, "cmdChoose", "This author is in the list already.");
    Type(dialog, "txtFirst", "ann");
    Type(dialog, "txtLast", "LEE");
    ExpectRefusal(dialog, "cmdAdd", "This author is in the list already.");

    Find<QListWidget>(dialog, "lstAuthors").setCurrentRow(0);
    emit Find<QShortcut>(Find<QWidget>(dialog, "lstAuthors"), "").activated();  // Del
    EXPECT_EQ(Rows(dialog, "lstAuthors"), Texts{"Ann Lee"});
    Click(dialog, "cmdOK");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    ASSERT_EQ(dialog.Authors().size(), 1U);
    EXPECT_EQ(dialog.Authors()[0].name, (AuthorName{"Ann", "", "Lee"}));
    EXPECT_EQ(Select("SELECT count(*) FROM tblAuthor"), Texts{"2"});
}

TEST_F(ListDialogsTest, ANameThatIsTypedAndNotAddedIsAskedAbout) {
    fAuthors dialog(db_, {}, nullptr);
    dialog.show();
    Type(dialog, "txtLast", "Ray");
    modal_.ExpectBox(QMessageBox::Cancel);
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    modal_.ExpectBox(QMessageBox::Yes);
    Click(dialog, "cmdOK");
    EXPECT_EQ(modal_.LastText(), "Add 'Ray' to the authors?");
    ASSERT_EQ(dialog.Authors().size(), 1U);
    EXPECT_EQ(dialog.Authors()[0].name.last, "Ray");
}

TEST_F(ListDialogsTest, AuthorsWhoTakeEachOthersNamesStayApart) {
    Give(kClass, {.authors = std::vector<AuthorName>{{"", "", "Smith"}, {"", "", "Jones"}}});
    Give(kProcedure, {.authors = std::vector<AuthorName>{{"", "", "Smith"}}});
    const auto names = [&](const Owner& owner) {
        Texts all;
        for (const LinkedAuthor& author : LoadOwnerDetails(db_, owner).authors)
            all.push_back(author.name.last);
        return all;
    };
    const auto change = [&](const std::vector<std::pair<std::size_t, const char*>>& changes) {
        AuthorList list(db_, LoadOwnerDetails(db_, kClass).authors);
        for (const auto& [row, last] : changes)
            EXPECT_TRUE(list.Change(row, {"", "", last}));
        list.Store();
    };
    change({{1, "Brown"}, {0, "Jones"}});
    EXPECT_EQ(names(kClass), (Texts{"Jones", "Brown"}));
    EXPECT_EQ(names(kProcedure), Texts{"Jones"});
    change({{0, "nobody"}, {1, "Jones"}, {0, "Brown"}});
    EXPECT_EQ(names(kClass), (Texts{"Brown", "Jones"}));
    EXPECT_EQ(names(kProcedure), Texts{"Brown"});
}

TEST_F(ListDialogsTest, AChangedAuthorShowsUnderEveryOwnerOnceAccepted) {
    for (const Owner& owner : {kApplication, kClass, kProcedure})
        Give(owner, {.authors = std::vector<AuthorName>{{"An", "", "Lee"}}});
    Give(kProcedure, {.authors = std::vector<AuthorName>{{"An", "", "Lee"}, {"", "", "Fox"}}});
    const auto names = [&](const Owner& owner) {
        Texts all;
        for (const LinkedAuthor& author : LoadOwnerDetails(db_, owner).authors)
            all.push_back(author.name.first + "." + author.name.last);
        return all;
    };
    const auto change = [&](const char* button) {
        fAuthors dialog(db_, LoadOwnerDetails(db_, kClass).authors, nullptr);
        dialog.show();
        Find<QListWidget>(dialog, "lstAuthors").setCurrentRow(0);
        EXPECT_TRUE(Find<QLabel>(dialog, "lblShared").text().contains("all 3 places"));
        Type(dialog, "txtFirst", "Ann");
        Click(dialog, "cmdChange");
        EXPECT_EQ(Rows(dialog, "lstAuthors"), Texts{"Ann Lee"});
        Click(dialog, button);
    };
    change("cmdCancel");
    EXPECT_EQ(names(kApplication), Texts{"An.Lee"});
    change("cmdOK");
    EXPECT_EQ(names(kApplication), Texts{"Ann.Lee"});
    EXPECT_EQ(names(kProcedure), (Texts{"Ann.Lee", ".Fox"}));

    // A name that another author has makes the two one, also where both were named.
    fAuthors dialog(db_, LoadOwnerDetails(db_, kClass).authors, nullptr);
    dialog.show();
    Find<QListWidget>(dialog, "lstAuthors").setCurrentRow(0);
    Type(dialog, "txtFirst", "");
    Type(dialog, "txtLast", "fox");
    Click(dialog, "cmdChange");
    Click(dialog, "cmdOK");
    EXPECT_EQ(names(kApplication), Texts{".Fox"});
    EXPECT_EQ(names(kProcedure), Texts{".Fox"});
    EXPECT_EQ(Select("SELECT count(*) FROM tblAuthor"), Texts{"1"});
}

TEST_F(ListDialogsTest, DatesAreTakenInAnyFormOnceAndInTheirOrder) {
    fAddDate dialog(db_, {"2001-03-14"}, nullptr);
    dialog.show();
    ExpectRefusal(dialog, "cmdAdd", "Please enter a date.");
    Type(dialog, "txtDate", "30.2.2001");
    ExpectRefusal(dialog, "cmdAdd",
                  "'30.2.2001' is no date. Write it like 2001-03-14, 3/14/2001 or March 14, 2001.");
    Type(dialog, "txtDate", "March 14, 2001");
    ExpectRefusal(dialog, "cmdAdd", "This date is in the list already.");
    Enter(dialog, "txtDate", "7-Nov-1999");
    EXPECT_EQ(Rows(dialog, "lstDates"), (Texts{"1999-11-07", "2001-03-14"}));

    Type(dialog, "txtDate", "2/29/2004");
    modal_.Expect([](QWidget& calendar) {
        PressKey(Find<QWidget>(calendar, "qt_calendar_calendarview"), Qt::Key_Right);
        Click(calendar, "cmdOK");
    });
    Click(dialog, "cmdCalendar");
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtDate").text(), "2004-03-01");
    Find<QListWidget>(dialog, "lstDates").setCurrentRow(1);
    emit Find<QShortcut>(Find<QWidget>(dialog, "lstDates"), "").activated();  // Del
    // OK takes over what is still in the entry, and stays where that is none.
    Type(dialog, "txtDate", "soon");
    modal_.ExpectBox(QMessageBox::Ok);
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    Type(dialog, "txtDate", "2004-03-01");
    Click(dialog, "cmdOK");
    EXPECT_EQ(dialog.Dates(), (Texts{"1999-11-07", "2004-03-01"}));
}

TEST_F(ListDialogsTest, LanguagesAreAddedRenamedAndDeletedUnlessTheyAreUsed) {
    fLanguage dialog(db_, nullptr);
    dialog.show();
    const auto select = [&](const char* language) {
        auto& list = Find<QTreeWidget>(dialog, "lstVwLanguage");
        list.setCurrentItem(list.findItems(language, Qt::MatchExactly).value(0));
    };
    const auto count = Rows(dialog, "lstVwLanguage").size();
    Type(dialog, "txtLanguage", " ");
    ExpectRefusal(dialog, "cmdAdd", "Please enter a language.");
    Type(dialog, "txtLanguage", "jAVA");
    ExpectRefusal(dialog, "cmdAdd", "The language you specified already exists.");
    Type(dialog, "txtLanguage", QString::fromStdString(kFiftyOne));
    ExpectRefusal(dialog, "cmdAdd", "The language you specified is too long (over 50 characters).");
    Enter(dialog, "txtLanguage", "Fjölnir's");
    EXPECT_EQ(Rows(dialog, "lstVwLanguage").size(), count + 1);
    EXPECT_NE(dialog.LanguageID(), 0);
    const std::int32_t added = dialog.LanguageID();
    EXPECT_EQ(LanguageByID(db_, added), "Fjölnir's");

    Type(dialog, "txtLanguage", "Java");
    ExpectRefusal(dialog, "cmdRename", "The language you specified already exists.");
    Type(dialog, "txtLanguage", "FJÖLNIR");
    Click(dialog, "cmdRename");
    EXPECT_EQ(LanguageByID(db_, added), "FJÖLNIR");
    Click(dialog, "cmdDelete");
    EXPECT_EQ(Rows(dialog, "lstVwLanguage").size(), count);

    select("Visual Basic");
    EXPECT_EQ(Find<QTreeWidget>(dialog, "lstVwLanguage").currentItem()->text(1), "2");
    ExpectRefusal(dialog, "cmdDelete",
                  "The language 'Visual Basic' cannot be deleted, because 3 classes and procedures "
                  "have it.");
    EXPECT_EQ(Rows(dialog, "lstVwLanguage").size(), count);
}

TEST_F(ListDialogsTest, ALanguageIsChosenByTypingAndMayBeAddedOnTheWay) {
    fSlctLanguage none(db_, 0, nullptr);
    none.show();
    ExpectRefusal(none, "cmdOK", "Please select a language.");
    Enter(none, "txtFilter", "c#");
    EXPECT_EQ(LanguageByID(db_, none.LanguageID()), "C#");

    fSlctLanguage dialog(db_, 2, nullptr);
    dialog.show();
    EXPECT_EQ(Find<QListView>(dialog, "lstLanguage").currentIndex().data(), "Java");
    modal_.Expect([](QWidget& languages) {
        Enter(languages, "txtLanguage", "Zig");
        Click(languages, "cmdClose");
    });
    Click(dialog, "cmdLanguages");
    EXPECT_EQ(dialog.LanguageID(), 2) << "not before OK";
    Click(dialog, "cmdOK");
    EXPECT_EQ(LanguageByID(db_, dialog.LanguageID()), "Zig");
}

TEST_F(ListDialogsTest, KeywordsShowTheirSearchWordsAndOneOfThemCanBeEdited) {
    fKeywords dialog(db_, {OwnerKind::Class, 0}, {"Grid3, 2nd-hand; Form_Load", 3}, nullptr);
    dialog.show();
    EXPECT_EQ(Rows(dialog, "lstWords"), (Texts{"Grid3", "hand", "Form", "Load"}));
    EXPECT_EQ(Find<QComboBox>(dialog, "cmbSeparator").currentText(), "Semicolon  ;");
    auto& text = Find<QPlainTextEdit>(dialog, "txtKeywords");
    text.setPlainText("the Grid grid's, paint;\nThe \"GRID\"");
    EXPECT_EQ(Rows(dialog, "lstWords"), (Texts{"Grid", "grid's", "paint"}));

    const auto edit = [&](int row, const std::function<void(QWidget&)>& action) {
        Find<QListWidget>(dialog, "lstWords").setCurrentRow(row);
        modal_.Expect(action);
        Click(dialog, "cmdEdit");
    };
    edit(0, [](QWidget& editor) {
        EXPECT_FALSE(Find<QWidget>(editor, "lstVwTopic").isVisible());
        Enter(editor, "txtWord", "Raster");
    });
    EXPECT_EQ(text.toPlainText(), "the Raster grid's, paint;\nThe \"Raster\"");
    Find<QComboBox>(dialog, "cmbSeparator").setCurrentIndex(1);
    edit(1, [](QWidget& editor) { Click(editor, "cmdDelete"); });
    EXPECT_EQ(Rows(dialog, "lstWords"), (Texts{"Raster", "paint"}));
    edit(1, [](QWidget& editor) {
        Type(editor, "txtWord", "brush");
        Click(editor, "cmdCancel");
    });
    EXPECT_EQ(Rows(dialog, "lstWords"), (Texts{"Raster", "paint"}));

    Click(dialog, "cmdOK");
    EXPECT_EQ(dialog.Entry().separatorID, 2);
    EXPECT_EQ(dialog.Entry().text, "the Raster, paint;\r\nThe \"Raster\"");
    EXPECT_EQ(SearchWords(), Texts{}) << "storing is the caller's matter";

    fKeywords removal(db_, {OwnerKind::Class, 0}, dialog.Entry(), nullptr);
    removal.show();
    Click(removal, "cmdRemove");
    Click(removal, "cmdOK");
    EXPECT_EQ(removal.Entry().text, "");
}

TEST_F(ListDialogsTest, KeywordsThatAreTooLongAreRefused) {
    fKeywords dialog(db_, kClass, {}, nullptr);
    dialog.show();
    Find<QPlainTextEdit>(dialog, "txtKeywords").setPlainText(QString(64'001, 'a'));
    ExpectRefusal(dialog, "cmdOK",
                  "The keyword text is too long: it has 64,001 characters, and 64,000 can be "
                  "stored.");
}

TEST_F(ListDialogsTest, AWordOfTheIndexIsRenamedForAllAndOneThatIsThereIsShared) {
    Give(kApplication, {.keywords = KeywordEntry{"grid, line", 2}});
    Give(kClass, {.keywords = KeywordEntry{"grid, paint", 2}});
    const NoiseWords noise = LoadNoiseWords(db_);
    fEditSearchWord dialog(db_, noise, "grid", SearchWordUse::Index, nullptr);
    dialog.show();
    EXPECT_EQ(Find<QTreeView>(dialog, "lstVwTopic").model()->rowCount(), 2);
    // clang-format off
    const std::pair<std::string, std::string> refused[] = {
        {"",         "Please enter a new word."},
        {"   ",      "Please enter a new word."},
        {"two more", "Please enter one word. Blanks and punctuation separate words."},
        {"semi;",    "Please enter one word. Blanks and punctuation separate words."},
        {"'quoted'", "Please enter one word. Blanks and punctuation separate words."},
        {"2nd",      "A search word does not begin with a digit."},
        {"The",      "'The' is a noise word, which is never a search word."},
        {kFiftyOne,  "The word you specified is too long (over 50 characters)."},
    };
    // clang-format on
    for (const auto& [entry, message] : refused) {
        Type(dialog, "txtWord", QString::fromStdString(entry));
        ExpectRefusal(dialog, "cmdOK", message);
    }
    EXPECT_EQ(SearchWords(), (Texts{"grid", "line", "paint"}));

    Type(dialog, "txtWord", "LINE");
    modal_.ExpectBox(QMessageBox::No);
    Click(dialog, "cmdOK");
    EXPECT_EQ(SearchWords(), (Texts{"grid", "line", "paint"}));
    modal_.ExpectBox(QMessageBox::Yes);
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.HasChangedCatalogue());
    EXPECT_EQ(LoadOwnerDetails(db_, kApplication).keywords->searchWords, "line");
    EXPECT_EQ(LoadOwnerDetails(db_, kClass).keywords->entry.text, "grid, paint");
    TopicList topics;
    EXPECT_TRUE(ListTopicsOfWord(db_, "line", topics));
    EXPECT_EQ(topics.Topics().size(), 2U);

    // The keywords of what it finds can be edited at once; the class's own say what they are now.
    fEditSearchWord other(db_, noise, "line", SearchWordUse::Index, nullptr);
    other.show();
    auto& list = Find<QTreeView>(other, "lstVwTopic");
    list.setCurrentIndex(
        list.model()->index(list.model()->index(0, 1).data() == "Grid" ? 0 : 1, 0));
    modal_.Expect([](QWidget& keywords) {
        EXPECT_TRUE(Find<QLabel>(keywords, "lblStored").text().contains("line"));
        Find<QPlainTextEdit>(keywords, "txtKeywords").setPlainText("brush, paint");
        Click(keywords, "cmdOK");
    });
    Click(other, "cmdKeywords");
    EXPECT_EQ(SearchWords(), (Texts{"brush", "line", "paint"}));
    EXPECT_EQ(list.model()->rowCount(), 1);

    modal_.ExpectBox(QMessageBox::Yes);
    Click(other, "cmdDelete");
    EXPECT_EQ(other.Word(), "");
    EXPECT_EQ(SearchWords(), (Texts{"brush", "paint"}));
}

TEST_F(ListDialogsTest, NoiseWordsAreAddedAndDeletedAndTellWhatChanges) {
    Give(kApplication, {.keywords = KeywordEntry{"Grid, line", 2}});
    Give(kClass, {.keywords = KeywordEntry{"grid", 2}});
    fCommonWord dialog(db_, nullptr);
    dialog.show();
    const auto count = Rows(dialog, "lstWords").size();
    EXPECT_EQ(dialog.windowTitle(), "Add Noise Word");
    ExpectRefusal(dialog, "cmdAdd", "Please enter a word.");
    Type(dialog, "txtWord", ";-)");
    ExpectRefusal(dialog, "cmdAdd", "Please enter a word.");
    Type(dialog, "txtWord", "line grid");
    ExpectRefusal(dialog, "cmdAdd",
                  "Please enter one word. Blanks and punctuation separate words.");
    Type(dialog, "txtWord", "THE");
    ExpectRefusal(dialog, "cmdAdd", "'THE' is a noise word already.");
    Type(dialog, "txtWord", QString(256, 'x'));
    ExpectRefusal(dialog, "cmdAdd", "The word you specified is too long (over 255 characters).");

    Type(dialog, "txtWord", "GRID");
    modal_.ExpectBox(QMessageBox::No);
    Click(dialog, "cmdAdd");
    EXPECT_EQ(SearchWords(), (Texts{"Grid", "line"}));
    modal_.ExpectBox(QMessageBox::Yes);
    Click(dialog, "cmdAdd");
    EXPECT_TRUE(
        modal_.LastText().starts_with("Make 'GRID' a noise word? 2 keyword strings have it."));
    EXPECT_EQ(SearchWords(), Texts{"line"});
    EXPECT_EQ(Rows(dialog, "lstWords").size(), count + 1);
    EXPECT_EQ(LoadOwnerDetails(db_, kApplication).keywords->entry.text, "line");
    // What nobody has needs no question.
    Enter(dialog, "txtWord", "o'er");
    EXPECT_EQ(Rows(dialog, "lstWords").size(), count + 2);

    Type(dialog, "txtWord", "GRI");
    EXPECT_EQ(Rows(dialog, "lstWords"), Texts{"GRID"});
    PressKey(Find<QWidget>(dialog, "txtWord"), Qt::Key_Down);
    EXPECT_EQ(dialog.windowTitle(), "Delete Noise Word");
    PressKey(Find<QWidget>(dialog, "txtWord"), Qt::Key_Return);
    EXPECT_FALSE(LoadNoiseWords(db_).IsNoiseWord("grid"));
    EXPECT_TRUE(dialog.HasChangedCatalogue());
}

TEST_F(ListDialogsTest, OnlyShowWhatThereIsWhereTheCatalogueIsReadOnly) {
    const std::string path = folder_.Path();
    Database reader(qtHost_.Interfaces(), CatalogueProviders(), path);
    reader.SetMode(AccessMode::Read);
    OpenCatalogue(reader);
    fLanguage languages(reader, nullptr);
    languages.show();
    fCommonWord noise(reader, nullptr);
    noise.show();
    Type(languages, "txtLanguage", "Zig");
    Type(noise, "txtWord", "the");
    PressKey(Find<QWidget>(noise, "txtWord"), Qt::Key_Down);
    for (QWidget* dialog : {static_cast<QWidget*>(&languages), static_cast<QWidget*>(&noise)}) {
        EXPECT_FALSE(Find<QPushButton>(*dialog, "cmdAdd").isEnabled());
        EXPECT_FALSE(Find<QPushButton>(*dialog, "cmdDelete").isEnabled());
    }
    EXPECT_FALSE(Find<QPushButton>(languages, "cmdRename").isEnabled());
    CloseCatalogue(reader);
}

}  // namespace
}  // namespace snippetarium::test
