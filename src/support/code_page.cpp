#include "support/code_page.h"

#include <unicode/ucnv.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace snippetarium {

namespace {

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

/// No code page in use has longer ones (four bytes is what the Chinese standard needs).
constexpr std::size_t kLongestSequence = 7;
constexpr std::size_t kRoom = 16;

/// True for code pages in which each character stands for itself, whatever precedes it.
bool IsStateless(UConverterType type) {
    switch (type) {
        case UCNV_SBCS:
        case UCNV_DBCS:
        case UCNV_MBCS:
        case UCNV_LATIN_1:
        case UCNV_US_ASCII:
            return true;
        default:
            return false;
    }
}

/// The converter, which fails where it finds no exact mapping; null for a name that is no code
/// page's.
Converter OpenConverter(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    if (name.empty()) return nullptr;
    Converter converter(ucnv_open(name.c_str(), &status));
    if (U_FAILURE(status) || !IsStateless(ucnv_getType(converter.get()))) return nullptr;
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &status);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                          &status);
    ucnv_setFallback(converter.get(), false);
    return U_FAILURE(status) ? nullptr : std::move(converter);
}

/// The bytes of a character, empty when the code page lacks it.
std::string BytesOf(UConverter* converter, char32_t character) {
    std::array<UChar, 2> units{};
    std::int32_t unitCount = 0;
    UBool isNoCharacter = false;
    U16_APPEND(units.data(), unitCount, 2, static_cast<UChar32>(character), isNoCharacter);
    if (isNoCharacter) return {};
    std::array<char, kRoom> bytes{};
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t size =
        ucnv_fromUChars(converter, bytes.data(), bytes.size(), units.data(), unitCount, &status);
    if (U_FAILURE(status)) return {};
    return std::string(bytes.data(), static_cast<std::size_t>(size));
}

/// The one character that the bytes are, all of them; nothing when they are none, or more than one.
std::optional<char32_t> CharacterOf(UConverter* converter, std::string_view bytes) {
    std::array<UChar, kRoom> units{};
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t unitCount =
        ucnv_toUChars(converter, units.data(), units.size(), bytes.data(),
                      static_cast<std::int32_t>(bytes.size()), &status);
    if (U_FAILURE(status) || unitCount == 0) return std::nullopt;
    std::int32_t position = 0;
    UChar32 character = 0;
    U16_NEXT(units.data(), position, unitCount, character);
    if (position != unitCount || U_IS_SURROGATE(character)) return std::nullopt;
    return static_cast<char32_t>(character);
}

/// True when the bytes 1 to 0x7F and the characters of these codes stand for each other.
bool MapsAsciiToItself(UConverter* converter) {
    std::array<char, 0x7F> ascii{};
    std::iota(ascii.begin(), ascii.end(), '\1');
    std::array<UChar, 2 * ascii.size()> units{};
    std::array<char, 2 * ascii.size()> bytes{};
    UErrorCode status = U_ZERO_ERROR;
    const auto unitCount =
        ucnv_toUChars(converter, units.data(), units.size(), ascii.data(), ascii.size(), &status);
    const auto byteCount =
        ucnv_fromUChars(converter, bytes.data(), bytes.size(), units.data(), unitCount, &status);
    return U_SUCCESS(status) &&
           std::equal(ascii.begin(), ascii.end(), units.begin(), units.begin() + unitCount) &&
           std::equal(ascii.begin(), ascii.end(), bytes.begin(), bytes.begin() + byteCount);
}

/// A code page asks the converter once for each sequence and character that it meets: a file has
/// few different ones, and the answers are the same all through it.
///
/// A sequence is the shortest one that is a character and whose character has exactly these bytes.
/// The second condition turns down the duplicates that vendors gave to the Japanese and Chinese
/// pages, which would come back as other bytes.
class CodePage : public Encoding {
  public:
    explicit CodePage(Converter converter)
        : Encoding(1, MapsAsciiToItself(converter.get()) ? SharedWithUtf8::Ascii
                                                         : SharedWithUtf8::Nothing),
          longest_(std::min(kLongestSequence,
                            static_cast<std::size_t>(ucnv_getMaxCharSize(converter.get())))),
          converter_(std::move(converter)) {}

    std::optional<char32_t> Read(std::string_view bytes, std::size_t& position) override {
        const std::size_t longest = std::min(longest_, bytes.size() - position);
        for (std::size_t length = 1; length <= longest; ++length) {
            const auto character = ExactCharacter(bytes.substr(position, length));
            if (!character) continue;
            position += length;
            return character;
        }
        return std::nullopt;
    }

    bool Append(std::string& bytes, char32_t character) override {
        const std::string& own = Bytes(character);
        bytes += own;
        return !own.empty();
    }

  private:
    const std::string& Bytes(char32_t character) {
        const auto [entry, isNew] = bytes_.try_emplace(character);
        if (isNew) entry->second = BytesOf(converter_.get(), character);
        return entry->second;
    }

    std::optional<char32_t> ExactCharacter(std::string_view sequence) {
        // A leading 1 keeps sequences of different lengths apart, whatever their zeros.
        std::uint64_t key = 1;
        for (const char byte : sequence)
            key = key << 8U | static_cast<unsigned char>(byte);
        const auto [entry, isNew] = characters_.try_emplace(key);
        if (isNew) {
            const auto character = CharacterOf(converter_.get(), sequence);
            if (character && Bytes(*character) == sequence) entry->second = character;
        }
        return entry->second;
    }

    std::size_t longest_;
    Converter converter_;
    std::unordered_map<std::uint64_t, std::optional<char32_t>> characters_;
    std::unordered_map<char32_t, std::string> bytes_;
};

}  // namespace

std::unique_ptr<Encoding> OpenCodePage(std::string_view name) {
    Converter converter = OpenConverter(std::string(name));
    return converter ? std::make_unique<CodePage>(std::move(converter)) : nullptr;
}

}  // namespace snippetarium
