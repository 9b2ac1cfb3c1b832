#pragma once

#include "base/signal.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

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

/// Changes that know themselves how they are taken back, for what is too large to be compared with what was before.
class EditJournal {
public:
    /// Takes a change back, or makes it again.
    using Walk = std::function<void(bool back)>;

    /// Tells of a change; to be called inside a bracket of `edits`.
    void note(Walk walk) { noted_.push_back(std::move(walk)); }
    /// What was noted since the last call.
    std::vector<Walk> take() { return std::exchange(noted_, {}); }
    /// What was noted can't be walked any more: another list is there.
    void forget() {
        noted_.clear();
        forgotten.emit();
    }

    Edits edits;
    Signal<> forgotten;

private:
    std::vector<Walk> noted_;
};

}  // namespace gatehouse
