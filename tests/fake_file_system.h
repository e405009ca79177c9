#pragma once

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/file_errors.h"
#include "support/file_system.h"
#include "support/paths.h"

namespace snippetarium::test {

/// A disk in memory, with the failures of a real one on demand. It starts with the root folder "/",
/// which is its only drive. Paths are compared with regard to case and may bear either slash; "."
/// and
/// ".." have no meaning. Folders list their names in the order in which these were added.
class FakeFileSystem final : public FileSystem {
  public:
    struct WrittenFile {
        std::string path;
        std::string bytes;
        bool operator==(const WrittenFile&) const = default;
    };

    /// Every successful WriteFile, AppendToFile and CopyFile in order: the path with slashes, and
    /// what the file held then.
    std::vector<WrittenFile> written;
    /// Every file deleted, in order, with slashes.
    std::vector<std::string> deleted;

    /// Faults to come. Paths with slashes. A write for which the room left is too small fails and
    /// leaves the file as it was.
    std::uint64_t freeBytes = std::numeric_limits<std::uint64_t>::max();
    std::set<std::string> unreadableFiles;
    std::set<std::string> unreadableFolders;
    std::set<std::string> readOnlyFolders;

    /// The modification time that files added or written from now on get.
    std::chrono::system_clock::time_point now;

    FakeFileSystem() { entries_.push_back({.path = "/", .isFolder = true}); }

    /// Puts a file there, with the folders above it, without record and whatever faults are set.
    void AddFile(std::string_view path, std::string_view bytes) {
        AddFolder(ParentFolder(path));
        Set(Key(path), bytes);
    }

    void AddFolder(std::string_view path) {
        const std::string key = Key(path);
        if (key.empty() || Find(key) != nullptr) return;
        AddFolder(ParentFolder(key));
        entries_.push_back({.path = key, .isFolder = true});
    }

    /// Makes the folder's listing report this name.
    void AddUnlisted(std::string_view folder, UnlistedName name) {
        AddFolder(folder);
        Find(Key(folder))->unlisted.push_back(std::move(name));
    }

    bool DriveExists(std::string_view path) const override { return Key(path) == "/"; }
    bool FolderExists(std::string_view path) const override {
        const Entry* entry = Find(Key(path));
        return entry != nullptr && entry->isFolder;
    }
    bool FileExists(std::string_view path) const override {
        const Entry* entry = Find(Key(path));
        return entry != nullptr && !entry->isFolder;
    }

    std::string RealPath(std::string_view path) const override {
        return CheckedKey(FileAction::Inspect, path);
    }

    FolderListing ListFolder(std::string_view path) const override {
        const Entry& folder = Existing(FileAction::List, path);
        if (!folder.isFolder) throw FileError(FileAction::List, path, ENOTDIR);
        if (unreadableFolders.contains(folder.path))
            throw FileError(FileAction::List, path, EACCES);
        FolderListing listing{.files = {}, .subfolders = {}, .unlisted = folder.unlisted};
        for (const Entry& entry : entries_) {
            if (entry.path == "/" || ParentFolder(entry.path) != folder.path) continue;
            (entry.isFolder ? listing.subfolders : listing.files)
                .emplace_back(FileName(entry.path));
        }
        return listing;
    }

    std::uint64_t FileSize(std::string_view path) const override {
        return Existing(FileAction::Inspect, path).bytes.size();
    }
    std::chrono::system_clock::time_point ModificationTime(std::string_view path) const override {
        return Existing(FileAction::Inspect, path).modified;
    }

    std::string ReadFile(std::string_view path) const override {
        const Entry& file = Existing(FileAction::Read, path);
        if (file.isFolder) throw FileError(FileAction::Read, path, EISDIR);
        if (unreadableFiles.contains(file.path)) throw FileError(FileAction::Read, path, EACCES);
        return file.bytes;
    }

    void WriteFile(std::string_view path, std::string_view bytes) override {
        Store(FileAction::Write, path, bytes, bytes.size());
    }

    void AppendToFile(std::string_view path, std::string_view bytes) override {
        const Entry* old = Find(Key(path));
        const std::string before = old == nullptr ? std::string() : old->bytes;
        Store(FileAction::Append, path, before + std::string(bytes), bytes.size());
    }

    void CopyFile(std::string_view source, std::string_view target) override {
        WriteFile(target, ReadFile(source));
    }

    void DeleteFile(std::string_view path) override {
        const Entry file = Existing(FileAction::Delete, path);
        if (file.isFolder) throw FileError(FileAction::Delete, path, EISDIR);
        RefuseReadOnly(FileAction::Delete, path);
        std::erase_if(entries_, [&](const Entry& entry) { return entry.path == file.path; });
        deleted.push_back(file.path);
    }

    void MakeFolders(std::string_view path) override {
        const std::string key = CheckedKey(FileAction::MakeFolder, path);
        std::string_view above = key;
        while (!above.empty() && Find(above) == nullptr)
            above = ParentFolder(above);
        if (!above.empty() && !Find(above)->isFolder) {
            throw FileError(FileAction::MakeFolder, path, ENOTDIR);
        }
        if (above != key && readOnlyFolders.contains(std::string(above))) {
            throw FileError(FileAction::MakeFolder, path, EACCES);
        }
        AddFolder(key);
    }

  private:
    struct Entry {
        std::string path;
        bool isFolder = false;
        std::string bytes = {};
        std::chrono::system_clock::time_point modified = {};
        std::vector<UnlistedName> unlisted = {};
    };

    static std::string Key(std::string_view path) {
        std::string key = ToPlatformPath(path);
        while (key.size() > 1 && key.back() == '/')
            key.pop_back();
        return key;
    }

    static std::string CheckedKey(FileAction action, std::string_view path) {
        const bool isName = !path.empty() && path.find('\0') == std::string_view::npos;
        if (!isName) throw FileError(action, path, EINVAL);
        return Key(path);
    }

    /// Null when nothing is there. Entries constant or not, as the caller has them.
    static auto FindIn(auto& entries, std::string_view key) -> decltype(entries.data()) {
        for (auto& entry : entries) {
            if (entry.path == key) return &entry;
        }
        return nullptr;
    }
    const Entry* Find(std::string_view key) const { return FindIn(entries_, key); }
    Entry* Find(std::string_view key) { return FindIn(entries_, key); }

    const Entry& Existing(FileAction action, std::string_view path) const {
        const Entry* entry = Find(CheckedKey(action, path));
        if (entry == nullptr) throw FileError(action, path, ENOENT);
        return *entry;
    }

    void RefuseReadOnly(FileAction action, std::string_view path) const {
        if (readOnlyFolders.contains(std::string(ParentFolder(Key(path))))) {
            throw FileError(action, path, EACCES);
        }
    }

    void Set(const std::string& key, std::string_view bytes) {
        Entry* file = Find(key);
        if (file == nullptr) file = &entries_.emplace_back(Entry{.path = key});
        file->bytes = bytes;
        file->modified = now;
    }

    void Store(FileAction action, std::string_view path, std::string_view bytes,
               std::uint64_t newBytes) {
        const std::string key = CheckedKey(action, path);
        const std::string_view folder = ParentFolder(key);
        if (FolderExists(key)) throw FileError(action, path, EISDIR);
        if (FileExists(folder)) throw FileError(action, path, ENOTDIR);
        if (!folder.empty() && !FolderExists(folder)) throw FileError(action, path, ENOENT);
        RefuseReadOnly(action, path);
        if (newBytes > freeBytes) throw FileError(action, path, ENOSPC);
        freeBytes -= newBytes;
        Set(key, bytes);
        written.push_back({key, std::string(bytes)});
    }

    std::vector<Entry> entries_;
};

}  // namespace snippetarium::test
