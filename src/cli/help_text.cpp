#include "cli/help_text.h"

#include <algorithm>
#include <cstddef>

#include "cli/text_layout.h"

namespace snippetarium {

namespace {

constexpr std::size_t kHelpColumn = 16;
constexpr std::string_view kUsageIndent = "       ";  // below what follows "Usage: "

/// Where the first part of a synopsis ends, which is not broken: "NAME" or "[--depth N]".
std::size_t EndOfPart(std::string_view synopsis) {
    const std::size_t bracketed = synopsis.starts_with('[') ? synopsis.find(']') : 0;
    return std::min(synopsis.find(' ', bracketed), synopsis.size());
}

/// How the program is called. What a command takes is broken into lines where it is long.
std::string UsageLines(std::string_view rest) {
    std::string lines;
    std::string line = "Usage: " + std::string(kProgramName) + " [OPTION...]";
    while (!rest.empty()) {
        const std::string_view part = rest.substr(0, EndOfPart(rest));
        if (line.size() + 1 + part.size() > kLineWidth) {
            lines += line + "\n";
            line = kUsageIndent;
        }
        line.append(" ").append(part);
        rest.remove_prefix(std::min(part.size() + 1, rest.size()));
    }
    return lines + line + "\n";
}

std::string OptionRows(std::span<const CommandOption> options) {
    std::string rows;
    for (const CommandOption& option : options)
        rows += DefinitionRow(OptionSynopsis(option), option.help, kHelpColumn);
    return rows;
}

std::string ExampleRows(std::span<const CommandExample> examples) {
    std::string rows;
    for (const CommandExample& example : examples) {
        rows.append("  ").append(kProgramName).append(" ").append(example.arguments).append("\n");
        rows += WrapParagraphs(example.help, 6);
    }
    return rows;
}

}  // namespace

std::string ProgramHelp() {
    std::string text =
        "Keeps a catalogue of reusable source code, from a terminal or a script.\n\n" +
        UsageLines("COMMAND [ARGUMENT...]") + "\nCommands:\n";
    for (const CliCommand* command : Commands())
        text += DefinitionRow(command->name, command->summary, kHelpColumn);
    text += "\nOptions:\n" + OptionRows(GlobalOptions());
    const std::string program(kProgramName);
    return text + "\n" +
           WrapParagraphs("'" + program + " COMMAND --help' explains a command. '" + program +
                              " manual | man -l -' shows the manual page.",
                          0);
}

std::string CommandHelp(const CliCommand& command) {
    std::string text =
        UsageLines(Synopsis(command)) + "\n" + WrapParagraphs(command.description, 0);
    if (!command.arguments.empty()) text += "\nArguments:\n";
    for (const CommandArgument& argument : command.arguments)
        text += DefinitionRow(argument.name, argument.help, kHelpColumn);
    if (!command.options.empty()) text += "\nOptions:\n" + OptionRows(command.options);
    text += "\nOptions of every command:\n" + OptionRows(GlobalOptions());
    if (!command.examples.empty()) text += "\nExamples:\n" + ExampleRows(command.examples);
    return text;
}

}  // namespace snippetarium
