#include "forms/main_transfers.h"

#include "forms/fContents.h"
#include "forms/fExport.h"
#include "forms/fImport.h"
#include "forms/handler.h"
#include "forms/modal.h"
#include "store/database.h"

namespace snippetarium {

MainTransfers::MainTransfers(Database& db, QWidget& window, fContents& contents)
    : QObject(&window), db_(db), window_(window), contents_(contents) {}

void MainTransfers::Import() {
    fImport dialog(db_, files_, importState_, &window_);
    connect(&dialog, &fImport::Imported, this, [this](std::int32_t appID) {
        Handle(db_.Reporter(), Procedure::ImportEvent, [&] {
            contents_.Refresh();
            contents_.SelectNode({.appID = appID});
        });
    });
    RunModal(dialog, db_.Reporter());
}

void MainTransfers::Export(const std::optional<ExportTarget>& target) {
    if (!target) return;
    fExport dialog(db_, files_, *target, &window_);
    RunModal(dialog, db_.Reporter());
}

}  // namespace snippetarium
