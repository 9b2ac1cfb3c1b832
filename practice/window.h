#pragma once

#include <memory>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace gatehouse::practice {

/// The game's window: a title and a few lines of text on a dark ground.
class Window {
public:
    /// Opens the window on the display that the environment names; null if there is none.
    static std::unique_ptr<Window> open(const std::string& title);
    ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// Replaces the lines shown.
    void show(const std::vector<std::string>& lines);
    /// Handles what the display has sent; false once the window was closed or the display is gone.
    bool handleEvents();
    /// The file descriptor to wait on.
    int descriptor() const;

private:
    explicit Window(xcb_connection_t* connection);
    void create(const std::string& title);
    void draw();
    unsigned atom(const std::string& name);
    void setText(unsigned property, unsigned type, const std::string& text);

    xcb_connection_t* connection_;
    unsigned window_ = 0;
    unsigned graphics_ = 0;
    unsigned deleteAtom_ = 0;
    std::vector<std::string> lines_;
};

}  // namespace gatehouse::practice
