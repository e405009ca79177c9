#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

class CommandContext;

// Texts for the catalogue, as a command gets them.

/// Throws UsageError where the value of the argument or option `name` is not valid UTF-8.
void RequireUtf8(std::string_view name, std::string_view value);

/// The value of an argument or option; nothing where it was not given. Its lines end in CR LF.
/// Throws UsageError where it is not valid UTF-8.
std::optional<std::string> TextArgument(const CommandContext& context, std::string_view name);

/// The text in the file that an option names, or for "-" in the standard input; nothing where the
/// option was not given. Read as source files are (support/text_file.h), with CR LF line ends; the
/// line end that ends the file is not part of the text. Throws Error for a file that cannot be
/// read, and for one too long to be a text of the catalogue.
std::optional<std::string> FileArgument(const CommandContext& context, std::string_view option);

/// The entries of a list like "Ann Lee; Bob Ray", without the blanks around them; those that are
/// empty are left out.
std::vector<std::string> SplitList(std::string_view list);

}  // namespace snippetarium
