#pragma once

#include "base/log.h"
#include "base/options.h"
#include "base/run_state.h"
#include "base/scan_view.h"
#include "content/left_out.h"
#include "platform/archives.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/ground.h"
#include "platform/pace.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace gatehouse {

/// Largest entries that are taken out of an archive, in bytes unpacked.
inline constexpr std::uint64_t kMostPictureBytes = std::uint64_t{64} << 20;
inline constexpr std::uint64_t kMostMapBytes = std::uint64_t{512} << 20;

/// What the scans of maps and of models have in common: the window, the walk over the archives of the game's folder
/// `baseq3`, and the list of what was left out.
class ArchiveScan {
public:
    virtual ~ArchiveScan() = default;

    /// The whole scan, with its window on show meanwhile. A failure that the scan itself does not live with ends it
    /// with a serious log line. False then, and where something that was found could not be written into the list.
    bool run();

    ScanView view;

protected:
    ArchiveScan(const Ground& ground, Archives& archives, const ScanView::Names& names, std::string_view title)
        : view(names, title),
          files_(ground.files),
          dialogs_(ground.dialogs),
          log_(ground.log),
          run_(ground.run),
          pace_(ground.pace),
          archives_(archives),
          leftOut_(ground.log, ground.dialogs),
          events_(ground.events),
          options_(ground.options) {}
    ArchiveScan(const ArchiveScan&) = delete;
    ArchiveScan& operator=(const ArchiveScan&) = delete;

    /// False if something that was found is not in the list. Fails if it can't go on.
    virtual bool scan() = 0;

    /// To be called once the list is open: lets handlers run, and makes sure that the game's folder is known.
    void enterGame();

    /// One archive of the game, and the open file.
    struct Opened {
        const FolderEntry& file;
        Archive& archive;
    };
    enum class Own { Take, LeaveOut };
    /// All archives of the game's folder, with the game's own or without it, in the folder's order, until somebody
    /// stops the scan.
    void forEachArchive(Own own, const std::function<void(const Opened&)>& visit);

    struct Filter {
        std::string_view srchdir;  ///< stands anywhere in the name, in any case
        std::string_view srchext;  ///< ends the name, in any case
        std::function<bool(const std::string&)> wanted = {};
    };
    /// Shows the phase, lists the archive, and hands over each entry that passes the filter, 100 of them at most, until
    /// somebody stops the scan.
    void forEachEntry(const Opened& opened, const std::string& phase, const Filter& filter,
                      const std::function<void(const std::string&)>& visit);

    struct Guarded {
        const std::string& archive;  ///< or the file, where there is no archive
        const std::string& entry;
        std::string trouble;  ///< how the log line of a failure begins
        bool saysWhy = true;  ///< whether the reason stands in that line
    };
    /// Runs what may fail for one entry, which is left out then.
    void guarded(const Guarded& what, const std::function<void()>& action);

    std::string gameFile(std::string_view name) const { return run_.GameDir + "baseq3\\" + std::string(name); }
    /// To be called behind all passes: logs it if somebody has stopped the scan, and takes the hourglass off.
    void endPasses();

    Files& files_;
    Dialogs& dialogs_;
    Log& log_;
    RunState& run_;
    Pace& pace_;
    Archives& archives_;
    LeftOut leftOut_;

private:
    EventLoop& events_;
    Options& options_;
};

/// True for the archive that the game comes with.
bool isGameArchive(const FolderEntry& archive);

}  // namespace gatehouse
