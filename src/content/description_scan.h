#pragma once

#include "base/log.h"
#include "base/scan_view.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "platform/pace.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace gatehouse {

/// Looks for a map's title in the bytes of its file: the value of the key "message" in the entity text, which stands in
/// a
/// `.bsp` file (the game's own format) as it is. The file comes in chunks. In each of them only the first key counts,
/// and that only with its whole value and not at the very start. A file of one chunk or less is not searched.
class DescriptionSearch {
public:
    static constexpr std::size_t kChunk = 32768;  ///< bytes of every chunk but the last

    explicit DescriptionSearch(std::uint64_t size) : size_(size) {}

    bool done() const { return done_ || size_ <= kChunk; }
    /// The next chunk: `kChunk` bytes or, at the end of the file, the rest.
    void take(std::string_view chunk);

    bool found() const { return found_; }
    const std::string& title() const { return title_; }
    std::uint64_t size() const { return size_; }
    /// The offset in the file at which the chunk that is due, or that held the title, ends.
    std::uint64_t position() const { return position_; }

private:
    std::uint64_t size_;
    std::uint64_t position_ = kChunk;
    std::string title_;
    bool found_ = false;
    bool done_ = false;
};

/// The scan of a map for its description: the search, what is logged and shown of it, and the question when it has
/// found none.
class DescriptionScan {
public:
    /// What is returned for a map that nobody wants without a description. A title that reads the same is taken for it.
    static constexpr std::string_view kCancel = "cancel";

    /// `q3status` shows how far the search is while `q3getmaps` isn't on show.
    DescriptionScan(const Ground& ground, ScanView& q3getmaps, Observable<std::string>& q3status)
        : files_(ground.files),
          dialogs_(ground.dialogs),
          log_(ground.log),
          run_(ground.run),
          pace_(ground.pace),
          q3getmaps_(q3getmaps),
          q3status_(q3status) {}

    /// The description of the map in a file, empty if the user wants the map without, or `kCancel`. Fails like any
    /// file.
    std::string scanFile(const std::string& path);
    /// The same for a search that was made elsewhere; `path` is where the file would be.
    std::string conclude(const std::string& path, const DescriptionSearch& search);
    /// Shows how far a search is, and lets handlers run if there is a window to keep alive.
    void showProgress(const DescriptionSearch& search);

private:
    std::string askOrTake(const std::string& path, const DescriptionSearch& search);

    Files& files_;
    Dialogs& dialogs_;
    Log& log_;
    RunState& run_;
    Pace& pace_;
    ScanView& q3getmaps_;
    Observable<std::string>& q3status_;
};

}  // namespace gatehouse
