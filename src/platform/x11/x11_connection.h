#pragma once

#include <xcb/xcb.h>

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

namespace gatehouse {

/// What is asked of an X server about top-level windows. A connection of its own, made only when `$DISPLAY` is set.
/// A window that is gone answers like one without properties.
class X11Connection {
public:
    X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    ~X11Connection();

    bool works() const { return connection_ && xcb_connection_has_error(connection_) == 0; }
    /// The one in front first.
    std::vector<std::uint32_t> topWindows() const;
    /// In UTF-8 if the window has such a title.
    std::string titleOf(std::uint32_t window) const;
    /// Process that the window says it belongs to, 0 if it doesn't say.
    pid_t processOf(std::uint32_t window) const;
    void askToClose(std::uint32_t window);

private:
    xcb_atom_t atom(const char* name) const;
    std::string property(xcb_window_t window, xcb_atom_t name, std::uint32_t longestBytes) const;
    std::vector<std::uint32_t> numbers(xcb_window_t window, const char* name) const;
    bool isManaged() const;
    std::vector<std::uint32_t> childrenOfRoot() const;
    void send(xcb_window_t target, xcb_window_t window, const char* type, const char* detail, std::uint32_t mask);

    xcb_connection_t* connection_ = nullptr;
    xcb_window_t root_ = 0;
};

}  // namespace gatehouse
