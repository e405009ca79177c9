#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace snippetarium {

/// Turns places in a UTF-8 text into those that a control counts, in UTF-16 units, and back. Both
/// count from 0. Made once for a text; a look-up takes no time that grows with it.
class Utf16Map {
  public:
    Utf16Map() = default;
    /// The text must be well-formed and outlive this.
    explicit Utf16Map(std::string_view text);

    /// A place within a character counts as its beginning, one behind the text as its end.
    std::size_t ToUtf16(std::size_t byte) const;
    std::size_t ToByte(std::size_t unit) const;

  private:
    static constexpr std::size_t kStride = 256;

    std::string_view text_;
    bool isAscii_ = true;
    std::vector<std::size_t> units_;  // before byte kStride * i
};

}  // namespace snippetarium
