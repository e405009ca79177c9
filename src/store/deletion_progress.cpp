#include "store/deletion_progress.h"

namespace snippetarium {

DeletionProgress::DeletionProgress(const Host& host)
    : host_(host), isOwn_(!host.progress.IsOpen()) {
    if (!isOwn_) return;
    host_.progress.Open("Deleting");
    host_.events.Yield();
}

DeletionProgress::~DeletionProgress() {
    if (isOwn_) host_.progress.Close();
}

void DeletionProgress::Show(double share) {
    if (isOwn_) host_.progress.SetTotal(share * 100.0);
    host_.events.Yield();
}

}  // namespace snippetarium
