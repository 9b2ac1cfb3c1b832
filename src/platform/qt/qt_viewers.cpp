#include "platform/qt/qt_viewers.h"

#include "base/runtime_failure.h"
#include "platform/qt/native_paths.h"

#include <array>
#include <iostream>

namespace gatehouse {

namespace {

/// The desktop's own choice first, then editors that open a window. `$VISUAL` is none of them: what it names mostly
/// needs a terminal.
constexpr std::array kViewers = {"xdg-open", "gnome-text-editor", "gedit", "kate", "mousepad", "xed", "pluma"};

}  // namespace

void QtViewers::viewText(const std::string& path) {
    const auto native = resolveExisting(path);
    if (!native) throw RuntimeFailure("Can't show " + path + ": there is no such file");
    if (!interactive_) {
        std::cerr << *native << std::endl;
        return;
    }
    for (const char* name : kViewers) {
        const std::string program = findOnSearchPath(name);
        if (program.empty()) continue;
        viewers_.start(program, {name, *native}, "/");
        return;
    }
    throw RuntimeFailure("Can't show " + path + ": no text viewer is installed (xdg-open, a text editor)");
}

}  // namespace gatehouse
