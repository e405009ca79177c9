#include "cli/run_command_line.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>

#include "cli/command_context.h"
#include "cli/command_line.h"
#include "cli/help_text.h"
#include "cli/refused_error.h"
#include "cli/terminal_host.h"
#include "cli/usage_error.h"
#include "cli/version.h"

namespace snippetarium {

namespace {

void PrintFailureDocument(const Streams& streams, const ErrorDetails& failure) {
    Json document;
    document["error"]["code"] = failure.number;
    document["error"]["text"] = failure.description;
    streams.output << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

int RefuseUsage(const Streams& streams, bool wantsJson, const CommandLine* line,
                const UsageError& error) {
    std::string hint = std::string(kProgramName) + " ";
    if (line != nullptr && line->command != nullptr) hint += std::string(line->command->name) + " ";
    PrintMessage(streams, std::string(error.what()) + "\nSee: " + hint + "--help");
    if (wantsJson) PrintFailureDocument(streams, {error_number::kInvalidCall, error.what()});
    return kWrongUsage;
}

/// Runs the command to its end, its catalogue closed again. Returns the first thing that went
/// wrong, if anything did; the user has then been told.
std::optional<ErrorDetails> Execute(CommandContext& context, const TerminalHost& terminal) {
    try {
        const ErrorReporter::GuardScope guard(context.GetHost().reporter);
        context.Line().command->run(context);
        context.CloseCatalogue();
    } catch (const UsageError&) {
        throw;
    } catch (const ReportedError&) {
        // Its message has been shown.
    } catch (const RefusedError& error) {
        PrintMessage(context.GetStreams(), error.what());
        const ErrorDetails refusal{error.Number(), terminal.ReasonOfRefusal(error.what())};
        return terminal.FirstFailure().value_or(refusal);
    } catch (...) {
        const ErrorDetails failure = CurrentError();
        PrintMessage(context.GetStreams(), failure.description);
        return terminal.FirstFailure().value_or(failure);
    }
    return terminal.FirstFailure();
}

int RunCommand(const CommandLine& line, const Streams& streams) {
    Console console(streams.input, streams.error, streams.terminals);
    TerminalHost terminal(console, line.questions);
    const Host host = terminal.Interfaces();
    CommandContext context(line, streams, host);
    if (const auto failure = Execute(context, terminal)) {
        if (line.wantsJson) PrintFailureDocument(streams, *failure);
        return kFailed;
    }
    streams.output << context.Document() << std::flush;
    if (streams.output.good()) return context.IsFailure() ? kFailed : kDone;
    PrintMessage(streams, "The standard output cannot be written.");
    return kFailed;
}

int Run(const CommandLine& line, const Streams& streams) {
    if (line.wantsVersion) {
        streams.output << kProgramName << ' ' << ProgramVersion() << '\n';
        return kDone;
    }
    if (line.wantsHelp) {
        streams.output << (line.command == nullptr ? ProgramHelp() : CommandHelp(*line.command));
        return kDone;
    }
    return RunCommand(line, streams);
}

}  // namespace

int RunCommandLine(std::span<const std::string> arguments, const Streams& streams) {
    std::optional<CommandLine> line;
    try {
        line = ParseCommandLine(arguments);
        return Run(*line, streams);
    } catch (const UsageError& error) {
        return RefuseUsage(streams, AsksForJson(arguments), line ? &*line : nullptr, error);
    }
}

}  // namespace snippetarium
