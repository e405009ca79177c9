#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <stdexcept>

namespace snippetarium::test {

/// Another program, as far as files and locks go: a fork that runs a function, says that it is
/// ready and then waits until it is killed.
class ChildProcess {
  public:
    /// Returns once the child's function has come back. What the function keeps open stays open
    /// only if it is captured by reference to something that lives on in the child, such as a local
    /// of the test.
    explicit ChildProcess(const std::function<void()>& work) {
        int ready[2];
        if (pipe(ready) != 0) throw std::runtime_error("no pipe");
        process_ = fork();
        if (process_ == 0) {
            // What the work throws must not reach the test's own code, which would then run twice.
            try {
                work();
            } catch (...) {
                _exit(1);
            }
            if (write(ready[1], "r", 1) != 1) _exit(1);
            for (;;)
                pause();
        }
        close(ready[1]);
        char byte = 0;
        const bool isReady = read(ready[0], &byte, 1) == 1;
        close(ready[0]);
        if (!isReady) throw std::runtime_error("the child process failed");
    }
    ~ChildProcess() { Kill(); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void Kill() {
        if (process_ <= 0) return;
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        process_ = 0;
    }

  private:
    pid_t process_ = 0;
};

}  // namespace snippetarium::test
