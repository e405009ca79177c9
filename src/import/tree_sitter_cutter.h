#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "import/cut_file.h"
#include "import/line_progress.h"
#include "import/source_units.h"

namespace snippetarium {

// Cutting files of languages whose syntax trees are known. The text is UTF-8 with CR LF between
// lines, in any state: what is no source of the language stays uncut. A file that is too tangled to
// be analysed in sensible time and memory stays whole, and the result says so; so does a file
// during whose analysis the user cancelled.
//
// Procedures are the outermost definitions that have a body. They are named by the types around
// them in the file, with their parameters behind: "Grid.Draw(int x, int y)". A name ends after 255
// characters.

/// Methods and constructors, in classes, interfaces, enumerations, their constants, and records.
/// The file's class is its first type.
CutFile CutJava(std::string_view text, LineProgress& progress);

/// Methods, constructors, destructors, operators, conversions, indexers, properties and events;
/// those that stand on whole lines, which is what export can put back in this language. The file's
/// class is its first type.
CutFile CutCSharp(std::string_view text, LineProgress& progress);

/// Functions, methods, and functions that are the value of a variable, an assignment, or an
/// object's property; also inside functions that are called where they stand or handed to a call,
/// because whole files are wrapped so. Names no class.
CutFile CutJavaScript(std::string_view text, LineProgress& progress);

/// What is to be cut out of a script, by its places in the text.
struct ScriptUnits {
    std::vector<SourceUnit> units = {};
    std::vector<TextRange> comments = {};
    std::vector<std::string> problems = {};
};

/// The same for a script that is a part of a page.
ScriptUnits FindJavaScriptUnits(std::string_view text, LineProgress& progress);

}  // namespace snippetarium
