#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace snippetarium {

// What the analyser of a file kind makes of a file's text, before anything of it is stored.
// Analysers know texts and no catalogue; storing (import/unit_store.h) knows the catalogue and no
// programming language.

/// A procedure cut out of a file. Its texts are stored as they stand here; what is too long is cut
/// when it is stored.
struct CutProcedure {
    /// Empty where none was found. Such a procedure is reported, not stored; the text of its file
    /// still holds it, with its comment, and no marker is put in.
    std::string name = {};
    /// The comment block that heads it. Empty is none.
    std::string comment = {};
    std::string code = {};
    /// The language of the part of a page that it stands in; empty is that of its file.
    std::string language = {};
    /// Where its marker goes: this many bytes into the text of its file.
    std::size_t position = 0;
};

/// A file without its procedures. All texts are UTF-8 with CR LF between lines.
struct CutFile {
    /// Empty where the text names none.
    std::string className = {};
    std::string comment = {};
    /// What is left of the file. The bare marker of each procedure is put in at its position; a
    /// line break that belongs behind the marker already stands here.
    std::string text = {};
    /// In the order of their positions; several may share one.
    std::vector<CutProcedure> procedures = {};
    /// Sentences for the report, each without its indent and line break. They speak of procedures
    /// and lines and do not name the file.
    std::vector<std::string> problems = {};
};

}  // namespace snippetarium
