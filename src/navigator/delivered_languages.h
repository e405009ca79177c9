#pragma once

#include <cstdint>

namespace snippetarium::delivered_language {

// The IDs of the languages that every catalogue is delivered with. A user can give them other
// names; what they are stays.

inline constexpr std::int32_t kVisualBasic = 1;
inline constexpr std::int32_t kJava = 2;
inline constexpr std::int32_t kCSharp = 3;
inline constexpr std::int32_t kCpp = 4;
inline constexpr std::int32_t kC = 5;
inline constexpr std::int32_t kServerPage = 6;
inline constexpr std::int32_t kJavaScript = 7;
inline constexpr std::int32_t kVbScript = 8;
inline constexpr std::int32_t kHtmlPage = 9;
inline constexpr std::int32_t kCHeader = 10;
inline constexpr std::int32_t kCppHeader = 11;

}  // namespace snippetarium::delivered_language
