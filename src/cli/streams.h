#pragma once

#include <iosfwd>
#include <string_view>

#include "cli/console.h"

namespace snippetarium {

/// The three streams of a program, and which of them are terminals.
struct Streams {
    std::istream& input;
    std::ostream& output;
    std::ostream& error;
    Console::Terminals terminals;
};

/// A message for the person at the terminal: on the standard error, behind the program's name.
void PrintMessage(const Streams& streams, std::string_view text);

}  // namespace snippetarium
