#pragma once

#include <concepts>
#include <type_traits>
#include <utility>

#include "support/error_reporter.h"
#include "support/procedure_numbers.h"

namespace snippetarium {

// Every operation that can fail is one call of Guarded. Inside, failures are thrown; outside, the
// operation has shown its message and returned the default of its result type: 0, an empty text,
// false, a closed recordset.
//
//     std::int32_t ScalarLong(Database& db, std::string_view sql) {
//         return Guarded(db.Reporter(), Procedure::ScalarLong, [&] { ... });
//     }
//
// An operation calls others that are guarded too. If such an inner guard returned its default, the
// outer operation would go on with it as if it were a result: a failed INSERT would let it take
// another row's ID for its own. So the inner guard reports, with its own procedure's number, and
// then throws on; the outer ones stay silent; only the outermost returns the default.

/// Runs body; on a failure reports it once, with this procedure's number, and returns Result{}, or
/// throws ReportedError where another guard encloses this one.
template <std::invocable Body>
std::invoke_result_t<Body> Guarded(ErrorReporter& reporter, Procedure procedure, Body&& body) {
    const ErrorReporter::GuardScope scope(reporter);
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        reporter.ReportCurrent(procedure);
        if (scope.IsEnclosed()) reporter.ThrowReported();
    }
    return std::invoke_result_t<Body>();
}

/// As Guarded, but returns the default also inside another guard. For the stages of a job that goes
/// on with its next stage when one has failed, as a deletion does.
template <std::invocable Body>
std::invoke_result_t<Body> GuardedStage(ErrorReporter& reporter, Procedure procedure, Body&& body) {
    const ErrorReporter::GuardScope scope(reporter);
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        reporter.ReportCurrent(procedure);
    }
    return std::invoke_result_t<Body>();
}

}  // namespace snippetarium
