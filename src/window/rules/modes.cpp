#include "window/rules/modes.h"

#include "base/runtime_failure.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace gatehouse {

namespace {

constexpr std::array<TabInfo, kFrameCount> kTabs = {{
    {"Server", "server", 1},
    {"Servers", "servers", 2},
    {"Maps", "maps", 3},
    {"Player", "player", 4},
    {"Keys", "keys", 5},
    {"Bots", "bots", 6},
    {"Video", "video", 7},
    {"Tweak 1", "tweak1", 8},
    {"Tweak 2", "tweak2", 8},
    {"Benchmark", "benchmark", 9},
    {"Help", "help", 10},
}};

constexpr std::array kConnectTabs = {kHelpFrame, kServersFrame, kPlayerFrame, kKeysFrame,
                                     kVideoFrame, kTweak1Frame, kTweak2Frame};
constexpr std::array kListenTabs = {kHelpFrame, kServerFrame, kMapsFrame,   kBotsFrame,  kPlayerFrame,
                                    kKeysFrame, kVideoFrame,  kTweak1Frame, kTweak2Frame};
constexpr std::array kDedicatedTabs = {kHelpFrame, kServerFrame, kMapsFrame, kBotsFrame};
constexpr std::array kBenchmarkTabs = {kHelpFrame, kBenchmarkFrame};

constexpr std::array<ModeInfo, 4> kModes = {{
    {"Connect", kConnectTabs},
    {"Listen", kListenTabs},
    {"Dedicated", kDedicatedTabs},
    {"Benchmark", kBenchmarkTabs},
}};

constexpr std::string_view kNoTab = "no tab";

}  // namespace

const TabInfo& tabInfo(Frame frame) { return kTabs.at(static_cast<std::size_t>(frame)); }
std::span<const ModeInfo> modes() { return kModes; }

ModeRules::ModeRules(const Ground& ground, SettingsDocument& document, ServerTable& iplist, const HelpPages& pages,
                     HelpViewer& hwin)
    : run_(ground.run),
      flags_(ground.flags),
      document_(document),
      iplist_(iplist),
      log_(ground.log),
      pages_(pages),
      hwin_(hwin),
      servers_(iplist.count()) {
    iplist_.rowInserted.connect([this](int) { serverCountChanged(); });
    iplist_.rowRemoved.connect([this](int) { serverCountChanged(); });
    iplist_.reset.connect([this] { serverCountChanged(); });
}

void ModeRules::serverCountChanged() {
    if (iplist_.count() == std::exchange(servers_, iplist_.count())) return;  // another order, the same servers
    if (run_.CurrentMode.get() == kConnect) flags_.SetRunEnabled(!iplist_.empty());
}

void ModeRules::sbar_GroupClick(std::int16_t group) {
    if (group < 1 || group > static_cast<int>(kModes.size()))
        throw RuntimeFailure("Index out of bounds: there is no mode " + std::to_string(group));
    run_.CurrentMode.set(group);
    if (group == kConnect) flags_.SetRunEnabled(!iplist_.empty());
    if (group == kListen || group == kDedicated) flags_.SetRunEnabled(!document_.maplist.empty());
    if (group == kBenchmark) benchmarkEntered.emit();
    log_.logEvent("Mode change. Now:" + quoted(kModes[static_cast<std::size_t>(group - 1)].caption));
    tabLeft.emit();
    TabKey.set(std::string(kNoTab));
    sbar_ListItemClick(run_.FirstRun ? 1 : 2);
}

void ModeRules::sbar_ListItemClick(std::int16_t item) {
    const auto tabs = kModes.at(static_cast<std::size_t>(run_.CurrentMode.get() - 1)).tabs;
    if (item < 1 || item > static_cast<int>(tabs.size()))
        throw RuntimeFailure("Index out of bounds: there is no tab " + std::to_string(item));
    const Frame frame = tabs[static_cast<std::size_t>(item - 1)];
    const TabInfo& tab = tabInfo(frame);
    if (overviewShown.get()) {
        overviewShown.set(false);
        if (tab.key == TabKey.get()) showHeading(frame);
    }
    if (tab.key == TabKey.get()) return;
    TabKey.set(std::string(tab.key));
    FrameWanted = frame;
    showHeading(frame);
    tabLeft.emit();
    FrameShown.set(frame);
    enterFrame(frame);
    log_.logEvent("Switching to tab: " + quoted(tab.key));
}

void ModeRules::showHeading(Frame frame) {
    if (frame == kHelpFrame) return showHelpPage(run_.CurrentMode.get());
    frameCaption.set(std::string(tabInfo(frame).caption));
}

void ModeRules::showHelpPage(int page) {
    hwin_.navigate({page});
    frameCaption.set("Help: " + pages_.title(page));
}

bool ModeRules::showFrame(Frame frame) {
    const auto has = [frame](const ModeInfo& mode) {
        return std::find(mode.tabs.begin(), mode.tabs.end(), frame) != mode.tabs.end();
    };
    if (!flags_.sbar.get()) return false;
    const auto current = static_cast<std::size_t>(run_.CurrentMode.get() - 1);
    if (!has(kModes.at(current))) {
        const auto mode = std::find_if(kModes.begin(), kModes.end(), has);
        sbar_GroupClick(static_cast<std::int16_t>(mode - kModes.begin() + 1));
    }
    showTab(frame);
    return true;
}

void ModeRules::showTab(Frame frame) {
    const auto tabs = kModes.at(static_cast<std::size_t>(run_.CurrentMode.get() - 1)).tabs;
    const auto place = std::find(tabs.begin(), tabs.end(), frame) - tabs.begin();
    sbar_ListItemClick(static_cast<std::int16_t>(place + 1));
}

void ModeRules::showBenchmarkTab() {
    if (run_.CurrentMode.get() == kBenchmark) showTab(kBenchmarkFrame);
}

void ModeRules::enterFrame(Frame frame) {
    if (frame == kServersFrame) {
        if (iplist_.current() != 0) iplist_.select(iplist_.current());
        focusWanted.emit(kServersFrame);
    }
    if (frame == kMapsFrame && !document_.maplist.empty()) {
        flags_.mtool1[1].set(true);
        flags_.mtool1[2].set(true);
    }
    if (frame == kBotsFrame) {
        const bool random = document_.q3randbots.value() == 1;
        flags_.q3botlist.set(!random);
        document_.q3randnum.enabled.set(random);
        document_.q3randskill.enabled.set(random);
    }
}

void ModeRules::restoreDesign() {
    overviewShown.set(false);
    FrameWanted = kHelpFrame;
    hwin_.restoreDesign();
    TabKey.set("");
    FrameShown.set(kNoFrame);
    frameCaption.set("");
}

}  // namespace gatehouse
