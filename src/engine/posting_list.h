#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/id_set.h"

namespace snippetarium {

// A list of ascending numbers as bytes: each number as its distance from the one before, the first
// from 0, in groups of seven bits, the lowest first; the highest bit of a byte says that more
// follow. Most lists are dense, so most numbers take one byte.

/// Appends one number in that form.
void AppendNumber(std::string& bytes, std::uint32_t number);

/// Reads such numbers one by one.
class NumberReader {
  public:
    explicit NumberReader(std::string_view bytes) : bytes_(bytes) {}

    bool IsAtEnd() const { return position_ == bytes_.size(); }
    /// Throws EngineError Corrupted where the bytes end before the number does.
    std::uint32_t Next() {
        std::uint32_t number = 0;
        for (unsigned shift = 0;; shift += 7) {
            if (IsAtEnd() || shift > 28) ThrowDamaged();
            const auto byte = static_cast<unsigned char>(bytes_[position_++]);
            number |= (byte & 0x7FU) << shift;
            if (byte < 0x80U) return number;
        }
    }
    /// The next bytes as they are. Throws as Next does.
    std::string_view Take(std::size_t size);
    std::string_view Rest() const { return bytes_.substr(position_); }

  private:
    [[noreturn]] static void ThrowDamaged();

    std::string_view bytes_;
    std::size_t position_ = 0;
};

std::string EncodePostings(std::span<const std::uint32_t> ids);
/// Appends the numbers of a list, each plus `base`.
void DecodePostings(std::string_view postings, std::uint32_t base, std::vector<std::uint32_t>& ids);
/// Adds the numbers of a list, each plus `base`. Throws EngineError Corrupted.
void AddPostings(std::string_view postings, std::uint32_t base, IdSet& ids);

}  // namespace snippetarium
