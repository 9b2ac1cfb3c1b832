#pragma once

#include "platform/files.h"

#include <functional>
#include <string>

namespace gatehouse {

/// What a listing takes, told by bare names. `linked` folders are reached through a link.
struct ListingFilter {
    std::function<bool(const std::string& name)> file;
    std::function<bool(const std::string& name, bool linked)> folder;
};

/// Files and sub-folders of a native folder as the filter takes them, sorted, without what the user can't read and
/// without names that the program's form can't tell. Fails if the folder can't be read; `path` is for messages.
FolderListing readFolder(const std::string& native, const std::string& path, const ListingFilter& filter);

/// Deletes a native folder with all that is in it. Links inside are deleted, never followed; a link in the folder's own
/// place fails, and so does another file system mounted inside. `path` is for messages.
void deleteTree(const std::string& native, const std::string& path);

}  // namespace gatehouse
