#pragma once

#include <utility>

#include "support/guard.h"

namespace snippetarium {

/// Runs the body of a control's handler: a failure is reported with the handler's number and goes
/// no further. Qt calls handlers out of its own code, through which nothing may be thrown, and
/// often while an operation is running that changed the control; so each stands alone.
template <std::invocable Body>
void Handle(ErrorReporter& reporter, Procedure procedure, Body&& body) {
    const ErrorReporter::EventScope events(reporter);
    Guarded(reporter, procedure, std::forward<Body>(body));
}

}  // namespace snippetarium
