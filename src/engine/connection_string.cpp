#include "engine/connection_string.h"

#include <array>
#include <optional>

#include "engine/engine_error.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

struct Key {
    std::string_view name;
    std::string ConnectionStringParts::*value;
};

constexpr std::array<Key, 2> kKeys = {{
    {"Provider", &ConnectionStringParts::provider},
    {"Data Source", &ConnectionStringParts::dataSource},
}};

struct KeyAt {
    const Key* key;
    std::size_t valueStart;
};

std::string_view TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The key that stands at `start` (blanks before and behind it allowed), up to its equals sign.
std::optional<KeyAt> FindKey(std::string_view text, std::size_t start) {
    const std::size_t equals = text.find('=', start);
    if (equals == std::string_view::npos) return std::nullopt;
    const std::string_view name = TrimBlanks(text.substr(start, equals - start));
    for (const Key& key : kKeys) {
        if (EqualsIgnoringAsciiCase(name, key.name)) return KeyAt{&key, equals + 1};
    }
    return std::nullopt;
}

[[noreturn]] void Refuse(std::string_view text, std::string_view why) {
    throw EngineError(EngineErrorCode::WrongParameters,
                      "The connection string '" + std::string(text) + "' " + std::string(why));
}

/// Where the value that starts at `start` ends: at the first semicolon with a key, or nothing,
/// behind.
std::size_t FindValueEnd(std::string_view text, std::size_t start) {
    for (std::size_t end = text.find(';', start); end != std::string_view::npos;
         end = text.find(';', end + 1)) {
        if (TrimBlanks(text.substr(end + 1)).empty() || FindKey(text, end + 1)) return end;
    }
    return text.size();
}

}  // namespace

ConnectionStringParts ParseConnectionString(std::string_view text) {
    ConnectionStringParts parts;
    for (std::size_t start = 0; start < text.size();) {
        if (TrimBlanks(text.substr(start)).empty()) break;
        const std::optional<KeyAt> found = FindKey(text, start);
        if (!found) Refuse(text, "holds a part that is neither a provider nor a data source.");
        std::string& value = parts.*found->key->value;
        if (!value.empty()) Refuse(text, "gives one of its parts twice.");
        const std::size_t end = FindValueEnd(text, found->valueStart);
        value = TrimBlanks(text.substr(found->valueStart, end - found->valueStart));
        start = end + 1;
    }
    if (parts.provider.empty()) Refuse(text, "names no provider.");
    if (parts.dataSource.empty()) Refuse(text, "names no data source.");
    return parts;
}

}  // namespace snippetarium
