#include "platform/x11/x11_connection.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace gatehouse {

namespace {

constexpr std::uint32_t kLongestTitleBytes = 4 * 256;
constexpr std::uint32_t kLongestListBytes = 4 * 4096;

struct Release {
    void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Release>;

template <class Reply>
Owned<Reply> owned(Reply* reply) {
    return Owned<Reply>(reply);
}

xcb_screen_t* screenAt(xcb_connection_t* connection, int number) {
    xcb_screen_iterator_t at = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; at.rem > 1 && number > 0; --number) xcb_screen_next(&at);
    return at.data;
}

}  // namespace

X11Connection::X11Connection() {
    const char* display = std::getenv("DISPLAY");
    if (!display || !*display) return;
    int screen = 0;
    connection_ = xcb_connect(display, &screen);
    if (works()) root_ = screenAt(connection_, screen)->root;
}

X11Connection::~X11Connection() {
    if (connection_) xcb_disconnect(connection_);
}

xcb_atom_t X11Connection::atom(const char* name) const {
    const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(connection_, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::string X11Connection::property(xcb_window_t window, xcb_atom_t name, std::uint32_t longestBytes) const {
    const auto cookie =
        xcb_get_property(connection_, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, (longestBytes + 3) / 4);
    const auto reply = owned(xcb_get_property_reply(connection_, cookie, nullptr));
    if (!reply) return "";
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), length};
}

std::vector<std::uint32_t> X11Connection::numbers(xcb_window_t window, const char* name) const {
    const std::string bytes = property(window, atom(name), kLongestListBytes);
    std::vector<std::uint32_t> result(bytes.size() / sizeof(std::uint32_t));
    if (!result.empty()) std::memcpy(result.data(), bytes.data(), result.size() * sizeof(std::uint32_t));
    return result;
}

bool X11Connection::isManaged() const {
    // A window manager that died leaves its lists behind, but not the window that vouches for them.
    const auto check = numbers(root_, "_NET_SUPPORTING_WM_CHECK");
    return !check.empty() && numbers(check.front(), "_NET_SUPPORTING_WM_CHECK") == check;
}

std::vector<std::uint32_t> X11Connection::childrenOfRoot() const {
    const auto reply = owned(xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
    if (!reply) return {};
    const xcb_window_t* first = xcb_query_tree_children(reply.get());
    return {first, first + xcb_query_tree_children_length(reply.get())};
}

std::vector<std::uint32_t> X11Connection::topWindows() const {
    const bool managed = isManaged();
    std::vector<std::uint32_t> windows = managed ? numbers(root_, "_NET_CLIENT_LIST_STACKING") : childrenOfRoot();
    if (managed && windows.empty()) windows = numbers(root_, "_NET_CLIENT_LIST");
    // The server tells them from the bottom up.
    std::reverse(windows.begin(), windows.end());
    return windows;
}

std::string X11Connection::titleOf(std::uint32_t window) const {
    const std::string title = property(window, atom("_NET_WM_NAME"), kLongestTitleBytes);
    return title.empty() ? property(window, XCB_ATOM_WM_NAME, kLongestTitleBytes) : title;
}

pid_t X11Connection::processOf(std::uint32_t window) const {
    const auto process = numbers(window, "_NET_WM_PID");
    return process.empty() ? 0 : static_cast<pid_t>(process.front());
}

void X11Connection::askToClose(std::uint32_t window) {
    if (isManaged())
        send(root_, window, "_NET_CLOSE_WINDOW", nullptr,
             XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
    else
        send(window, window, "WM_PROTOCOLS", "WM_DELETE_WINDOW", XCB_EVENT_MASK_NO_EVENT);
}

void X11Connection::send(xcb_window_t target, xcb_window_t window, const char* type, const char* detail,
                         std::uint32_t mask) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(type);
    // The first number is what is asked, or else the time, which comes next in any case.
    event.data.data32[0] = detail ? atom(detail) : XCB_CURRENT_TIME;
    constexpr std::uint32_t kFromPager = 2;
    event.data.data32[1] = detail ? XCB_CURRENT_TIME : kFromPager;
    const auto cookie = xcb_send_event_checked(connection_, 0, target, mask, reinterpret_cast<const char*>(&event));
    // Waits until the server has it; a window that is gone meanwhile is none to close.
    owned(xcb_request_check(connection_, cookie));
}

}  // namespace gatehouse
