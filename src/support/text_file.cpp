#include "support/text_file.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "support/encoding.h"
#include "support/unicode_encodings.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

using namespace std::string_view_literals;

constexpr char32_t kByteOrderMark = 0xFEFF;
constexpr std::string_view kUtf8 = "UTF-8";

struct Mark {
    std::string_view bytes;
    std::string_view encoding;
};

// The mark of UTF-16LE starts that of UTF-32LE, so the longer one is looked for first.
// clang-format off
constexpr std::array kMarks{
    Mark{"\xEF\xBB\xBF"sv, kUtf8},
    Mark{"\xFF\xFE\x00\x00"sv, "UTF-32LE"},
    Mark{"\x00\x00\xFE\xFF"sv, "UTF-32BE"},
    Mark{"\xFF\xFE"sv, "UTF-16LE"},
    Mark{"\xFE\xFF"sv, "UTF-16BE"},
};
// clang-format on

const Mark* FindMark(std::string_view bytes) {
    const auto mark = std::find_if(kMarks.begin(), kMarks.end(), [&](const Mark& candidate) {
        return bytes.starts_with(candidate.bytes);
    });
    return mark == kMarks.end() ? nullptr : &*mark;
}

/// Whether bytes without a mark are to be read as UTF-8.
bool IsUtf8File(std::string_view bytes, std::string_view fallback) {
    const bool hasNul = bytes.find('\0') != std::string_view::npos;
    return IsValidUtf8(bytes) && !(hasNul && IsWideEncoding(fallback));
}

void TakeDecoded(TextFile& file, std::string_view bytes) {
    DecodedText decoded = Decode(bytes, *OpenEncoding(file.form.encoding));
    file.text = std::move(decoded.text);
    file.nulLines = std::move(decoded.nulLines);
    file.undecodableLines = std::move(decoded.undecodableLines);
}

/// Text with its line ends made, in an encoding, behind a byte-order mark if one is wanted.
EncodedTextFile Encoded(std::string_view text, std::string_view encodingName, bool withMark) {
    const std::unique_ptr<Encoding> encoding = OpenEncoding(encodingName);
    EncodedText encoded = Encode(text, *encoding);
    if (!withMark) return {std::move(encoded.bytes), std::move(encoded.unencodableLines)};
    std::string bytes;
    encoding->Append(bytes, kByteOrderMark);
    return {bytes + encoded.bytes, std::move(encoded.unencodableLines)};
}

}  // namespace

TextFile DecodeTextFile(std::string_view bytes, std::string_view fallbackEncoding) {
    TextFile file;
    if (const Mark* mark = FindMark(bytes)) {
        file.form.encoding = mark->encoding;
        file.form.hasByteOrderMark = true;
        bytes.remove_prefix(mark->bytes.size());
        TakeDecoded(file, bytes);
    } else if (IsPlainUtf8(bytes)) {
        file.text = bytes;  // what nearly every file is, and not looked at twice
    } else {
        if (!IsUtf8File(bytes, fallbackEncoding)) file.form.encoding = fallbackEncoding;
        TakeDecoded(file, bytes);
    }
    file.form.lineEnds = NormaliseLineEnds(file.text);
    return file;
}

EncodedTextFile EncodeTextFile(std::string_view text, const SourceForm& form) {
    const std::string lines = WithLineEnds(text, form.lineEnds);
    EncodedTextFile file = Encoded(lines, form.encoding, form.hasByteOrderMark);
    if (!file.unencodableLines.Empty()) file.bytes = Encoded(lines, kUtf8, true).bytes;
    return file;
}

}  // namespace snippetarium
