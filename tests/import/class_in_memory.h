#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "export/markers.h"
#include "import/cut_file.h"
#include "support/case_fold.h"
#include "support/line_ends.h"
#include "support/utf8.h"

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

/// True when the text stands anywhere in the file.
inline bool Holds(const CutFile& cut, std::string_view text) {
    const auto isIn = [text](std::string_view part) {
        return part.find(text) != std::string_view::npos;
    };
    const auto isInProcedure = [&](const CutProcedure& procedure) {
        return isIn(procedure.comment) || isIn(procedure.code);
    };
    return isIn(cut.text) || std::ranges::any_of(cut.procedures, isInProcedure);
}

/// A name that no procedure has yet, and whose marker does not stand in the file by chance, within
/// the size of its column.
inline std::string FreeName(const ClassInMemory& stored, const CutFile& cut, MarkerFamily family,
                            const std::string& wanted) {
    const auto isTaken = [&](const std::string& name) {
        return std::ranges::count(stored.procedures, name, &ProcedureInMemory::name) > 0 ||
               Holds(cut, MarkerText(family, name));
    };
    constexpr std::size_t kLongest = 255;
    std::string name(CutToCharacters(wanted, kLongest));
    for (int number = 2; isTaken(name); ++number) {
        const std::string suffix = " (" + std::to_string(number) + ")";
        name = std::string(CutToCharacters(wanted, kLongest - suffix.size())) + suffix;
    }
    return name;
}

inline ClassInMemory Store(const CutFile& cut, MarkerFamily family) {
    ClassInMemory stored{cut.className, cut.comment, {}, {}};
    std::size_t copied = 0;
    for (const CutProcedure& procedure : cut.procedures) {
        if (procedure.name.empty()) continue;
        const std::string name = FreeName(stored, cut, family, procedure.name);
        stored.text.append(cut.text, copied, procedure.position - copied);
        stored.text += MarkerText(family, name);
        copied = procedure.position;
        stored.procedures.push_back({name, procedure.comment, procedure.code});
    }
    stored.text.append(cut.text, copied);
    return stored;
}

/// The class's text with the comment and the code of each procedure in the place of its marker,
/// one procedure after the other.
inline std::string ExpandVbProcedures(const ClassInMemory& stored) {
    std::string text = stored.text;
    for (const ProcedureInMemory& procedure : stored.procedures) {
        const std::string marker = MarkerLine(MarkerFamily::VisualBasic, procedure.name);
        const std::string comment = procedure.comment.empty() ? "" : procedure.comment + "\r\n";
        const std::string inserted = comment + procedure.code + "\r\n";
        for (std::size_t at = text.find(marker); at != std::string::npos;
             at = text.find(marker, at + inserted.size()))
            text.replace(at, marker.size(), inserted);
    }
    return text;
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

/// What is wrong with the way of a file into the catalogue and out of it, twice; empty when all is
/// well. `cut` is the cutter: from a text to a CutFile with Visual Basic markers.
template <typename Cut>
std::string FaultOfRoundTrip(std::string file, Cut&& cut) {
    LineEnds ends = NormaliseLineEnds(file);
    const ClassInMemory stored = Store(cut(file), MarkerFamily::VisualBasic);
    const std::string written = WithLineEnds(WriteVbClass(stored), ends);

    std::string text = written;
    ends = NormaliseLineEnds(text);
    if (FilledLines(text) != FilledLines(file)) return "other lines are written:\n" + text;
    const ClassInMemory again = Store(cut(text), MarkerFamily::VisualBasic);
    if (again != stored) return "what was written is stored differently:\n" + again.text;
    if (WithLineEnds(WriteVbClass(again), ends) != written) return "it grows:\n" + written;
    return {};
}

}  // namespace snippetarium::test
