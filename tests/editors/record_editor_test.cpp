#include "editors/record_editor.h"

#include <gtest/gtest.h>

#include "editors/application_editor.h"
#include "editors/class_editor.h"
#include "editors/code_editor.h"
#include "editors/renaming.h"
#include "export/comment_header.h"
#include "store/deletion.h"
#include "tests/editors/editors_fixture.h"

namespace snippetarium::test {
namespace {

constexpr StandardAnswer kYes = StandardAnswer::Yes;
constexpr StandardAnswer kNo = StandardAnswer::No;
constexpr StandardAnswer kCancel = StandardAnswer::Cancel;

class RecordEditorTest : public EditorsFixture {
  protected:
    RecordEditorTest() {
        // Where nothing else is asked, nobody is asked for keywords.
        SaveDetailChanges(db_, noise_, {OwnerKind::Procedure, 1},
                          {.authors = std::vector{AuthorName{"Ann", "", "Lee"}},
                           .keywords = KeywordEntry{"draw", 1}});
    }

    std::unique_ptr<CodeEditor> OpenDraw() { return OpenCodeEditor(db_, noise_, 1); }
    void Expect(StandardAnswer answer) { host_.messages.Expect(answer); }
    /// The question that was asked, up to what can be answered.
    std::string TakeQuestion() {
        const std::string text = TakeBox().text;
        return text.substr(0, text.find("\r\n\r\n"));
    }
    void TakeBoxes() { host_.messages.shown.clear(); }
    void Run(const std::string& script) { db_.GetConnection().RunScript(script); }

    NoiseWords noise_;
};

TEST_F(RecordEditorTest, HasOneKeyForARecordAndNoneForANewOne) {
    const struct {
        std::unique_ptr<RecordEditor> editor;
        std::string_view caption;
        std::optional<EditorKey> key;
    } cases[] = {
        {NewApplicationEditor(db_, noise_), "New Application", {}},
        {OpenApplicationEditor(db_, noise_, 2), "Edit Application", {{OwnerKind::Application, 2}}},
        {NewClassEditor(db_, noise_, 2), "New Class", {}},
        {OpenClassEditor(db_, noise_, 2), "Edit Class", {{OwnerKind::Class, 2}}},
        {NewCodeEditor(db_, noise_, 2), "New Procedure", {}},
        {OpenCodeEditor(db_, noise_, 1), "Edit Procedure", {{OwnerKind::Procedure, 1}}},
    };
    for (const auto& [editor, caption, key] : cases) {
        ASSERT_TRUE(editor);
        EXPECT_EQ(editor->Caption(), caption);
        EXPECT_EQ(editor->Key(), key);
        EXPECT_FALSE(editor->IsChanged());
    }
    EXPECT_FALSE(OpenApplicationEditor(db_, noise_, 99));
    EXPECT_FALSE(OpenClassEditor(db_, noise_, 99));
    EXPECT_FALSE(OpenCodeEditor(db_, noise_, 99));
}

TEST_F(RecordEditorTest, StartsNewRecordsInTheirParentsLanguage) {
    EXPECT_EQ(NewCodeEditor(db_, noise_, 3)->Record().languageID, 2);
    EXPECT_EQ(NewCodeEditor(db_, noise_, 0)->Record().classID, 1);
    EXPECT_EQ(NewClassEditor(db_, noise_, 2)->Record().languageID, 2);
    EXPECT_EQ(NewClassEditor(db_, noise_, 0)->Record().languageID, 1);
}

TEST_F(RecordEditorTest, StoresANewRecordOfEachKindWithItsDetails) {
    const auto fill = [](RecordEditor& editor) {
        editor.Details() = {.authors = {{"Bob", "J.", "Ray"}},
                            .dates = {"3/14/2001"},
                            .keywords = {"grid, line", 2}};
        EXPECT_TRUE(editor.IsChanged());
    };
    const auto application = NewApplicationEditor(db_, noise_);
    application->Record() = {.name = "New", .path = "C:\\New", .version = "1.0", .comment = "c"};
    const auto aClass = NewClassEditor(db_, noise_, 2);
    aClass->Record().name = "New.java";
    const auto code = NewCodeEditor(db_, noise_, 3);
    code->Record().name = "draw()";
    code->Record().code = "void draw() {}";
    const struct {
        RecordEditor& editor;
        NodeIDs node;
    } cases[] = {{*application, {3, 0, 0}}, {*aClass, {2, 4, 0}}, {*code, {2, 3, 2}}};
    for (const auto& [editor, node] : cases) {
        fill(editor);
        const SaveOutcome outcome = editor.Save();
        EXPECT_EQ(outcome.result, SaveResult::Saved);
        EXPECT_EQ(outcome.before, NodeIDs{});
        EXPECT_EQ(outcome.node, node);
        EXPECT_FALSE(editor.IsChanged());
        EXPECT_EQ(editor.Details().dates, std::vector<std::string>{"2001-03-14"});
        const OwnerDetails details = LoadOwnerDetails(db_, {editor.Kind(), editor.ID()});
        EXPECT_EQ(details.authors.at(0).name, (AuthorName{"Bob", "J.", "Ray"}));
        EXPECT_EQ(details.keywords->searchWords, "grid line");
    }
    EXPECT_EQ(LoadApplicationRecord(db_, 3), application->Record());
    EXPECT_EQ(TextOfClass(3), "/***Procedure draw()***/");
}

TEST_F(RecordEditorTest, AsksOnceForKeywordsAndStoresThoseAddedThen) {
    const auto editor = NewClassEditor(db_, noise_, 2);
    editor->Record().name = "Grid";
    Expect(kYes);
    EXPECT_TRUE(editor->Save().wantsKeywords);
    EXPECT_EQ(TakeBox(), (ShownBox{BoxKind::YesNo, "Snippetarium Question",
                                   "Keywords help to find this class easily.\r\n\r\nWould you like "
                                   "to add keywords to this class?"}));
    editor->Record().comment = "x";
    EXPECT_FALSE(editor->Save().wantsKeywords);
    editor->Details().keywords.text = "grid";
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    EXPECT_EQ(Select("SELECT k.keyword FROM tblKeyword k INNER JOIN tblClass cls ON "
                     "k.keywordID = cls.keywordID"),
              (Rows{"grid"}));
}

TEST_F(RecordEditorTest, WritesNothingWhereNothingWasChanged) {
    const auto editor = OpenDraw();
    editor->Record().code += "x";
    editor->Record() = LoadCodeRecord(db_, 1).value();
    TakeStatements();
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    editor->Details().authors.push_back({"", "", "Ray"});
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    for (const std::string& statement : TakeStatements())
        EXPECT_EQ(statement.find("UPDATE"), std::string::npos) << statement;
}

struct Conflict {
    std::string_view elsewhere;
    StandardAnswer answer;
    SaveResult result;
    /// Name, code and comment, as they are stored then.
    std::string_view stored;
};
// The user changes the code and leaves the rest alone.
// clang-format off
constexpr Conflict kConflicts[] = {
    {"UPDATE tblCode SET codeComment = 'theirs'", kYes, SaveResult::Saved, "Draw|mine|theirs"},
    {"UPDATE tblCode SET codeComment = 'theirs'", kNo, SaveResult::Reloaded, "Draw|Sub Draw()\r\nEnd Sub|theirs"},
    {"UPDATE tblCode SET codeComment = 'theirs'", kCancel, SaveResult::NotSaved, "Draw|Sub Draw()\r\nEnd Sub|theirs"},
    {"UPDATE tblCode SET code = 'theirs'", kYes, SaveResult::Saved, "Draw|mine|-"},
    {"UPDATE tblCode SET code = 'theirs'", kNo, SaveResult::Reloaded, "Draw|theirs|-"},
    {"UPDATE tblCode SET code = 'theirs'", kCancel, SaveResult::NotSaved, "Draw|theirs|-"},
};
// clang-format on

TEST_F(RecordEditorTest, AsksWhatToDoWhereTheRecordWasChangedMeanwhile) {
    for (const Conflict& conflict : kConflicts) {
        SCOPED_TRACE(conflict.stored);
        Run("UPDATE tblCode SET code = 'Sub Draw()' || char(13, 10) || 'End Sub', codeComment = "
            "NULL");
        const auto editor = OpenDraw();
        editor->Record().code = "mine";
        Run(std::string(conflict.elsewhere));
        Expect(conflict.answer);
        EXPECT_EQ(editor->Save().result, conflict.result);
        EXPECT_EQ(TakeQuestion().substr(0, 60),
                  "This procedure has been changed since it was opened here (it");
        EXPECT_EQ(Select("SELECT codeName, code, codeComment FROM tblCode"),
                  (Rows{std::string(conflict.stored)}));
        EXPECT_EQ(editor->IsChanged(), conflict.answer == kCancel);
        const CodeRecord stored = LoadCodeRecord(db_, 1).value();
        EXPECT_EQ(editor->Record().code, conflict.answer == kCancel ? "mine" : stored.code);
        EXPECT_EQ(editor->Record() == stored, conflict.answer != kCancel);
    }
}

TEST_F(RecordEditorTest, AsksNothingWhereNoWorkCanBeLost) {
    // Nothing was changed here.
    auto editor = OpenDraw();
    Run("UPDATE tblCode SET code = 'theirs'");
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    EXPECT_EQ(editor->Record().code, "theirs");
    // The same was changed.
    editor->Record().code = "both";
    Run("UPDATE tblCode SET code = 'both'");
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    // What this editor stored itself.
    editor->Record().comment = "Draws.";
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    editor->Record().name = "Paint";
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    EXPECT_EQ(TextOfClass(2), "Option Explicit\r\n'***Procedure Paint***\r\n");
}

TEST_F(RecordEditorTest, JoinsDetailsThatWereChangedMeanwhile) {
    const auto editor = OpenDraw();
    editor->Details().dates = {"2001-03-14"};
    SaveDetailChanges(db_, noise_, {OwnerKind::Procedure, 1},
                      {.authors = std::vector{AuthorName{"", "", "Ray"}},
                       .keywords = KeywordEntry{"line; grid", 3}});
    Expect(kYes);
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    EXPECT_EQ(TakeQuestion(),
              "This procedure has been changed since it was opened here (its authors, its "
              "keywords, its separator).");
    const EditedDetails expected{
        .authors = {{"", "", "Ray"}}, .dates = {"2001-03-14"}, .keywords = {"line; grid", 3}};
    EXPECT_EQ(DetailsToEdit(LoadOwnerDetails(db_, {OwnerKind::Procedure, 1})), expected);
    EXPECT_EQ(editor->Details(), expected);
}

TEST_F(RecordEditorTest, StoresARecordAsANewOneThatWasDeletedMeanwhile) {
    const auto editor = OpenDraw();
    editor->Record().comment = "'*mine";
    DeleteCode(db_, 1);
    TakeBoxes();
    Expect(kNo);
    EXPECT_EQ(editor->Save().result, SaveResult::NotSaved);
    EXPECT_EQ(TakeQuestion(), "This procedure has been deleted since it was opened here.");
    EXPECT_EQ(Select("SELECT codeID FROM tblCode"), Rows{});

    Expect(kYes);
    const SaveOutcome outcome = editor->Save();
    TakeBoxes();
    EXPECT_EQ(outcome.result, SaveResult::Saved);
    EXPECT_EQ(outcome.before, NodeIDs{});
    EXPECT_EQ(outcome.node, (NodeIDs{2, 2, 2}));
    EXPECT_EQ(Select("SELECT codeName, code, codeComment FROM tblCode"),
              (Rows{"Draw|Sub Draw()\r\nEnd Sub|'*mine"}));
    const OwnerDetails details = LoadOwnerDetails(db_, {OwnerKind::Procedure, 2});
    EXPECT_EQ(details.authors.at(0).name.last, "Lee");
    EXPECT_EQ(details.keywords->entry.text, "draw");
    EXPECT_EQ(TextOfClass(2), "Option Explicit\r\n'***Procedure Draw***\r\n");
}

TEST_F(RecordEditorTest, RefusesWhatCannotBeStoredAndKeepsItForTheUser) {
    const auto code = OpenDraw();
    code->Record().name = "";
    EXPECT_TRUE(code->Save().isRefused);
    EXPECT_EQ(TakeBox().text, "Please enter a name.");
    code->Record().name = "Draw2";
    code->Details().dates = {"no date"};
    EXPECT_EQ(code->Save().result, SaveResult::NotSaved);
    EXPECT_NE(TakeBox().text.find("'no date' is no date"), std::string::npos);
    EXPECT_EQ(code->Record().name, "Draw2");
    EXPECT_EQ(LoadCodeRecord(db_, 1)->name, "Draw");

    // Its class went with it.
    code->Details().dates = {};
    DeleteClass(db_, 2);
    TakeBoxes();
    Expect(kYes);
    EXPECT_EQ(code->Save().result, SaveResult::NotSaved);
    EXPECT_EQ(host_.messages.shown.size(), 2U);
    TakeBoxes();
    code->Record().classID = 3;
    EXPECT_EQ(code->Save().node, (NodeIDs{2, 3, 2}));
}

TEST_F(RecordEditorTest, GoesOnWhereAFailureStoppedIt) {
    const auto editor = NewCodeEditor(db_, noise_, 2);
    editor->Record().name = "Paint";
    editor->Details().keywords.text = "paint";
    editor->Details().dates = {"2001-03-14"};
    RefuseInsertsInto("tblDate");
    EXPECT_EQ(editor->Save().result, SaveResult::NotSaved);
    ExpectFailedStatement();
    EXPECT_EQ(editor->Details().dates.size(), 1U);
    Run("DROP TRIGGER refusetblDate");
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    EXPECT_EQ(Select("SELECT codeName FROM tblCode"), (Rows{"Draw", "Paint"}));
    EXPECT_EQ(LoadOwnerDetails(db_, {OwnerKind::Procedure, 2}).dates.size(), 1U);
}

TEST_F(RecordEditorTest, AddsARecordOnceThoughAStatementBehindItsRowFails) {
    const char* const failures[] = {
        "UPDATE OF codeComment ON tblCode",
        "UPDATE OF classDI ON tblClass",
        "INSERT ON tblCode_Link_Language",
    };
    for (const std::string failure : failures) {
        SCOPED_TRACE(failure);
        const std::string name = "Paint" + std::to_string(failure.size());
        const auto editor = NewCodeEditor(db_, noise_, 2);
        editor->Record().name = name;
        editor->Record().code = "Sub Paint()";
        editor->Record().comment = "Paints.";
        editor->Details().keywords.text = "paint";
        Run("CREATE TRIGGER refuse BEFORE " + failure +
            " BEGIN SELECT RAISE(ABORT, 'the disk is full'); END");
        const SaveOutcome first = editor->Save();
        ExpectFailedStatement();
        EXPECT_EQ(first.result, SaveResult::NotSaved);
        EXPECT_NE(first.node.codeID, 0);
        EXPECT_EQ(editor->ID(), first.node.codeID);

        Run("DROP TRIGGER refuse");
        const SaveOutcome second = editor->Save();
        EXPECT_EQ(second.result, SaveResult::Saved);
        EXPECT_EQ(second.before, first.node);
        EXPECT_EQ(Select("SELECT codeName FROM tblCode ORDER BY codeID").back(), name);
        EXPECT_EQ(editor->Record().comment, FormatCommentHeader("Paints.", 1));
        EXPECT_EQ(LoadCodeRecord(db_, editor->ID()), editor->Record());
        EXPECT_EQ(editor->Record().languageID, 1);
        EXPECT_NE(TextOfClass(2).find("'***Procedure " + name + "***"), std::string::npos);
    }
    EXPECT_EQ(Select("SELECT COUNT(*) FROM tblCode"), Rows{"4"});

    const auto editor = NewClassEditor(db_, noise_, 2);
    editor->Record().name = "Grid";
    editor->Record().comment = "Draws.";
    editor->Details().keywords.text = "grid";
    Run("CREATE TRIGGER refuse BEFORE UPDATE OF classComment ON tblClass "
        "BEGIN SELECT RAISE(ABORT, 'the disk is full'); END");
    EXPECT_EQ(editor->Save().node, (NodeIDs{2, 4}));
    ExpectFailedStatement();
    Run("DROP TRIGGER refuse");
    EXPECT_EQ(editor->Save().node, (NodeIDs{2, 4}));
    EXPECT_EQ(LoadClassRecord(db_, 4), editor->Record());
    EXPECT_EQ(editor->Record().comment, FormatCommentHeader("Draws.", editor->Record().languageID));
}

TEST_F(RecordEditorTest, KnowsItsNewRecordThoughThatCannotBeReadBack) {
    const auto editor = NewCodeEditor(db_, noise_, 2);
    editor->Record().name = "Paint";
    editor->Record().comment = "Paints.";
    editor->Details().keywords.text = "paint";
    db_.SetStatementObserver([this](std::string_view sql) {
        if (sql.starts_with("INSERT INTO tblCode "))
            Run("UPDATE tblNamedQuery SET name = 'away' WHERE name = 'qryCodeByID'");
    });
    const SaveOutcome first = editor->Save();
    db_.SetStatementObserver({});
    TakeBox();
    EXPECT_EQ(first.result, SaveResult::NotSaved);
    EXPECT_EQ(first.node, (NodeIDs{2, 2, 2}));
    EXPECT_EQ(editor->Key(), (EditorKey{OwnerKind::Procedure, 2}));

    Run("UPDATE tblNamedQuery SET name = 'qryCodeByID' WHERE name = 'away'");
    editor->Record().code = "Sub Paint()";
    const SaveOutcome second = editor->Save();
    EXPECT_EQ(second.result, SaveResult::Saved);
    EXPECT_EQ(second.before, first.node);
    EXPECT_EQ(Select("SELECT codeName, code FROM tblCode WHERE codeID > 1"),
              (Rows{"Paint|Sub Paint()"}));
    EXPECT_EQ(LoadCodeRecord(db_, 2), editor->Record());
}

TEST_F(RecordEditorTest, CutsACodeOnlyWhereTheUserSaysSo) {
    const auto editor = OpenDraw();
    editor->Record().code = "\u00fc" + std::string(64'000, 'x');
    Expect(kNo);
    EXPECT_EQ(editor->Save().result, SaveResult::NotSaved);
    EXPECT_EQ(TakeQuestion(), "The code has 64,001 characters, and 64,000 can be stored.");
    EXPECT_EQ(editor->Record().code.size(), 64'002U);
    Expect(kYes);
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    TakeBox();
    EXPECT_EQ(LoadCodeRecord(db_, 1)->code, "\u00fc" + std::string(63'999, 'x'));
}

TEST_F(RecordEditorTest, AsksBeforeTheEndThatAnImportCutOffIsLost) {
    Run("INSERT INTO tblOverlong VALUES (1, 3, 'code', 'the end')");
    const auto editor = OpenDraw();
    editor->Record().name = "Paint";
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    editor->Record().code = "new";
    Expect(kNo);
    EXPECT_EQ(editor->Save().result, SaveResult::NotSaved);
    EXPECT_NE(TakeQuestion().find("Its last 7 characters"), std::string::npos);
    EXPECT_EQ(Select("SELECT text FROM tblOverlong"), (Rows{"the end"}));
    Expect(kYes);
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
    TakeBox();
    EXPECT_EQ(Select("SELECT text FROM tblOverlong"), Rows{});
}

TEST_F(RecordEditorTest, AsksBeforeAMarkerOfAProcedureIsLost) {
    const struct {
        StandardAnswer answer;
        SaveResult result;
        std::string_view stored;
    } cases[] = {
        {kCancel, SaveResult::NotSaved, "Option Explicit\r\n'***Procedure Draw***\r\n"},
        {kYes, SaveResult::Saved, "mine\r\n'***Procedure Draw***\r\n"},
        {kNo, SaveResult::Saved, "mine"},
    };
    const auto editor = OpenClassEditor(db_, noise_, 2);
    editor->Details().keywords.text = "grid";
    for (const auto& [answer, result, stored] : cases) {
        editor->Record().declarations = "mine";
        Expect(answer);
        EXPECT_EQ(editor->Save().result, result);
        EXPECT_NE(TakeBox().text.find("leave them out:\r\n    Draw\r\n"), std::string::npos);
        EXPECT_EQ(TextOfClass(2), stored);
    }
    // One that was not there before is nobody's loss.
    editor->Record().declarations = "other";
    EXPECT_EQ(editor->Save().result, SaveResult::Saved);
}

TEST_F(RecordEditorTest, LeavesMarkersRightWhateverIsAddedRenamedOrMoved) {
    const auto aClass = OpenClassEditor(db_, noise_, 2);
    aClass->Details().keywords.text = "grid";
    // While the class is open, its procedures change its text.
    const auto paint = NewCodeEditor(db_, noise_, 2);
    paint->Record().name = "Paint";
    paint->Details().keywords.text = "paint";
    EXPECT_EQ(paint->Save().result, SaveResult::Saved);
    EXPECT_TRUE(RenameNode(db_, {2, 2, 1}, "Draw(x)"));
    aClass->Record().languageID = 9;
    Expect(kYes);
    EXPECT_EQ(aClass->Save().result, SaveResult::Saved);
    TakeBox();
    EXPECT_EQ(TextOfClass(2),
              "Option Explicit\r\n<!--**Procedure Draw(x)**-->\r\n<!--**Procedure Paint**-->\r\n");

    const auto draw = OpenDraw();
    draw->Record().languageID = 7;
    draw->Record().classID = 3;
    const SaveOutcome outcome = draw->Save();
    EXPECT_EQ(outcome.before, (NodeIDs{2, 2, 1}));
    EXPECT_EQ(outcome.node, (NodeIDs{2, 3, 1}));
    EXPECT_EQ(TextOfClass(2), "Option Explicit\r\n<!--**Procedure Paint**-->\r\n");
    EXPECT_EQ(TextOfClass(3), "/***Procedure Draw(x)***/");
    EXPECT_TRUE(ProceduresWithoutMarker(db_, 2).empty());
    EXPECT_TRUE(ProceduresWithoutMarker(db_, 3).empty());
}

}  // namespace
}  // namespace snippetarium::test
