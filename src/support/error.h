#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace snippetarium {

/// A failure with a number and a text, the two things that the error message shows to the user.
/// Everything this program throws on purpose is an Error or derived from it.
class Error : public std::runtime_error {
  public:
    Error(std::int32_t number, const std::string& description)
        : std::runtime_error(description), number_(number) {}

    std::int32_t Number() const { return number_; }
    std::string Description() const { return what(); }

  private:
    std::int32_t number_;
};

/// Numbers of failures that are not the database engine's (those are in engine/engine_error.h).
/// They are the run-time error numbers that Basic programmers know.
namespace error_number {
inline constexpr std::int32_t kInvalidCall = 5;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kInternal = 51;
inline constexpr std::int32_t kBadFileName = 52;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kFileReadWrite = 57;
inline constexpr std::int32_t kFileExists = 58;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathNotFound = 76;
}  // namespace error_number

}  // namespace snippetarium
