#include "engine/background_copy.h"

#include "engine/engine_error.h"
#include "engine/online_copy.h"

namespace snippetarium {

BackgroundCopy::BackgroundCopy(const std::string& sourcePath, const std::string& targetPath)
    : copy_(std::async(std::launch::async, [this, sourcePath, targetPath] {
          CopyDatabase(sourcePath, targetPath, [this](double share) {
              if (isGivenUp_)
                  throw EngineError(EngineErrorCode::Cancelled, "The copy was given up.");
              share_ = share;
          });
      })) {}

BackgroundCopy::~BackgroundCopy() {
    // The future's own destructor waits for the thread.
    isGivenUp_ = true;
}

bool BackgroundCopy::IsFinished(std::chrono::milliseconds wait) const {
    return copy_.wait_for(wait) == std::future_status::ready;
}

void BackgroundCopy::Check() {
    copy_.get();
}

}  // namespace snippetarium
