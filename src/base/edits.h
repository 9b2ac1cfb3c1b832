#pragma once

#include "base/signal.h"

#include <string>

namespace gatehouse {

/// The bracket around a change that a person makes, by which a listener tells it from what the program writes itself.
/// What rules change in its wake lies inside.
class Edits {
public:
    /// The name that a person knows the change by, such as "Max FPS".
    Signal<const std::string&> begins;
    Signal<> ends;

    template <class Change>
    void make(const std::string& name, Change&& change) {
        begins.emit(name);
        struct Ending {
            Signal<>& signal;
            ~Ending() { signal.emit(); }
        } ending{ends};
        change();
    }
};

}  // namespace gatehouse
