#pragma once

#include "base/runtime_failure.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace gatehouse {

/// A text file open for reading, one byte one character.
class TextReader {
public:
    virtual ~TextReader() = default;
    /// Reads the next line without its end (CR LF or LF). False at the end of the file. Fails on a read fault.
    virtual bool readLine(std::string& line) = 0;
    /// Reads up to `count` bytes as they stand; fewer at the end of the file. Fails on a read fault.
    virtual std::string readBytes(std::size_t count) = 0;
};

/// A text file open for writing, one byte one character.
class TextWriter {
public:
    virtual ~TextWriter() = default;
    /// Writes the text and CR LF. What was written is with the operating system when the call returns. Fails when it
    /// can't be written (disk full).
    virtual void writeLine(const std::string& line) = 0;
    /// Writes the bytes as they stand.
    virtual void write(const std::string& bytes) = 0;
    /// Ends the writing; fails when the rest can't be written. The destructor closes too, without a word.
    virtual void close() = 0;
};

/// One file or sub-folder of a listing.
struct FolderEntry {
    std::string name;       ///< bare name
    std::string path;       ///< whole path in the program's form, `C:\a\b`, no backslash at its end
    std::string shortName;  ///< name in the old 8.3 form where the system has one, otherwise the name
};

/// Files and sub-folders, each sorted by name without regard to case; what the user can't read is left out.
struct FolderListing {
    std::vector<FolderEntry> files;
    std::vector<FolderEntry> folders;
};

enum class DriveType { Unknown = 0, Removable = 1, Fixed = 2, Remote = 3 };

struct Drive {
    std::string path;  ///< such as `C:`
    DriveType type = DriveType::Unknown;
};

/// The file system. Paths are texts of the form `C:\a\b`: the drive `C:` (in any case, or none) is the root folder,
/// `\` and `/` part folders. The exact name is tried first, then the name without regard to the case of ASCII letters.
class Files {
public:
    virtual ~Files() = default;

    /// True for a file, false for a folder or nothing.
    virtual bool fileExists(const std::string& path) const = 0;
    virtual bool folderExists(const std::string& path) const = 0;
    /// Size in bytes. Fails if there is no such file.
    virtual std::uint64_t fileSize(const std::string& path) const = 0;
    /// Milliseconds since the file was last written. Fails if there is no such file.
    virtual double fileAge(const std::string& path) const = 0;

    /// Each of these fails with `FileFailure`.
    virtual std::unique_ptr<TextReader> openText(const std::string& path) = 0;
    /// Makes the file anew; an earlier one of that name is replaced.
    virtual std::unique_ptr<TextWriter> createText(const std::string& path) = 0;
    /// Takes the place of a file, or makes it, once the writer is closed: until then, and when anything fails, the old
    /// one stands there whole. What is closed is on the disk. A writer that isn't closed leaves nothing behind. Fails
    /// for a write-protected file.
    virtual std::unique_ptr<TextWriter> replaceText(const std::string& path) = 0;
    /// Opens at the end; makes the file if there is none.
    virtual std::unique_ptr<TextWriter> appendText(const std::string& path) = 0;
    /// `force` deletes a read-only file too.
    virtual void deleteFile(const std::string& path, bool force) = 0;
    /// The copy takes the other's place as `replaceText` does.
    virtual void copyFile(const std::string& from, const std::string& to) = 0;
    virtual void renameFile(const std::string& from, const std::string& to) = 0;
    /// Makes the folder and those above it.
    virtual void createFolder(const std::string& path) = 0;
    /// Deletes a folder with all that is in it, by its exact name only, never through a link.
    virtual void deleteFolder(const std::string& path) = 0;

    virtual FolderListing listFolder(const std::string& path) const = 0;
    /// The listing for the search for the game: files that end in `.exe` in any case, and the sub-folders without
    /// links, pseudo and network file systems.
    virtual FolderListing searchListing(const std::string& path) const = 0;
    virtual std::vector<Drive> drives() const = 0;
};

}  // namespace gatehouse
