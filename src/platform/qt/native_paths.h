#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace gatehouse {

// Two forms of a path. The program's form is `C:\a\b`: the drive `C:` is the root folder, `\` and `/` part folders, a
// path without a drive and without a separator in front belongs to the working folder. The native form is the system's.

/// `/a/b` as `C:\a\b`; a relative path stays relative. A native name that holds a backslash can't be told this way.
std::string toProgramPath(std::string_view native);

/// `C:\a\b\` as `/a/b`, with the letters as they stand. Empty for what names nothing here: an empty path, another
/// drive, a NUL byte.
std::string toNativePath(std::string_view program);

/// Native path of the file or folder: the exact name first at each step, then the name without regard to the case of
/// ASCII letters, the first of several in sorted order. Nothing when there is none.
std::optional<std::string> resolveExisting(std::string_view program);

/// Where a native path leads to on the disk.
struct NativeLocation {
    std::string path;     ///< what exists in its spelling on the disk, the rest as given
    bool exists = false;  ///< the last name exists (a link counts, wherever it leads)
};
NativeLocation locate(std::string_view native);

/// The name's spelling in a folder, found as `resolveExisting` does. `at` is a folder's descriptor or `AT_FDCWD`.
std::optional<std::string> existingName(int at, const std::string& folder, const std::string& name);

/// Folder and bare name of a native path, and back. A bare name lies in the folder "".
std::string nativeFolder(std::string_view native);
std::string nativeName(std::string_view native);
std::string joinNative(std::string_view folder, std::string_view name);

/// True when the first name comes before the second without regard to case; names alike but for case go by their bytes.
bool nameBefore(std::string_view a, std::string_view b);

}  // namespace gatehouse
