#pragma once

#include "platform/files.h"

#include <map>
#include <optional>
#include <set>
#include <string>

namespace gatehouse {

struct NativeLocation;

/// The files of this machine. Files directly in the drive's root, where the user can't write, lie in the cache folder.
class QtFiles : public Files {
public:
    /// `cacheFolder` is a native path; it is made when it is first needed.
    explicit QtFiles(std::string cacheFolder);

    bool fileExists(const std::string& path) const override;
    bool folderExists(const std::string& path) const override;
    std::uint64_t fileSize(const std::string& path) const override;
    double fileAge(const std::string& path) const override;
    std::unique_ptr<TextReader> openText(const std::string& path) override;
    std::unique_ptr<TextWriter> createText(const std::string& path) override;
    std::unique_ptr<TextWriter> replaceText(const std::string& path) override;
    std::unique_ptr<TextWriter> appendText(const std::string& path) override;
    void deleteFile(const std::string& path, bool force) override;
    void copyFile(const std::string& from, const std::string& to) override;
    void renameFile(const std::string& from, const std::string& to) override;
    void createFolder(const std::string& path) override;
    void deleteFolder(const std::string& path) override;
    FolderListing listFolder(const std::string& path) const override;
    FolderListing searchListing(const std::string& path) const override;
    std::vector<Drive> drives() const override;

private:
    /// Native path of an existing file or folder. Fails if there is none.
    std::string existing(const std::string& path, const char* doing) const;
    /// Native path under which a file is to be made: that of the present one, or one with the spelling of a deleted
    /// one.
    std::string forMaking(const std::string& path) const;
    /// Native path of an existing folder, absolute. Fails if there is none.
    std::string existingFolder(const std::string& path) const;
    NativeLocation find(const std::string& path) const;
    /// Where a file in the drive's root lies instead; nothing for other paths, or when the user can write there.
    std::optional<std::string> cachePlace(const std::string& native) const;
    void rememberSpelling(const std::string& native);

    std::string cacheFolder_;
    /// Bare names of deleted files by folder and lower-cased name.
    std::map<std::string, std::string> spellings_;
    /// Read anew when the search begins at the root.
    mutable std::optional<std::set<std::string>> foreignMounts_;
};

}  // namespace gatehouse
