#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "support/file_descriptor.h"

namespace snippetarium {

/// Writes a file that appears whole or not at all. The bytes go into a temporary file in the
/// target's folder; Commit flushes it and renames it over the target, which the system does in one
/// step. A WholeFile that is destroyed without Commit leaves the target as it was, and no trace.
///
/// A file replaced hands its permissions on, and its owner where the system allows it. If the
/// target is a link, the file it leads to is replaced. Since a replaced file is a new one, other
/// hard links to the old keep the old content.
///
/// Failures are std::system_error, std::filesystem::filesystem_error included.
class WholeFile {
  public:
    explicit WholeFile(const std::filesystem::path& target);
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    void Write(std::string_view bytes) { file_->Write(bytes); }
    void Commit();

  private:
    void OpenTemporary();
    void TakeOverPermissions();

    std::filesystem::path target_;
    std::filesystem::path temporary_;
    std::optional<FileDescriptor> file_;
    bool isCommitted_ = false;
};

}  // namespace snippetarium
