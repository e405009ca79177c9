#include "support/unicode_encodings.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <string>

#include "support/utf8.h"

namespace snippetarium {

namespace {

enum class ByteOrder { Little, Big };

constexpr char32_t kFirstSurrogate = 0xD800;
constexpr char32_t kFirstLowSurrogate = 0xDC00;
constexpr char32_t kLastSurrogate = 0xDFFF;
constexpr char32_t kFirstSupplementary = 0x10000;
constexpr char32_t kLastCharacter = 0x10FFFF;

bool IsSurrogate(char32_t unit) {
    return unit >= kFirstSurrogate && unit <= kLastSurrogate;
}
bool IsHighSurrogate(char32_t unit) {
    return unit >= kFirstSurrogate && unit < kFirstLowSurrogate;
}
bool IsLowSurrogate(char32_t unit) {
    return unit >= kFirstLowSurrogate && unit <= kLastSurrogate;
}

class Utf8Encoding : public Encoding {
  public:
    Utf8Encoding() : Encoding(1, SharedWithUtf8::Everything) {}

    std::optional<char32_t> Read(std::string_view bytes, std::size_t& position) override {
        std::size_t behind = position;
        const char32_t character = DecodeUtf8(bytes, behind);
        if (IsSurrogate(character)) return std::nullopt;  // DecodeUtf8's way to say "malformed"
        position = behind;
        return character;
    }

    bool Append(std::string& bytes, char32_t character) override {
        AppendUtf8(bytes, character);
        return true;
    }
};

/// An encoding whose units are two or four bytes long.
class WideEncoding : public Encoding {
  protected:
    WideEncoding(std::size_t unitSize, ByteOrder order)
        : Encoding(unitSize, SharedWithUtf8::Nothing), order_(order) {}

    /// The unit at `position`; nothing where fewer bytes are left.
    std::optional<char32_t> UnitAt(std::string_view bytes, std::size_t position) const {
        if (bytes.size() - position < UnitSize()) return std::nullopt;
        char32_t unit = 0;
        for (std::size_t i = 0; i < UnitSize(); ++i) {
            const char32_t byte = static_cast<unsigned char>(bytes[position + i]);
            unit |= byte << Shift(i);
        }
        return unit;
    }

    void AppendUnit(std::string& bytes, char32_t unit) const {
        for (std::size_t i = 0; i < UnitSize(); ++i) {
            bytes += static_cast<char>(unit >> Shift(i) & 0xFFU);
        }
    }

  private:
    /// How far to the left in its unit the byte number i stands.
    std::size_t Shift(std::size_t i) const {
        return 8 * (order_ == ByteOrder::Little ? i : UnitSize() - 1 - i);
    }

    ByteOrder order_;
};

class Utf16Encoding : public WideEncoding {
  public:
    explicit Utf16Encoding(ByteOrder order) : WideEncoding(2, order) {}

    std::optional<char32_t> Read(std::string_view bytes, std::size_t& position) override {
        const std::optional<char32_t> first = UnitAt(bytes, position);
        if (!first || IsLowSurrogate(*first)) return std::nullopt;
        if (!IsHighSurrogate(*first)) {
            position += UnitSize();
            return first;
        }
        const std::optional<char32_t> second = UnitAt(bytes, position + UnitSize());
        if (!second || !IsLowSurrogate(*second)) return std::nullopt;
        position += 2 * UnitSize();
        return kFirstSupplementary + ((*first - kFirstSurrogate) << 10U) +
               (*second - kFirstLowSurrogate);
    }

    bool Append(std::string& bytes, char32_t character) override {
        if (character < kFirstSupplementary) {
            AppendUnit(bytes, character);
            return true;
        }
        const char32_t offset = character - kFirstSupplementary;
        AppendUnit(bytes, kFirstSurrogate + (offset >> 10U));
        AppendUnit(bytes, kFirstLowSurrogate + (offset & 0x3FFU));
        return true;
    }
};

class Utf32Encoding : public WideEncoding {
  public:
    explicit Utf32Encoding(ByteOrder order) : WideEncoding(4, order) {}

    std::optional<char32_t> Read(std::string_view bytes, std::size_t& position) override {
        const std::optional<char32_t> unit = UnitAt(bytes, position);
        if (!unit || *unit > kLastCharacter || IsSurrogate(*unit)) return std::nullopt;
        position += UnitSize();
        return unit;
    }

    bool Append(std::string& bytes, char32_t character) override {
        AppendUnit(bytes, character);
        return true;
    }
};

constexpr std::string_view kUtf8 = "UTF-8";
constexpr std::array<std::string_view, 5> kNames{kUtf8, "UTF-16LE", "UTF-16BE", "UTF-32LE",
                                                 "UTF-32BE"};

/// The name as in kNames; empty for any other name.
std::string_view StandardName(std::string_view name) {
    const auto found = std::find_if(kNames.begin(), kNames.end(), [&](std::string_view candidate) {
        return ucnv_compareNames(candidate.data(), std::string(name).c_str()) == 0;
    });
    return found == kNames.end() ? std::string_view() : *found;
}

}  // namespace

bool IsWideEncoding(std::string_view name) {
    const std::string_view standard = StandardName(name);
    return !standard.empty() && standard != kUtf8;
}

std::unique_ptr<Encoding> OpenUnicodeEncoding(std::string_view name) {
    const std::string_view standard = StandardName(name);
    if (standard.empty()) return nullptr;
    if (standard == kUtf8) return std::make_unique<Utf8Encoding>();
    const ByteOrder order = standard.ends_with("LE") ? ByteOrder::Little : ByteOrder::Big;
    if (standard.starts_with("UTF-16")) return std::make_unique<Utf16Encoding>(order);
    return std::make_unique<Utf32Encoding>(order);
}

}  // namespace snippetarium
