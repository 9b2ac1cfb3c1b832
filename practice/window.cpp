#include "window.h"

#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>

namespace gatehouse::practice {

namespace {

constexpr std::uint16_t kWidth = 480;
constexpr std::uint16_t kHeight = 160;
constexpr std::int16_t kLineHeight = 20;
constexpr std::uint32_t kGround = 0x1c1c20;
constexpr std::uint32_t kInk = 0xd8d0c0;

template <class Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

}  // namespace

std::unique_ptr<Window> Window::open(const std::string& title) {
    const char* display = std::getenv("DISPLAY");
    if (!display || !*display) return nullptr;
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return nullptr;
    }
    std::unique_ptr<Window> window(new Window(connection));
    window->create(title);
    return window;
}

Window::Window(xcb_connection_t* connection) : connection_(connection) {}

Window::~Window() { xcb_disconnect(connection_); }

void Window::create(const std::string& title) {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    window_ = xcb_generate_id(connection_);
    const std::uint32_t values[] = {kGround, XCB_EVENT_MASK_EXPOSURE};
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, kWidth, kHeight, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);

    const xcb_font_t font = xcb_generate_id(connection_);
    xcb_open_font(connection_, font, 5, "fixed");
    graphics_ = xcb_generate_id(connection_);
    const std::uint32_t colours[] = {kInk, kGround, font};
    xcb_create_gc(connection_, graphics_, window_, XCB_GC_FOREGROUND | XCB_GC_BACKGROUND | XCB_GC_FONT, colours);
    xcb_close_font(connection_, font);

    setText(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, title);
    setText(atom("_NET_WM_NAME"), atom("UTF8_STRING"), title);
    setText(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, std::string("quake3\0Quake3\0", 14));
    char host[256] = "";
    gethostname(host, sizeof host - 1);
    setText(XCB_ATOM_WM_CLIENT_MACHINE, XCB_ATOM_STRING, host);
    const auto pid = static_cast<std::uint32_t>(getpid());
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1, &pid);
    deleteAtom_ = atom("WM_DELETE_WINDOW");
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, atom("WM_PROTOCOLS"), XCB_ATOM_ATOM, 32, 1,
                        &deleteAtom_);
    xcb_map_window(connection_, window_);
    xcb_flush(connection_);
}

unsigned Window::atom(const std::string& name) {
    const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr), &std::free);
    return reply ? reply->atom : static_cast<unsigned>(XCB_ATOM_NONE);
}

void Window::setText(unsigned property, unsigned type, const std::string& text) {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window_, property, type, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
}

void Window::show(const std::vector<std::string>& lines) {
    if (lines == lines_) return;
    lines_ = lines;
    draw();
}

void Window::draw() {
    xcb_clear_area(connection_, 0, window_, 0, 0, 0, 0);
    std::int16_t baseline = kLineHeight * 2;
    for (const std::string& line : lines_) {
        const auto length = static_cast<std::uint8_t>(std::min<std::size_t>(line.size(), 255));
        xcb_image_text_8(connection_, length, window_, graphics_, kLineHeight, baseline, line.data());
        baseline = static_cast<std::int16_t>(baseline + kLineHeight);
    }
    xcb_flush(connection_);
}

bool Window::handleEvents() {
    bool open = true;
    for (;;) {
        const Owned<xcb_generic_event_t> event(xcb_poll_for_event(connection_), &std::free);
        if (!event) break;
        const int kind = event->response_type & 0x7f;
        if (kind == XCB_EXPOSE) draw();
        if (kind == XCB_CLIENT_MESSAGE) {
            const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event.get());
            if (message->data.data32[0] == deleteAtom_) open = false;
        }
    }
    return open && !xcb_connection_has_error(connection_);
}

int Window::descriptor() const { return xcb_get_file_descriptor(connection_); }

}  // namespace gatehouse::practice
