#pragma once

#include <span>
#include <string>
#include <string_view>

namespace snippetarium {

class CommandContext;

// The table of commands. The parser, the help and the manual are made from it, so a command says
// here, once, what it is called, what it takes and what it does.
//
// To add a command, write a file that defines its CliCommand (tree_command.cpp is one) and give it
// a row in commands.inc.

enum class Occurs { Once, AtMostOnce, AnyNumber };

/// A value that stands by itself behind the command's name.
struct CommandArgument {
    std::string_view name;  ///< in capitals
    Occurs occurs;
    std::string_view help;
};

struct CommandOption {
    std::string_view name;   ///< with its two hyphens
    std::string_view value;  ///< what the value is called; empty for a switch
    std::string_view help;
};

struct CommandExample {
    std::string_view arguments;  ///< what follows the program's name
    std::string_view help;
};

struct CliCommand {
    std::string_view name;
    std::string_view summary;  ///< begins small and has no full stop: a row of a list
    /// Paragraphs, an empty line between them.
    std::string_view description;
    std::span<const CommandArgument> arguments;
    std::span<const CommandOption> options;
    std::span<const CommandExample> examples;
    /// Does the work. Throws Error when that fails and UsageError when an argument makes no sense.
    void (*run)(CommandContext&);
};

// kNewCommand, kTreeCommand and so on, each defined in a file of its own.
#define COMMAND(name) extern const CliCommand k##name##Command;
#include "cli/commands.inc"
#undef COMMAND

/// The options that every command takes, and the names by which the program looks them up.
namespace global_option {
inline constexpr std::string_view kFolder = "--folder";
inline constexpr std::string_view kJson = "--json";
inline constexpr std::string_view kYes = "--yes";
inline constexpr std::string_view kNo = "--no";
inline constexpr std::string_view kHelp = "--help";
inline constexpr std::string_view kVersion = "--version";
}  // namespace global_option

inline constexpr std::string_view kProgramName = "snippetarium-cli";

/// Every command, in the order of the help.
std::span<const CliCommand* const> Commands();
std::span<const CommandOption> GlobalOptions();

/// The command with what it takes: "tree [KEY] [--depth N]".
std::string Synopsis(const CliCommand& command);
/// An option with what it takes: "--depth N".
std::string OptionSynopsis(const CommandOption& option);

}  // namespace snippetarium
