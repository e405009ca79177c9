#include "cli/streams.h"

#include <string>

#include "cli/commands.h"

namespace snippetarium {

void PrintMessage(const Streams& streams, std::string_view text) {
    Console(streams.input, streams.error, streams.terminals)
        .PrintLine(std::string(kProgramName) + ": " + std::string(text));
}

}  // namespace snippetarium
