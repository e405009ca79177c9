#pragma once

#include <cstddef>
#include <functional>

#include "engine/on_progress.h"
#include "support/procedure_numbers.h"

namespace snippetarium {

class Database;

/// Runs a part of a deletion that may fail while the deletion goes on: reports the failure with the
/// procedure's number and returns false. `body` returns whether all of it was done; it returns
/// false for a failure that an inner stage has reported.
///
/// The scratch list tblIDsToDelete is empty afterwards, also when the stage failed: what it had
/// noted would be taken for IDs of another table by the next stage.
bool RunStage(Database& db, Procedure procedure, const std::function<bool()>& body);

/// Tells how far a stage is, by the number of its steps.
class StepCounter {
  public:
    /// `onProgress` may be empty; it must live as long as this.
    StepCounter(std::size_t steps, const OnProgress& onProgress)
        : steps_(steps), onProgress_(onProgress) {}
    /// One more step is done.
    void Count();

  private:
    std::size_t steps_;
    std::size_t done_ = 0;
    const OnProgress& onProgress_;
};

}  // namespace snippetarium
