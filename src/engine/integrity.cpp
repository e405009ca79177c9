#include "engine/integrity.h"

#include <functional>

#include "engine/engine_error.h"
#include "engine/inspection.h"

namespace snippetarium {

namespace {

/// Runs the examination; damage that stops it is one more problem.
std::vector<std::string> Collect(const std::function<void(std::vector<std::string>&)>& examine) {
    std::vector<std::string> problems;
    try {
        examine(problems);
    } catch (const EngineError& error) {
        if (error.Code() != EngineErrorCode::Corrupted &&
            error.Code() != EngineErrorCode::UnrecognisedFormat) {
            throw;
        }
        problems.push_back(error.Description());
    }
    return problems;
}

void Examine(const Inspection& inspection, std::vector<std::string>& problems) {
    Recordset rows = inspection.Read("PRAGMA integrity_check(100)");
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        const std::string text = rows[std::size_t{0}].Text();
        if (text != "ok") problems.push_back(text);
    }
}

}  // namespace

std::vector<std::string> FindIntegrityProblems(const Inspection& inspection) {
    return Collect([&](std::vector<std::string>& problems) { Examine(inspection, problems); });
}

std::vector<std::string> FindIntegrityProblems(const std::string& path, const CancelPoll* poll) {
    return Collect(
        [&](std::vector<std::string>& problems) { Examine(Inspection(path, poll), problems); });
}

}  // namespace snippetarium
