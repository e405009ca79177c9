#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <functional>
#include <stdexcept>

#include "tests/child_process.h"

namespace snippetarium::test {

/// Ends this program at once, as a power cut would: nothing is closed, flushed or tidied up.
[[noreturn]] inline void DieHere() {
    kill(getpid(), SIGKILL);
    for (;;)
        pause();
}

/// From now on the system ends this program when it writes a file beyond so many bytes, whichever
/// thread does it: a death in the middle of a copy, however fast that is.
inline void DieBehind(rlim_t bytes) {
    const rlimit limit{bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// Runs a function that is to end in DieHere or behind DieBehind, as another program.
inline void RunUntilItDies(const std::function<void()>& work) {
    EXPECT_THROW(ChildProcess{work}, std::runtime_error) << "it came to its end alive";
}

}  // namespace snippetarium::test
