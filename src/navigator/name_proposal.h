#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace snippetarium {

struct NameQuestion {
    /// The procedure's text, with any line ends; it may be unfinished.
    std::string_view code = {};
    /// The procedure's own language.
    std::int32_t languageID = 0;
    /// The name of its class; Java and C# have it in the names of their methods.
    std::string_view className = {};
};

/// The name that an import would give to the procedure with this text: the one of the first
/// procedure in it. At most 255 characters. Empty where none is found, and in languages that the
/// import does not know. It takes a fraction of a second at most.
///
///     Private Sub Draw(x)          Visual Basic              gives    Draw(x)
///     void draw(int x) {}          Java, class Grid          gives    Grid.draw(int x)
std::string ProposedName(const NameQuestion& question);

}  // namespace snippetarium
