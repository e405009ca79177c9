#include "export/text_output.h"

#include "support/paths.h"
#include "support/text_file.h"
#include "support/text_stream.h"

namespace snippetarium {

namespace {

void Append(FileSystem& files, const TextOutput& output) {
    constexpr std::string_view kLineBreak = "\r\n";
    std::string_view text = output.text;
    if (text.ends_with(kLineBreak)) text.remove_suffix(kLineBreak.size());
    const bool isOpenEnded =
        !DecodeTextFile(files.ReadFile(output.path)).form.lineEnds.lastLineEnds;
    TextStream stream = TextStream::ForAppending(files, output.path);
    if (isOpenEnded) stream.WriteLine("");
    stream.WriteLine(text);
    stream.Close();
}

void Replace(FileSystem& files, const TextOutput& output, Remarks& remarks) {
    const EncodedTextFile encoded = EncodeTextFile(output.text, output.form);
    files.WriteFile(output.path, encoded.bytes);
    if (encoded.unencodableLines.Empty()) return;
    remarks.push_back("The file '" + ToPlatformPath(output.path) +
                      "' is now written in UTF-8, because " + output.form.encoding +
                      " lacks characters of its lines " + encoded.unencodableLines.ToText() + ".");
}

}  // namespace

void PutText(FileSystem& files, const TextOutput& output, OutputMode mode, Remarks& remarks) {
    if (mode == OutputMode::Append && files.FileExists(output.path)) return Append(files, output);
    Replace(files, output, remarks);
}

}  // namespace snippetarium
