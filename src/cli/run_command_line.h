#pragma once

#include <span>
#include <string>

#include "cli/streams.h"

namespace snippetarium {

enum ExitStatus : int {
    kDone = 0,
    kFailed = 1,
    kWrongUsage = 2,
};

/// The whole program but for the process around it: reads the command line (without the program's
/// name), does what it says and returns the exit status.
///
/// With --json, the output is exactly one document. Where the command fails and has no result, it
/// is {"error": {"code": ..., "text": ...}}, the code being the failure's number or 0.
int RunCommandLine(std::span<const std::string> arguments, const Streams& streams);

}  // namespace snippetarium
