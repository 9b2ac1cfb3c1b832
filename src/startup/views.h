#pragma once

#include "base/observable.h"

#include <string>

namespace gatehouse {

/// Full extent of the splash's progress element, in twips.
inline constexpr int kSplashExtent = 5770;

/// What the splash window shows.
struct SplashView {
    Observable<bool> visible{false};
    Observable<int> splashbar{0};        ///< extent in twips, 0 to `kSplashExtent`
    Observable<std::string> splashmsg;   ///< the line logged last, or the folder being scanned
    Observable<bool> splashmsgCentred{true};
    Observable<std::string> files;       ///< file counter of the scan

    void restoreDesign() {
        visible.set(false);
        splashbar.set(0);
        splashmsg.set("");
        splashmsgCentred.set(true);
        files.set("");
    }
};

/// What the frame of the main window shows. Sizes are in twips.
struct MainView {
    static constexpr int kWidth = 6990;
    static constexpr int kHeight = 6180;
    static constexpr int kHeightWithConsole = 7250;

    Observable<bool> visible{false};
    /// From the placing of its panels on, the window can unload.
    bool loaded = false;
    Observable<int> width{kWidth};
    Observable<int> height{kHeight};
    Observable<std::string> q3status;  ///< panel 1 of the status bar
    Observable<std::string> q3console;

    void restoreDesign() {
        visible.set(false);
        loaded = false;
        width.set(kWidth);
        height.set(kHeight);
        q3status.set("");
        q3console.set("");
    }
};

}  // namespace gatehouse
