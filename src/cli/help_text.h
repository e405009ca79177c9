#pragma once

#include <string>

#include "cli/commands.h"

namespace snippetarium {

/// What "--help" prints, from the table of commands: for the program, and for one command.
std::string ProgramHelp();
std::string CommandHelp(const CliCommand& command);

}  // namespace snippetarium
