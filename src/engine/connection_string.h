#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

struct ConnectionStringParts {
    std::string provider;
    std::string dataSource;
};

/// Takes "Provider=NAME;Data Source=PATH" apart; keys without regard to case, blanks around them
/// ignored. A value ends at a semicolon only where another key follows it: a folder's name may hold
/// semicolons. Throws EngineError (WrongParameters) where text stands that is no key, a key comes
/// twice, or one of the two is missing.
ConnectionStringParts ParseConnectionString(std::string_view text);

}  // namespace snippetarium
