#pragma once

#include <gtest/gtest.h>
#include <signal.h>
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

/// Runs a function that is to end in DieHere, as another program.
inline void RunUntilItDies(const std::function<void()>& work) {
    EXPECT_THROW(ChildProcess{work}, std::runtime_error) << "it came to its end alive";
}

}  // namespace snippetarium::test
