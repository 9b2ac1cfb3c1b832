#include "window_watch.h"

#include <xcb/xcb.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace gatehouse {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, Free>;

}  // namespace

WindowWatch::WindowWatch() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(connection_)) {
        std::fprintf(stderr, "there is no X display\n");
        std::exit(2);
    }
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    xcb_change_window_attributes(connection_, root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection_);
}

WindowWatch::~WindowWatch() { xcb_disconnect(connection_); }

std::uint32_t WindowWatch::atom(const char* name) {
    const auto request = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, request, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool WindowWatch::isSplash(std::uint32_t window) {
    const auto request =
        xcb_get_property(connection_, 0, window, atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 0, 8);
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, request, nullptr));
    if (!reply) return true;  // gone already
    const auto* types = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    const xcb_atom_t splash = atom("_NET_WM_WINDOW_TYPE_SPLASH");
    for (int i = 0; i < xcb_get_property_value_length(reply.get()) / 4; ++i)
        if (types[i] == splash) return true;
    return false;
}

void WindowWatch::waitForWindow() {
    for (;;) {
        const Reply<xcb_generic_event_t> event(xcb_wait_for_event(connection_));
        if (!event) std::exit(2);  // the display is gone
        if ((event->response_type & 0x7F) != XCB_MAP_NOTIFY) continue;
        const auto* mapped = reinterpret_cast<const xcb_map_notify_event_t*>(event.get());
        if (mapped->override_redirect || isSplash(mapped->window)) continue;
        window_ = mapped->window;
        return;
    }
}

void WindowWatch::closeWindow() {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window_;
    message.type = atom("WM_PROTOCOLS");
    message.data.data32[0] = atom("WM_DELETE_WINDOW");
    xcb_send_event(connection_, 0, window_, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    xcb_flush(connection_);
}

}  // namespace gatehouse
