#pragma once

#include <cstdint>

struct xcb_connection_t;

namespace gatehouse {

/// Sees windows come up on the X display: no splash, and nothing that the window manager doesn't manage. Ends the
/// process where there is no display.
class WindowWatch {
public:
    WindowWatch();
    WindowWatch(const WindowWatch&) = delete;
    WindowWatch& operator=(const WindowWatch&) = delete;
    ~WindowWatch();

    /// Returns when a window has come up that was not there before.
    void waitForWindow();
    /// Asks that window to close, as the button of its title bar does (ICCCM, WM_DELETE_WINDOW).
    void closeWindow();

private:
    std::uint32_t atom(const char* name);
    bool isSplash(std::uint32_t window);

    xcb_connection_t* connection_;
    std::uint32_t window_ = 0;
};

}  // namespace gatehouse
