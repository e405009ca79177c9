#pragma once

#include <set>
#include <string>
#include <string_view>

namespace snippetarium {

/// Gives the procedures of one class names that can be stored and told apart.
class UnitNames {
  public:
    /// The name cut to 255 characters. Where that has been taken, a number makes it another, and
    /// the name gives way to it:
    ///
    ///     "Draw()", "Draw()", "Draw()"  ->  "Draw()", "Draw() (2)", "Draw() (3)"
    ///
    /// Names are the same that have the same bytes, because markers are found by their bytes.
    std::string Take(std::string_view name);

  private:
    std::set<std::string, std::less<>> taken_;
};

}  // namespace snippetarium
