#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "support/file_system.h"
#include "support/source_form.h"

namespace snippetarium {

/// A text file opened for reading its lines or for appending lines to it. Text is UTF-8 in the
/// program, whatever the file's encoding (support/text_file.h). A call that does not fit how the
/// stream was opened, or that follows Close, throws Error.
class TextStream {
  public:
    /// Reads the file. A NUL or a byte that is no character does not end it.
    static TextStream ForReading(const FileSystem& files, std::string_view path);
    /// Lines written go behind the file's last, in the file's own encoding and line ends; a file
    /// that is not there is made, in UTF-8 with CR LF. The file system has to outlive the stream.
    static TextStream ForAppending(FileSystem& files, std::string_view path);

    TextStream(TextStream&&) = default;
    TextStream& operator=(TextStream&&) = default;
    TextStream(const TextStream&) = delete;
    TextStream& operator=(const TextStream&) = delete;
    ~TextStream() = default;

    /// True when no line is left to read.
    bool AtEnd() const;
    /// The next line without its line end. Throws Error at the end.
    std::string ReadLine();

    /// Writes the text and a line end. The text may hold line ends (CR LF) of its own.
    void WriteLine(std::string_view text);

    /// Of a stream for appending, puts all that was written on the disk, or fails and leaves the
    /// file as it was: with the Error of the disk, or one that names the lines for whose characters
    /// the file's encoding has no bytes. A stream that is destroyed without Close has written
    /// nothing. Closing twice does nothing.
    void Close();

  private:
    enum class State { Reading, Appending, Closed };

    TextStream(State state, std::string_view path) : state_(state), path_(path) {}
    void Require(State state) const;

    State state_;
    std::string path_;
    std::string text_;          // what is read, or what is to be appended
    std::size_t position_ = 0;  // in text_, of the next line to read
    FileSystem* target_ = nullptr;
    SourceForm form_;
};

}  // namespace snippetarium
