#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

/// What the command line gave a command, under the names of its description: "KEY", "--depth".
class Arguments {
  public:
    void Add(std::string_view name, std::string value);

    bool Has(std::string_view name) const { return !All(name).empty(); }
    /// The value, the last one where there are several; nothing where none was given.
    std::optional<std::string> Value(std::string_view name) const;
    std::span<const std::string> All(std::string_view name) const;
    /// The value as a number in a range; nothing where none was given. Throws UsageError.
    std::optional<std::int32_t> Number(std::string_view name, std::int32_t least,
                                       std::int32_t most) const;

  private:
    std::map<std::string, std::vector<std::string>, std::less<>> values_;
};

/// The number that a text is, all of it, in decimal digits with an optional minus; nothing where it
/// is none or lies beyond 32 bits.
std::optional<std::int32_t> ReadNumber(std::string_view text);

}  // namespace snippetarium
