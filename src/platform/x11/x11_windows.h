#pragma once

#include "platform/desktop_windows.h"

#include <sys/types.h>

#include <functional>
#include <memory>

namespace gatehouse {

class X11Connection;

/// Windows of the X server that `$DISPLAY` names, without our own. Where there is none, the games that we started
/// stand for their windows, by their process ids.
class X11Windows : public DesktopWindows {
public:
    /// `startedGames` gives the games that we started and that still run, each the leader of a session.
    explicit X11Windows(std::function<std::vector<pid_t>()> startedGames);
    ~X11Windows() override;

    std::vector<DesktopWindow> list() const override;
    void close(std::uint64_t id) override;
    bool terminate(std::uint64_t id) override;

private:
    bool hasList() const;
    /// The started game that a process belongs to, 0 if there is none.
    pid_t gameOf(pid_t process) const;

    std::function<std::vector<pid_t>()> startedGames_;
    std::unique_ptr<X11Connection> connection_;
};

}  // namespace gatehouse
