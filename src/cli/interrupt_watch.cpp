#include "cli/interrupt_watch.h"

namespace snippetarium {

namespace {

// A signal handler can reach nothing but what has static storage.
volatile std::sig_atomic_t interruptIsPending = 0;

void NoteInterrupt(int) {
    interruptIsPending = 1;
}

}  // namespace

InterruptWatch::InterruptWatch() {
    interruptIsPending = 0;
    struct sigaction note {};
    note.sa_handler = NoteInterrupt;
    // The handler serves once; then the signal means again what it always means. A read or a write
    // that the first one meets goes on.
    note.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    sigemptyset(&note.sa_mask);
    sigaction(SIGINT, nullptr, &before_);
    if (before_.sa_handler != SIG_IGN) sigaction(SIGINT, &note, nullptr);
}

InterruptWatch::~InterruptWatch() {
    sigaction(SIGINT, &before_, nullptr);
}

bool InterruptWatch::Take() {
    if (interruptIsPending == 0) return false;
    interruptIsPending = 0;
    return true;
}

}  // namespace snippetarium
