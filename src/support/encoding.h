#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "support/line_set.h"

namespace snippetarium {

// From bytes to UTF-8 text and back, for files of any content.
//
// A file holds bytes that its encoding gives no meaning: one bad byte in an old listing, half a
// character at the end, a NUL, or a character written in a way that the encoding itself would not
// choose. Export has to write all of them back. Tables of positions kept beside the text would be
// worth nothing after the first edit, so the text itself carries these bytes: each becomes a
// stand-in, the private character U+10FE00 + byte, wherever Decode meets a byte that Encode would
// not bring back from a character. Encode writes a stand-in as its byte. So Encode(Decode(bytes))
// gives the same bytes whatever they are, piece by piece: a stand-in is its byte, and a character
// is only decoded when its own encoding is exactly the bytes that it was read from. A procedure
// that moves to another class takes its odd bytes along.
//
// A file that does hold a character of the stand-ins' range gets a stand-in for each of its bytes,
// which keeps the rule without exception. NUL gets stand-ins too: many a tool, SQL among them,
// takes a NUL for the end of the text.

/// The stand-in for byte 0; that of byte b is kFirstStandIn + b.
inline constexpr char32_t kFirstStandIn = 0x10FE00;
inline constexpr char32_t kLastStandIn = kFirstStandIn + 0xFF;

/// Which text an encoding writes in the same bytes as UTF-8 does, and so needs no conversion.
enum class SharedWithUtf8 { Nothing, Ascii, Everything };

/// One way of writing characters as bytes, in which what a byte means does not depend on what came
/// before the character that it belongs to.
class Encoding {
  public:
    virtual ~Encoding() = default;

    /// The character that starts at `position`, which then moves behind it. Nothing, with
    /// `position` unmoved, where the bytes are no character, or one that Append would write
    /// differently.
    virtual std::optional<char32_t> Read(std::string_view bytes, std::size_t& position) = 0;

    /// Appends the bytes of a character; false, and nothing appended, when the encoding lacks it.
    virtual bool Append(std::string& bytes, char32_t character) = 0;

    /// How many bytes to step over where Read finds no character.
    std::size_t UnitSize() const { return unitSize_; }
    SharedWithUtf8 Shared() const { return shared_; }

  protected:
    Encoding(std::size_t unitSize, SharedWithUtf8 shared) : unitSize_(unitSize), shared_(shared) {}

  private:
    std::size_t unitSize_;
    SharedWithUtf8 shared_;
};

/// The encoding of this name, in any of its usual writings ("windows-1252", "CP1252", "Shift_JIS",
/// "GBK", "UTF-8", "UTF-16LE"). Throws Error for a name it does not know and for an encoding that
/// shifts between alphabets by escape sequences.
std::unique_ptr<Encoding> OpenEncoding(std::string_view name);

/// True when OpenEncoding takes the name: for checking a setting before it is used.
bool IsKnownEncoding(std::string_view name);

struct DecodedText {
    std::string text;
    /// Lines with a NUL, and lines with other bytes that had to be replaced by stand-ins.
    LineSet nulLines;
    LineSet undecodableLines;
};

DecodedText Decode(std::string_view bytes, Encoding& encoding);

/// True when bytes of UTF-8 are their own text, without a stand-in: a decoding that is none.
bool IsPlainUtf8(std::string_view bytes);

struct EncodedText {
    std::string bytes;
    /// Lines with characters that the encoding lacks; they are missing from the bytes.
    LineSet unencodableLines;
};

/// Bytes of the text that are no UTF-8 are written as they are.
EncodedText Encode(std::string_view text, Encoding& encoding);

}  // namespace snippetarium
