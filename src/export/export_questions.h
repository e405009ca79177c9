#pragma once

#include <string>
#include <string_view>

#include "export/export_result.h"
#include "export/text_output.h"
#include "support/host.h"

namespace snippetarium {

// What the user is asked before an export writes over something.

enum class SourceKind : std::int8_t { OneFile, Application };

/// The destination is where the source was imported from. True when it may be overwritten.
bool MayOverwriteSource(MessageBoxes& messages, SourceKind kind);

/// What becomes of one file. `Cancel` ends the whole export.
enum class FileChoice : std::int8_t { Replace, Append, Skip, Cancel };

/// The file exists, and `existing` says whether to ask. Of one file alone the question offers to
/// append.
FileChoice ChooseForExisting(MessageBoxes& messages, std::string_view fileName,
                             ExistingFile existing);

/// The sentence of the report for a file that was left as it is.
std::string AlreadyExists(std::string_view fileName);

/// The same for the files of one application, with a question that can be answered for all of
/// those still to come.
class ExistingFilesChoice {
  public:
    ExistingFilesChoice(MessageBoxes& messages, ExistingFile existing)
        : messages_(messages), existing_(existing) {}

    FileChoice Choose(std::string_view fileName);

  private:
    MessageBoxes& messages_;
    ExistingFile existing_;
};

}  // namespace snippetarium
