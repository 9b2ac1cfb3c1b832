#pragma once

#include "base/command_flags.h"
#include "base/log.h"
#include "base/observable.h"
#include "base/run_state.h"
#include "base/signal.h"
#include "config/settings_document.h"
#include "help/help_pages.h"
#include "help/help_viewer.h"
#include "platform/ground.h"
#include "servers/server_entry.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace gatehouse {

/// The frames of the main window, one for each tab.
enum Frame : std::int16_t {
    kServerFrame,
    kServersFrame,
    kMapsFrame,
    kPlayerFrame,
    kKeysFrame,
    kBotsFrame,
    kVideoFrame,
    kTweak1Frame,
    kTweak2Frame,
    kBenchmarkFrame,
    kHelpFrame,
    kFrameCount
};

/// One tab: its caption, its key and the number of its icon.
struct TabInfo {
    std::string_view caption;
    std::string_view key;
    int icon = 0;
};

/// One mode of the side bar with its tabs, in order.
struct ModeInfo {
    std::string_view caption;
    std::span<const Frame> tabs;
};

/// The tab of a frame.
const TabInfo& tabInfo(Frame frame);
/// The four modes; index 0 is the mode 1.
std::span<const ModeInfo> modes();

/// The side bar: which mode is current, and which of its tabs is on show.
class ModeRules {
public:
    /// `hwin` is the help view of the last frame.
    ModeRules(const Ground& ground, SettingsDocument& document, ServerTable& iplist, const HelpPages& pages,
              HelpViewer& hwin);

    /// Changes the mode. Fails for a group that isn't there.
    void sbar_GroupClick(std::int16_t group);
    /// Shows a tab of the current mode, counted from 1; nothing happens if it is the one on show. The overview ends.
    void sbar_ListItemClick(std::int16_t item);

    /// The tab of the current mode's benchmark comes to the front: its buttons end a run.
    void showBenchmarkTab();

    /// A frame comes to the front, in the current mode if that has it, otherwise in the first that does. False where
    /// no mode can be chosen now.
    bool showFrame(Frame frame);
    /// A page in the help view, with its title as the caption.
    void showHelpPage(int page);

    Observable<std::string> TabKey;
    Frame FrameWanted = kHelpFrame;  ///< the frame of the tab that was clicked last
    /// The frame of the help lies over the one on show.
    Observable<bool> overviewShown{false};
    Observable<std::int16_t> FrameShown{kNoFrame};
    Observable<std::string> frameCaption;  ///< caption of `sframe`
    /// The tab on show goes.
    Signal<> tabLeft;
    /// The table of this frame asks for the input focus.
    Signal<Frame> focusWanted;
    /// The mode of benchmarks begins: its lists are wanted.
    Signal<> benchmarkEntered;

    static constexpr std::int16_t kNoFrame = -1;
    void restoreDesign();

private:
    void enterFrame(Frame frame);
    void showTab(Frame frame);
    /// What stands above the frame of a tab, and what the help view shows.
    void showHeading(Frame frame);
    /// A client needs a server to connect to.
    void serverCountChanged();

    RunState& run_;
    CommandFlags& flags_;
    SettingsDocument& document_;
    ServerTable& iplist_;
    Log& log_;
    const HelpPages& pages_;
    HelpViewer& hwin_;
    int servers_;  ///< how many there were
};

}  // namespace gatehouse
