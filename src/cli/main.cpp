#include <iostream>
#include <string>
#include <vector>

#include "cli/run_command_line.h"

int main(int argumentCount, char* arguments[]) {
    using snippetarium::Console;
    std::ios_base::sync_with_stdio(false);
    const std::vector<std::string> words(arguments + 1, arguments + argumentCount);
    return snippetarium::RunCommandLine(words,
                                        {std::cin, std::cout, std::cerr, Console::OfProcess()});
}
