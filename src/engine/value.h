#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace snippetarium {

/// One field of a record: null, a whole number, a real number or a text. Small and cheap to copy; a
/// text is only looked at, and belongs to the recordset that gave the value.
class Value {
  public:
    enum class Kind : std::uint8_t { Null, Integer, Real, Text };

    Value() = default;
    static Value Integer(std::int64_t integer);
    static Value Real(double real);
    static Value Text(std::string_view text);

    Kind GetKind() const { return kind_; }
    bool IsNull() const { return kind_ == Kind::Null; }

    /// As a 32-bit number; null is 0. A real number is rounded, halves to the even neighbour; a
    /// text must be a number. Throws EngineError (TypeConversion) where that is impossible.
    std::int32_t Long() const;
    /// As Long, without the 32-bit limit.
    std::int64_t Integer64() const;
    /// Yes/no columns: everything but 0 and null is true.
    bool Boolean() const { return Integer64() != 0; }
    /// As text; null is the empty text.
    std::string Text() const;
    /// The text without a copy; empty when the value is no text.
    std::string_view TextView() const { return text_; }

  private:
    Kind kind_ = Kind::Null;
    std::int64_t integer_ = 0;
    double real_ = 0.0;
    std::string_view text_;
};

}  // namespace snippetarium
