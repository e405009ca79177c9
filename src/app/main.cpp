#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>

#include "engine/provider.h"
#include "forms/fMain.h"
#include "forms/icons.h"
#include "forms/qt_host.h"
#include "forms/qt_text.h"
#include "navigator/missing_catalogue.h"
#include "store/database.h"
#include "store/program_folder.h"
#include "support/message_boxes.h"

namespace snippetarium {

namespace {

/// The folder that the command line names; empty for none.
std::string FolderOption(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("main", "A catalogue of reusable source code."));
    const QCommandLineOption folder(
        "folder", QCoreApplication::translate("main", "The folder that holds the catalogue."),
        "folder");
    parser.addOption(folder);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(application);
    return FromQt(parser.value(folder));
}

int RunProgram(const std::string& folderOption) {
    QtHost host;
    std::string folder;
    try {
        folder = OpenProgramFolder(folderOption).path;
        if (!OfferCatalogue(host.Boxes(), folder)) return 1;
    } catch (const std::exception& error) {
        ShowErrorMessage(host.Boxes(), error.what(), kFatalTitle);
        return 1;
    }
    Database db(host.Interfaces(), CatalogueProviders(), folder);
    fMain window(db, host);
    return window.Start() ? QApplication::exec() : 1;
}

}  // namespace

}  // namespace snippetarium

int main(int argumentCount, char* arguments[]) {
    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName("snippetarium");
    QApplication::setApplicationVersion(SNIPPETARIUM_VERSION);
    QApplication::setWindowIcon(snippetarium::Icon("snippetarium"));
    return snippetarium::RunProgram(snippetarium::FolderOption(application));
}
