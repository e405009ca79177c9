#pragma once

#include <span>
#include <string>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/terminal_boxes.h"

namespace snippetarium {

/// A command line that has been understood.
struct CommandLine {
    std::string folder;  ///< empty: not given
    bool wantsJson = false;
    bool wantsHelp = false;
    bool wantsVersion = false;
    QuestionPolicy questions = QuestionPolicy::Ask;
    const CliCommand* command = nullptr;  ///< null only where help or the version is wanted
    Arguments arguments;
};

/// Reads a command line, without the program's name. Global options may stand before or behind the
/// command; what follows "--" is a value even if it begins with hyphens. Throws UsageError with a
/// message that says what is wrong with which argument.
CommandLine ParseCommandLine(std::span<const std::string> arguments);

/// Whether JSON is wanted, as far as that can be told of a command line that cannot be parsed.
bool AsksForJson(std::span<const std::string> arguments);

}  // namespace snippetarium
