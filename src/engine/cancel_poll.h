#pragma once

namespace snippetarium {

/// Asked now and then by work that may take long, also by the database library while a statement
/// runs: it is C code, so nothing may be thrown, and the statement's database must be left alone.
/// Called on the thread that does the work, so an answer that another thread or a signal gives
/// belongs into an atomic variable.
class CancelPoll {
  public:
    virtual ~CancelPoll() = default;
    virtual bool IsCancelled() const = 0;
};

}  // namespace snippetarium
