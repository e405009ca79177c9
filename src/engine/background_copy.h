#pragma once

#include <atomic>
#include <chrono>
#include <future>
#include <string>

namespace snippetarium {

/// A copy of a database (see CopyDatabase) that a thread of its own makes, so that the program can
/// go on: reading back a large copy and making it safe on the disk are steps that nothing divides.
/// The thread reads the source through a handle of its own and shares nothing else.
///
///     BackgroundCopy copy(source, target);
///     while (!copy.IsFinished(20ms)) Show(copy.Share());
///     copy.Check();
class BackgroundCopy {
  public:
    BackgroundCopy(const std::string& sourcePath, const std::string& targetPath);
    /// Gives an unfinished copy up and waits until nothing is left of it, which takes some
    /// milliseconds while pages are copied and longer while the copy is read back.
    ~BackgroundCopy();
    BackgroundCopy(const BackgroundCopy&) = delete;
    BackgroundCopy& operator=(const BackgroundCopy&) = delete;

    /// Whether the copy is there or has failed; waits for that so long at most.
    bool IsFinished(std::chrono::milliseconds wait) const;
    /// Of the pages: 0 to 1.
    double Share() const { return share_; }
    /// Waits for the end and throws what CopyDatabase threw. To be called once.
    void Check();

  private:
    std::atomic<double> share_ = 0;
    std::atomic<bool> isGivenUp_ = false;
    std::future<void> copy_;  // last: its thread uses the others
};

}  // namespace snippetarium
