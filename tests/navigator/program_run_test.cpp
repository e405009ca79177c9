#include "navigator/program_run.h"

#include <algorithm>

#include "navigator/help.h"
#include "navigator/idle_work.h"
#include "store/database.h"
#include "tests/navigator/fake_window.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/statement_log.h"

namespace snippetarium::test {
namespace {

class ProgramRunTest : public CatalogueFixture {
  protected:
    ProgramRunTest() {
        window_.openForms = {"fContents", "fPage", "fFind", "fSearch", "fBookmark", "fIndex"};
        window_.onClose = [this] {
            run_.CloseForms();
            run_.ShutDown();
        };
    }

    FakeWindow window_;
    Layout layout_{db_, window_};
    ProgramRun run_{db_, window_, layout_};
};

TEST_F(ProgramRunTest, StartsStepByStepAndIsLoadingWhileTheContentsAreFilled) {
    window_.whileLoading = [this] {
        EXPECT_TRUE(run_.IsLoading());
        EXPECT_TRUE(db_.GetConnection().IsOpen());
        EXPECT_TRUE(run_.Noise().IsNoiseWord("about"));
    };
    run_.Start();
    EXPECT_EQ(window_.log, (Log{"splash", "place", "wrap off", "load", "close splash",
                                "dock contents", "page", "index"}));
    EXPECT_EQ(run_.State(), RunState::Ready);
    EXPECT_EQ(window_.place.width, 15360);
}

TEST_F(ProgramRunTest, EndsAtOnceWhereTheCatalogueCannotBeOpened) {
    Database withoutProvider(host_.host, ProviderRegistry(), folder_.Path());
    ProgramRun run(withoutProvider, window_, layout_);
    window_.onClose = [&] { run.ShutDown(); };
    run.Start();
    EXPECT_TRUE(run.FatalStartError());
    EXPECT_TRUE(run.ShutDownDone());
    EXPECT_TRUE(TakeBox().text.ends_with("Snippetarium will now shut down."));

    TemporaryFolder empty;
    Database withoutFile(host_.host, CatalogueProviders(), empty.Path());
    ProgramRun another(withoutFile, window_, layout_);
    window_.onClose = [&] { another.ShutDown(); };
    window_.openForms = {"fAbout"};
    another.Start();
    EXPECT_FALSE(another.FatalStartError());
    EXPECT_NE(TakeBox().text.find("11151"), std::string::npos);
    EXPECT_EQ(window_.log,
              (Log{"splash", "close", "unloading fContents", "close fContents", "unloading fPage",
                   "close fPage", "close fFind", "unloading fSearch", "close fSearch",
                   "unloading fBookmark", "close fBookmark", "unloading fIndex", "close fIndex",
                   "splash", "close", "close fAbout"}));
}

TEST_F(ProgramRunTest, DoesNotGoOnWhenItIsClosedWhileItLoads) {
    window_.whileLoading = [this] { window_.Close(); };
    run_.Start();
    EXPECT_EQ(window_.log.back(), "close fIndex");
    EXPECT_EQ(run_.State(), RunState::Ended);
    EXPECT_FALSE(db_.GetConnection().IsOpen());
}

TEST_F(ProgramRunTest, SavesItsLayoutOnceAndClosesTheCatalogue) {
    run_.Start();
    ExecuteSQL(db_, "DELETE FROM tblWindowSize");
    StatementLog log(db_);
    run_.ShutDown();
    run_.ShutDown();
    const std::vector<std::string> written = log.Take();
    EXPECT_EQ(std::ranges::count_if(
                  written, [](const auto& sql) { return sql.starts_with("INSERT INTO tblWin"); }),
              1);
    EXPECT_FALSE(db_.GetConnection().IsOpen());
    EXPECT_TRUE(window_.openForms.empty());
}

TEST_F(ProgramRunTest, ClosesTheCatalogueAlsoWhereTheLayoutCannotBeSaved) {
    run_.Start();
    db_.GetConnection().RunScript(
        "CREATE TRIGGER refuse BEFORE UPDATE ON tblWindowSize BEGIN SELECT RAISE(ABORT, 'no'); "
        "END;");
    run_.ShutDown();
    EXPECT_NE(TakeBox().text.find("no"), std::string::npos);
    EXPECT_FALSE(db_.GetConnection().IsOpen());
    EXPECT_TRUE(run_.ShutDownDone());
}

TEST(IdleWork, DoesOneStepAtATimeInTheOrderInWhichItWasAdded) {
    IdleWork idle;
    std::string done;
    int left = 3;
    idle.Add("first", [&] {
        done += 'a';
        idle.Step();  // an event within the step
        return --left > 0 ? IdleStep::MoreToDo : IdleStep::Done;
    });
    idle.Add("second", [&] {
        done += 'b';
        return IdleStep::Done;
    });
    EXPECT_EQ(idle.CurrentName(), "first");
    while (!idle.IsDone())
        idle.Step();
    EXPECT_EQ(done, "aaab");

    idle.Add("clears", [&] {
        idle.Clear();
        return IdleStep::MoreToDo;
    });
    idle.Add("never", [&] {
        ADD_FAILURE();
        return IdleStep::Done;
    });
    idle.Step();
    EXPECT_TRUE(idle.IsDone());
}

TEST_F(ProgramRunTest, ShowsHelpInOneWindow) {
    OpenHelp(db_, "");
    OpenHelp(db_, AnchorOf("fConfigure"));
    EXPECT_EQ(host_.help.created, 1);
    host_.help.visible = false;
    OpenHelp(db_, AnchorOf("fMsgBox"));
    EXPECT_EQ(host_.help.created, 2);
    const std::string page = folder_.Path() + "\\help\\default.htm";
    EXPECT_EQ(host_.help.addresses,
              (Log{page, page + "#UseSetPosition", page + "#UseReuseExport"}));
    EXPECT_EQ(AnchorOf("fNone"), "");
}

}  // namespace
}  // namespace snippetarium::test
