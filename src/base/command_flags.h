#pragma once

#include "base/observable.h"

#include <array>
#include <cstddef>

namespace gatehouse {

/// Which buttons of a tool bar can be pressed, numbered from 1.
template <std::size_t N>
class ToolButtons {
public:
    void setAll(bool enabled) {
        for (auto& one : buttons_) one.set(enabled);
    }
    Observable<bool>& operator[](std::size_t number) { return buttons_.at(number - 1); }
    const Observable<bool>& operator[](std::size_t number) const { return buttons_.at(number - 1); }

private:
    std::array<Observable<bool>, N> buttons_;
};

/// Which commands can run now: one flag each, read by menu entry, tool button and test alike.
struct CommandFlags {
    Observable<bool> mfilerun;   ///< the menu entry and button 5 of the main tool bar
    /// What a run of the benchmark holds up: opening a document, a reset, the choice of mode and tab, the whole main
    /// tool bar, and the window of results.
    Observable<bool> mfileopen, mtoolsreset, sbar, q3bar1, mtoolsresults;
    ToolButtons<3> btbar;        ///< play, pause, stop
    ToolButtons<5> tbservers;    ///< add, delete, query, players, mod options
    ToolButtons<2> mtool1;       ///< move up, move down
    ToolButtons<2> mtool2;       ///< remove from rotation, add to rotation
    Observable<bool> q3botlist;
    Observable<bool> q3botadd;
    Observable<bool> q3botdel;
    Observable<bool> namedBotsShown;  ///< `q3botlist` and its two buttons are to be seen

    CommandFlags() { restoreDesign(); }

    /// What can run before anything is loaded.
    void restoreDesign() {
        mfilerun.set(true);
        btbar.setAll(true);
        tbservers.setAll(false);
        tbservers[1].set(true);
        mtool1.setAll(false);
        mtool2.setAll(false);
        mtool2[2].set(true);
        for (Observable<bool>* flag : {&q3botlist, &q3botadd, &q3botdel, &namedBotsShown, &mtoolsresults})
            flag->set(true);
        setMovable(true);
    }

    /// Enables or disables what would take another document or another mode.
    void setMovable(bool enabled) {
        for (Observable<bool>* flag : {&mfileopen, &mtoolsreset, &sbar, &q3bar1}) flag->set(enabled);
    }

    /// Enables or disables every command that starts the game.
    void SetRunEnabled(bool enabled) {
        mfilerun.set(enabled);
        btbar[1].set(enabled);
        btbar[2].set(false);
        btbar[3].set(false);
    }
};

}  // namespace gatehouse
