#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace snippetarium {

/// The names of a new class's procedures, which are added one after the other. No two are the
/// same bytes: each procedure has a marker of its own by its name (export/markers.h), and two that
/// an import finds under one name, an overload or the other branch of a condition, are told apart
/// by a number.
class UniqueNames {
  public:
    /// The name as the procedure is to be stored, from then on one of the names: the first 255
    /// characters; where these are taken, with the lowest number from 2 that makes them new,
    /// shortened so that it fits: "Draw" gives "Draw", "Draw (2)", "Draw (3)".
    std::string Add(std::string_view name);

  private:
    std::unordered_set<std::string> names_;
    /// The numbers that names have been given, so that a thousand equal ones are not counted
    /// through from 2 a thousand times.
    std::unordered_map<std::string, std::int32_t> lastNumbers_;
};

/// "Draw" and 2 give "Draw (2)"; a long name is shortened so that it stays within its limit.
std::string NumberedName(std::string_view name, std::int32_t number);

}  // namespace snippetarium
