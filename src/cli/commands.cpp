#include "cli/commands.h"

namespace snippetarium {

namespace {

constexpr const CliCommand* kCommands[] = {
#define COMMAND(name) &k##name##Command,
#include "cli/commands.inc"
#undef COMMAND
};

// clang-format off
constexpr CommandOption kGlobalOptions[] = {
    {global_option::kFolder,  "DIR", "the folder that holds the catalogue"},
    {global_option::kJson,    "",    "print one JSON document instead of text for people"},
    {global_option::kYes,     "",    "answer every question with yes"},
    {global_option::kNo,      "",    "answer every question with no"},
    {global_option::kHelp,    "",    "explain the program or, with a command, that command"},
    {global_option::kVersion, "",    "print the program's version"},
};
// clang-format on

}  // namespace

std::span<const CliCommand* const> Commands() {
    return kCommands;
}

std::span<const CommandOption> GlobalOptions() {
    return kGlobalOptions;
}

std::string OptionSynopsis(const CommandOption& option) {
    std::string text(option.name);
    if (!option.value.empty()) text.append(" ").append(option.value);
    return text;
}

std::string Synopsis(const CliCommand& command) {
    std::string text(command.name);
    for (const CommandArgument& argument : command.arguments) {
        const std::string name(argument.name);
        switch (argument.occurs) {
            case Occurs::Once:
                text += " " + name;
                break;
            case Occurs::AtMostOnce:
                text += " [" + name + "]";
                break;
            case Occurs::AnyNumber:
                text += " [" + name + "...]";
                break;
        }
    }
    for (const CommandOption& option : command.options)
        text += " [" + OptionSynopsis(option) + "]";
    return text;
}

}  // namespace snippetarium
