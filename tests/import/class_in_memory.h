#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "export/markers.h"
#include "import/cut_file.h"
#include "support/case_fold.h"

namespace snippetarium::test {

// What becomes of a file that was cut, without a catalogue: stored as import stores it and written
// as export writes it, slowly and with nothing but the two rules. Whoever cuts files checks with it
// that a file survives.

struct ProcedureInMemory {
    std::string name;
    std::string comment;
    std::string code;

    bool operator==(const ProcedureInMemory&) const = default;
};

struct ClassInMemory {
    std::string name;
    std::string comment;
    /// With the markers of the procedures.
    std::string text;
    std::vector<ProcedureInMemory> procedures;

    bool operator==(const ClassInMemory&) const = default;
};

/// A name that no procedure has yet, and whose marker does not stand in the text by chance.
inline std::string FreeName(const ClassInMemory& stored, std::string_view text, MarkerFamily family,
                            const std::string& wanted) {
    const auto isTaken = [&](const std::string& name) {
        return std::ranges::count(stored.procedures, name, &ProcedureInMemory::name) > 0 ||
               text.find(MarkerText(family, name)) != std::string_view::npos;
    };
    std::string name = wanted;
    for (int number = 2; isTaken(name); ++number)
        name = wanted + " (" + std::to_string(number) + ")";
    return name;
}

inline ClassInMemory Store(const CutFile& cut, MarkerFamily family) {
    ClassInMemory stored{cut.className, cut.comment, {}, {}};
    std::size_t copied = 0;
    for (const CutProcedure& procedure : cut.procedures) {
        if (procedure.name.empty()) continue;
        const std::string name = FreeName(stored, cut.text, family, procedure.name);
        stored.text.append(cut.text, copied, procedure.position - copied);
        stored.text += MarkerText(family, name);
        copied = procedure.position;
        stored.procedures.push_back({name, procedure.comment, procedure.code});
    }
    stored.text.append(cut.text, copied);
    return stored;
}

/// The class's text with the comment and the code of each procedure in the place of its marker.
inline std::string ExpandVbProcedures(const ClassInMemory& stored) {
    constexpr std::string_view kBeginning = "'***Procedure ";
    const std::string_view text = stored.text;
    std::string expanded;
    for (std::size_t at = 0; at < text.size();) {
        const ProcedureInMemory* fitting = nullptr;
        std::size_t length = 0;
        if (text.substr(at).starts_with(kBeginning)) {
            for (const ProcedureInMemory& procedure : stored.procedures) {
                const std::string marker = MarkerLine(MarkerFamily::VisualBasic, procedure.name);
                if (marker.size() <= length || !text.substr(at).starts_with(marker)) continue;
                fitting = &procedure;
                length = marker.size();
            }
        }
        if (fitting == nullptr) {
            expanded += text[at++];
            continue;
        }
        if (!fitting->comment.empty()) expanded += fitting->comment + "\r\n";
        expanded += fitting->code + "\r\n";
        at += length;
    }
    return expanded;
}

/// The file that export makes of a class of the Visual Basic family.
inline std::string WriteVbClass(const ClassInMemory& stored) {
    constexpr std::string_view kOptionExplicit = "Option Explicit";
    const std::string text = ExpandVbProcedures(stored);
    if (stored.comment.empty()) return text + "\r\n";
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view here = std::string_view(text).substr(at, kOptionExplicit.size());
        if (!EqualsIgnoringAsciiCase(here, kOptionExplicit)) continue;
        if (at == 0) break;
        return text.substr(0, at) + "\r\n" + stored.comment + "\r\n" + text.substr(at) + "\r\n";
    }
    return stored.comment + "\r\n" + text + "\r\n";
}

/// The lines of a text that are not empty.
inline std::vector<std::string_view> FilledLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find("\r\n"), text.size());
        if (end > 0) lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 2, text.size()));
    }
    return lines;
}

/// What is wrong with the way of a file into the catalogue and out of it; empty when all is well.
/// `cut` is the cutter: from a text to a CutFile with Visual Basic markers.
template <typename Cut>
std::string FaultOfRoundTrip(std::string_view text, Cut cut) {
    const auto store = [&](std::string_view file) {
        return Store(cut(file), MarkerFamily::VisualBasic);
    };
    const ClassInMemory stored = store(text);
    const std::string written = WriteVbClass(stored);
    if (FilledLines(written) != FilledLines(text)) return "other lines are written:\n" + written;
    const ClassInMemory again = store(written);
    if (again != stored) return "what was written is stored differently:\n" + again.text;
    return {};
}

}  // namespace snippetarium::test
