#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/command_context.h"
#include "cli/manual.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr CommandExample kExamples[] = {
    {"manual | man -l -", "Shows the page."},
};
// clang-format on

void Run(CommandContext& context) {
    if (context.WantsJson()) {
        context.SetDocument({{"roff", ManualPage()}});
    } else {
        context.Output() << ManualPage();
    }
}

}  // namespace

constexpr CliCommand kManualCommand = {
    .name = "manual",
    .summary = "print the manual page as source for man",
    .description = "Prints this page as the roff source that man reads.",
    .arguments = {},
    .options = {},
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
