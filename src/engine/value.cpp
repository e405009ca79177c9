#include "engine/value.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "engine/engine_error.h"

namespace snippetarium {

namespace {

// Above these a double no longer fits a 64-bit number; the bounds themselves are exact doubles.
constexpr double kLowestInteger = -9223372036854775808.0;
constexpr double kAboveIntegers = 9223372036854775808.0;

[[noreturn]] void ThrowNoNumber(const std::string& text) {
    throw EngineError(EngineErrorCode::TypeConversion,
                      "The value '" + text + "' cannot be converted to a whole number.");
}

std::string RealText(double real) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, real);
    return std::string(buffer, result.ptr);
}

std::int64_t Rounded(double real) {
    const double whole = std::nearbyint(real);
    if (!(whole >= kLowestInteger && whole < kAboveIntegers)) ThrowNoNumber(RealText(real));
    return static_cast<std::int64_t>(whole);
}

std::int64_t ParsedInteger(std::string_view text) {
    const char* end = text.data() + text.size();
    std::int64_t integer = 0;
    const auto asInteger = std::from_chars(text.data(), end, integer);
    if (asInteger.ec == std::errc() && asInteger.ptr == end) return integer;
    double real = 0.0;
    const auto asReal = std::from_chars(text.data(), end, real);
    if (asReal.ec != std::errc() || asReal.ptr != end) ThrowNoNumber(std::string(text));
    return Rounded(real);
}

}  // namespace

Value Value::Integer(std::int64_t integer) {
    Value value;
    value.kind_ = Kind::Integer;
    value.integer_ = integer;
    return value;
}

Value Value::Real(double real) {
    Value value;
    value.kind_ = Kind::Real;
    value.real_ = real;
    return value;
}

Value Value::Text(std::string_view text) {
    Value value;
    value.kind_ = Kind::Text;
    value.text_ = text;
    return value;
}

std::int64_t Value::Integer64() const {
    switch (kind_) {
        case Kind::Null:
            return 0;
        case Kind::Integer:
            return integer_;
        case Kind::Real:
            return Rounded(real_);
        case Kind::Text:
            return ParsedInteger(text_);
    }
    return 0;
}

std::int32_t Value::Long() const {
    const std::int64_t integer = Integer64();
    if (integer < std::numeric_limits<std::int32_t>::min() ||
        integer > std::numeric_limits<std::int32_t>::max()) {
        ThrowNoNumber(std::to_string(integer));
    }
    return static_cast<std::int32_t>(integer);
}

std::string Value::Text() const {
    switch (kind_) {
        case Kind::Null:
            return {};
        case Kind::Integer:
            return std::to_string(integer_);
        case Kind::Real:
            return RealText(real_);
        case Kind::Text:
            return std::string(text_);
    }
    return {};
}

}  // namespace snippetarium
