#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

#include "cli/closest_names.h"
#include "cli/usage_error.h"

namespace snippetarium {

namespace {

constexpr std::string_view kEndOfOptions = "--";

void AddOption(CLI::App& app, Arguments& arguments, const CommandOption& option) {
    const std::string name(option.name);
    if (option.value.empty()) {
        app.add_flag_callback(name, [&arguments, name] { arguments.Add(name, {}); });
    } else {
        app.add_option_function<std::string>(
            name, [&arguments, name](const std::string& value) { arguments.Add(name, value); });
    }
}

void AddArgument(CLI::App& app, Arguments& arguments, const CommandArgument& argument) {
    const std::string name(argument.name);
    if (argument.occurs == Occurs::AnyNumber) {
        app.add_option_function<std::vector<std::string>>(
            name, [&arguments, name](const std::vector<std::string>& values) {
                for (const std::string& value : values)
                    arguments.Add(name, value);
            });
    } else {
        app.add_option_function<std::string>(
            name, [&arguments, name](const std::string& value) { arguments.Add(name, value); });
    }
}

/// The parser's description of a command. What is required is checked afterwards: a request for
/// help must not fail because of an argument that is missing.
void AddCommand(CLI::App& app, CommandLine& line, const CliCommand& command) {
    CLI::App* const parser = app.add_subcommand(std::string(command.name));
    parser->set_help_flag();
    parser->fallthrough();
    parser->allow_extras();
    for (const CommandArgument& argument : command.arguments)
        AddArgument(*parser, line.arguments, argument);
    for (const CommandOption& option : command.options)
        AddOption(*parser, line.arguments, option);
    parser->callback([&line, &command] { line.command = &command; });
}

std::vector<std::string_view> CommandNames() {
    std::vector<std::string_view> names;
    for (const CliCommand* command : Commands())
        names.push_back(command->name);
    return names;
}

[[noreturn]] void RefuseUnknown(const std::string& text, const CliCommand* command) {
    if (text.starts_with('-')) {
        std::string message = "There is no option '" + text + "'";
        if (command != nullptr) message += " for '" + std::string(command->name) + "'";
        throw UsageError(message + ". A value that begins with a hyphen must stand behind '--'.");
    }
    if (command != nullptr) {
        throw UsageError("'" + text + "' is one argument too many for '" +
                         std::string(command->name) + "'.");
    }
    throw UsageError("There is no command '" + text + "'." +
                     ClosestNamesHint(text, CommandNames()));
}

void TakeGlobalOptions(CommandLine& line, const Arguments& global) {
    if (const auto folder = global.Value(global_option::kFolder)) {
        if (folder->empty()) throw UsageError("--folder takes the name of a folder.");
        line.folder = *folder;
    }
    line.wantsJson = global.Has(global_option::kJson);
    line.wantsHelp = global.Has(global_option::kHelp);
    line.wantsVersion = global.Has(global_option::kVersion);
    const bool yes = global.Has(global_option::kYes);
    const bool no = global.Has(global_option::kNo);
    if (yes && no) throw UsageError("--yes and --no exclude each other.");
    if (yes) line.questions = QuestionPolicy::Yes;
    if (no) line.questions = QuestionPolicy::No;
}

void RequireArguments(const CommandLine& line) {
    if (line.wantsHelp || line.wantsVersion) return;
    if (line.command == nullptr) throw UsageError("No command is given.");
    for (const CommandArgument& argument : line.command->arguments) {
        if (argument.occurs != Occurs::Once || line.arguments.Has(argument.name)) continue;
        throw UsageError("'" + std::string(line.command->name) + "' needs " +
                         std::string(argument.name) + ": " + std::string(argument.help) + ".");
    }
}

}  // namespace

CommandLine ParseCommandLine(std::span<const std::string> arguments) {
    CommandLine line;
    Arguments global;
    CLI::App app;
    app.set_help_flag();
    app.allow_extras();
    app.require_subcommand(0, 1);
    for (const CommandOption& option : GlobalOptions())
        AddOption(app, global, option);
    for (const CliCommand* command : Commands())
        AddCommand(app, line, *command);
    try {
        // The parser takes its arguments from the end of the list.
        app.parse(std::vector<std::string>(std::make_reverse_iterator(arguments.end()),
                                           std::make_reverse_iterator(arguments.begin())));
    } catch (const CLI::ArgumentMismatch& error) {
        const std::string text = error.what();  // begins with the option's name and a colon
        throw UsageError(text.substr(0, text.find(':')) +
                         " must be given once and with its value.");
    } catch (const CLI::ParseError& error) {
        throw UsageError(error.what());
    }
    TakeGlobalOptions(line, global);
    for (const std::string& unknown : app.remaining(true)) {
        // The parser counts the mark that ends the options among what it does not know.
        if (unknown != kEndOfOptions) RefuseUnknown(unknown, line.command);
    }
    RequireArguments(line);
    return line;
}

bool AsksForJson(std::span<const std::string> arguments) {
    const auto end = std::find(arguments.begin(), arguments.end(), kEndOfOptions);
    return std::find(arguments.begin(), end, global_option::kJson) != end;
}

}  // namespace snippetarium
