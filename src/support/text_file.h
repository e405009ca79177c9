#pragma once

#include <string>
#include <string_view>

#include "support/line_set.h"
#include "support/source_form.h"

namespace snippetarium {

/// The encoding of files that do not tell theirs, unless the user has chosen another.
inline constexpr std::string_view kDefaultEncoding = "windows-1252";

/// A file of source text, as the catalogue takes it.
struct TextFile {
    /// UTF-8 with CR LF line ends and without NUL. A byte that is no character is kept as a
    /// stand-in (support/encoding.h).
    std::string text;
    SourceForm form;
    /// Lines for the report: with a NUL, and with other bytes that are no character.
    LineSet nulLines;
    LineSet undecodableLines;
};

/// Reads any bytes as text. The encoding is what a byte-order mark says; else UTF-8 when the bytes
/// are valid UTF-8; else `fallbackEncoding`. Half the bytes of plain text in UTF-16 or UTF-32 are
/// NULs, which are valid UTF-8: such a fallback comes before UTF-8 for a file with NULs. Throws
/// Error only for a fallback that is needed and unknown; see IsKnownEncoding.
TextFile DecodeTextFile(std::string_view bytes,
                        std::string_view fallbackEncoding = kDefaultEncoding);

struct EncodedTextFile {
    std::string bytes;
    /// Empty, or the lines with characters that the form's encoding lacks. The file is then UTF-8
    /// with a byte-order mark instead, because a file in another encoding can be mended, but a lost
    /// character cannot.
    LineSet unencodableLines;
};

/// The file's bytes. For every file, EncodeTextFile(file.text, file.form).bytes are the bytes that
/// DecodeTextFile made it from. A text that was edited keeps encoding, byte-order mark and line
/// ends, and ends with a line end or without as the file did. Throws Error for a form whose
/// encoding is unknown here.
EncodedTextFile EncodeTextFile(std::string_view text, const SourceForm& form);

}  // namespace snippetarium
