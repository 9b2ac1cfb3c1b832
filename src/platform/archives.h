#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace gatehouse {

/// Why an entry could not be had, in words for a person; nothing if it was.
using EntryFault = std::optional<std::string>;

/// A zip archive (a pk3 is one), open for reading. Nothing that it claims is trusted: an entry counts only if it is whole,
/// has the size and the checksum that it claims, and is named like a file below a folder.
class Archive {
public:
    virtual ~Archive() = default;
    /// Calls `onEntry` once for each entry with its whole name as stored.
    virtual void list(const std::function<void(const std::string&)>& onEntry) = 0;

    /// Takes the size of the whole entry and the next piece of it.
    using TakePiece = std::function<void(std::uint64_t size, std::string_view piece)>;
    /// Hands an entry on in pieces of `pieceSize` bytes, the last of which may be shorter. What was handed on counts only
    /// if there is no fault in the end. An entry of more than `most` bytes is refused. The exact name is looked for
    /// first, then the name without regard to case.
    virtual EntryFault read(const std::string& entry, std::uint64_t most, std::size_t pieceSize,
                            const TakePiece& take) = 0;
    /// Writes an entry below the folder, which must exist, with its stored folders, over any file of that name and
    /// never through a link. `onPiece` is called every now and then.
    virtual EntryFault extract(const std::string& entry, std::uint64_t most, const std::string& folder,
                               const std::function<void()>& onPiece) = 0;
};

class Archives {
public:
    virtual ~Archives() = default;
    /// Null for an archive that can't be read.
    virtual std::unique_ptr<Archive> open(const std::string& path) = 0;
    /// Writes bytes below a folder under the name of an entry, as `Archive::extract` would.
    virtual EntryFault store(const std::string& bytes, const std::string& entry, const std::string& folder) = 0;
};

}  // namespace gatehouse
