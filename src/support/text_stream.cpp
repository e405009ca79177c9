#include "support/text_stream.h"

#include <algorithm>
#include <utility>

#include "support/error.h"
#include "support/paths.h"
#include "support/text_file.h"

namespace snippetarium {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// The form for text behind what the file holds: the same encoding, no second byte-order mark, and
/// the line ends that most lines have.
SourceForm FormBehind(const TextFile& file) {
    SourceForm form;
    form.encoding = file.form.encoding;
    form.lineEnds.most = file.form.lineEnds.most;
    return form;
}

}  // namespace

TextStream TextStream::ForReading(const FileSystem& files, std::string_view path) {
    TextStream stream(State::Reading, path);
    stream.text_ = DecodeTextFile(files.ReadFile(path)).text;
    return stream;
}

TextStream TextStream::ForAppending(FileSystem& files, std::string_view path) {
    TextStream stream(State::Appending, path);
    stream.target_ = &files;
    if (files.FileExists(path)) stream.form_ = FormBehind(DecodeTextFile(files.ReadFile(path)));
    return stream;
}

bool TextStream::AtEnd() const {
    Require(State::Reading);
    return position_ == text_.size();
}

std::string TextStream::ReadLine() {
    if (AtEnd()) {
        throw Error(error_number::kInvalidCall,
                    "All lines of the file '" + ToPlatformPath(path_) + "' have been read.");
    }
    const std::size_t end = std::min(text_.find(kLineEnd, position_), text_.size());
    std::string line = text_.substr(position_, end - position_);
    position_ = std::min(end + kLineEnd.size(), text_.size());
    return line;
}

void TextStream::WriteLine(std::string_view text) {
    Require(State::Appending);
    text_.append(text).append(kLineEnd);
}

void TextStream::Close() {
    if (state_ == State::Appending) {
        const EncodedTextFile encoded = EncodeTextFile(text_, form_);
        if (!encoded.unencodableLines.Empty()) {
            throw Error(error_number::kFileReadWrite,
                        "The file '" + ToPlatformPath(path_) +
                            "' cannot be appended to: it is written in " + form_.encoding +
                            ", which lacks characters of the new text (in its lines " +
                            encoded.unencodableLines.ToText() + "). Choose another file.");
        }
        target_->AppendToFile(path_, encoded.bytes);
    }
    state_ = State::Closed;
}

void TextStream::Require(State state) const {
    if (state_ == state) return;
    throw Error(error_number::kInvalidCall,
                "The file '" + ToPlatformPath(path_) +
                    (state == State::Reading ? "' is not open for reading."
                                             : "' is not open for appending."));
}

}  // namespace snippetarium
