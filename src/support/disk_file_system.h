#pragma once

#include "support/file_system.h"

namespace snippetarium {

/// The disk itself, on platforms with the POSIX calls. It has no state.
class DiskFileSystem : public FileSystem {
  public:
    bool DriveExists(std::string_view path) const override;
    bool FolderExists(std::string_view path) const override;
    bool FileExists(std::string_view path) const override;
    std::string RealPath(std::string_view path) const override;
    FolderListing ListFolder(std::string_view path) const override;
    std::uint64_t FileSize(std::string_view path) const override;
    std::chrono::system_clock::time_point ModificationTime(std::string_view path) const override;
    std::string ReadFile(std::string_view path) const override;
    void WriteFile(std::string_view path, std::string_view bytes) override;
    void AppendToFile(std::string_view path, std::string_view bytes) override;
    void CopyFile(std::string_view source, std::string_view target) override;
    void DeleteFile(std::string_view path) override;
    void MakeFolders(std::string_view path) override;
};

}  // namespace snippetarium
