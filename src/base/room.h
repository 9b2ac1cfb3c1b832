#pragma once

#include "base/form.h"

#include <functional>
#include <utility>
#include <vector>

namespace gatehouse {

/// One room of the program: it owns its tables, commands, forms and rules, and ties them to each other. What the rest
/// of the program needs to know of all rooms alike is told here, by the room itself, where it makes its parts.
class Room {
public:
    Room() = default;
    Room(const Room&) = delete;
    Room& operator=(const Room&) = delete;
    virtual ~Room() = default;

    /// The forms that come up over the main window.
    const std::vector<Form*>& forms() const { return forms_; }
    /// Puts all parts back to what they were before anything was loaded, in the order in which they were named.
    void restoreDesign() {
        for (const auto& wayBack : waysBack_) wayBack();
    }

protected:
    void has(Form& form) { forms_.push_back(&form); }
    /// Names parts that have a way back of their own, `restoreDesign` or, for tables, `clear`.
    template <class... Parts>
    void restores(Parts&... parts) {
        (addWayBack(parts), ...);
    }

private:
    template <class Part>
    void addWayBack(Part& part) {
        waysBack_.push_back([&part] {
            if constexpr (requires { part.restoreDesign(); })
                part.restoreDesign();
            else
                part.clear();
        });
    }

    std::vector<Form*> forms_;
    std::vector<std::function<void()>> waysBack_;
};

}  // namespace gatehouse
