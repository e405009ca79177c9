#include "support/encoding.h"

#include <algorithm>
#include <utility>

#include "support/code_page.h"
#include "support/error.h"
#include "support/unicode_encodings.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// All UTF-8 sequences from U+10F000 on start with these two bytes, the stand-ins among them.
constexpr std::string_view kStandInLead = "\xF4\x8F";
/// What DecodeUtf8 gives for a malformed byte b: this + b, b being 0x80 or more.
constexpr char32_t kMalformed = 0xDC00;

bool IsStandIn(char32_t character) {
    return character >= kFirstStandIn && character <= kLastStandIn;
}

bool IsMalformed(char32_t character) {
    return character >= kMalformed + 0x80U && character <= kMalformed + 0xFFU;
}

/// ICU overlooks signs that have no business in a name. Stored forms put a meaning into some of
/// them.
bool IsName(std::string_view name) {
    return name.find_first_not_of(
               "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
               "0123456789-_.:") == std::string_view::npos;
}

std::unique_ptr<Encoding> OpenIfKnown(std::string_view name) {
    if (!IsName(name)) return nullptr;
    auto unicode = OpenUnicodeEncoding(name);
    return unicode ? std::move(unicode) : OpenCodePage(name);
}

/// Numbers the lines of a text that grows, at the cost of one look at each of its bytes.
class LineNumberer {
  public:
    /// The number of the line at the end of the text.
    std::size_t LineAtEnd(std::string_view text) {
        const std::string_view added = text.substr(seen_);
        line_ += static_cast<std::size_t>(std::count(added.begin(), added.end(), '\n'));
        seen_ = text.size();
        return line_;
    }

  private:
    std::size_t seen_ = 0;
    std::size_t line_ = 1;
};

bool IsUtf8(const Encoding& encoding) {
    return encoding.Shared() == SharedWithUtf8::Everything;
}

/// Copies the run at `position` that reads the same in the encoding and in UTF-8, and moves behind
/// it. False when there is none. NUL ends a run.
bool CopyShared(std::string& target, std::string_view source, std::size_t& position,
                const Encoding& encoding) {
    if (encoding.Shared() == SharedWithUtf8::Nothing) return false;
    const auto isSpecial = [](char byte) { return static_cast<signed char>(byte) <= 0; };
    const auto start = source.begin() + static_cast<std::ptrdiff_t>(position);
    const auto end = std::find_if(start, source.end(), isSpecial);
    target.append(start, end);
    position += static_cast<std::size_t>(end - start);
    return end != start;
}

}  // namespace

std::unique_ptr<Encoding> OpenEncoding(std::string_view name) {
    if (auto encoding = OpenIfKnown(name)) return encoding;
    throw Error(error_number::kInvalidCall,
                "\"" + std::string(name) +
                    "\" is not an encoding that can be used. Give a name such as \"windows-1252\", "
                    "\"windows-1251\", \"Shift_JIS\", \"GBK\" or \"UTF-8\".");
}

bool IsKnownEncoding(std::string_view name) {
    return OpenIfKnown(name) != nullptr;
}

bool IsPlainUtf8(std::string_view bytes) {
    return bytes.find('\0') == std::string_view::npos &&
           bytes.find(kStandInLead) == std::string_view::npos && IsValidUtf8(bytes);
}

DecodedText Decode(std::string_view bytes, Encoding& encoding) {
    DecodedText decoded;
    if (IsUtf8(encoding) && IsPlainUtf8(bytes)) {
        decoded.text = bytes;
        return decoded;
    }
    LineNumberer lines;
    for (std::size_t position = 0; position < bytes.size();) {
        if (CopyShared(decoded.text, bytes, position, encoding)) continue;
        const std::size_t start = position;
        const std::optional<char32_t> character = encoding.Read(bytes, position);
        if (character && *character != 0 && !IsStandIn(*character)) {
            AppendUtf8(decoded.text, *character);
            continue;
        }
        if (!character) position += std::min(encoding.UnitSize(), bytes.size() - position);
        const bool isNul = character == U'\0';
        (isNul ? decoded.nulLines : decoded.undecodableLines).Add(lines.LineAtEnd(decoded.text));
        for (const char byte : bytes.substr(start, position - start)) {
            AppendUtf8(decoded.text, kFirstStandIn + static_cast<unsigned char>(byte));
        }
    }
    return decoded;
}

EncodedText Encode(std::string_view text, Encoding& encoding) {
    EncodedText encoded;
    if (IsUtf8(encoding) && text.find(kStandInLead) == std::string_view::npos) {
        encoded.bytes = text;
        return encoded;
    }
    LineNumberer lines;
    for (std::size_t position = 0; position < text.size();) {
        if (CopyShared(encoded.bytes, text, position, encoding)) continue;
        const std::size_t start = position;
        const char32_t character = DecodeUtf8(text, position);
        if (IsStandIn(character)) {
            encoded.bytes += static_cast<char>(character - kFirstStandIn);
        } else if (IsMalformed(character)) {
            encoded.bytes += static_cast<char>(character - kMalformed);
        } else if (!encoding.Append(encoded.bytes, character)) {
            encoded.unencodableLines.Add(lines.LineAtEnd(text.substr(0, start)));
        }
    }
    return encoded;
}

}  // namespace snippetarium
